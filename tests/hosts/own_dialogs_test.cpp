// A host's own dialogs in the place of the component's.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include "doctorzelvo/DoctorZELVO.hpp"
#include "support/TestDatabase.h"

namespace {

struct Prompt : doctorzelvo::AccountPrompt {
    bool Login(std::string& id, std::string& password) override {
        id = "doctor1";
        password = "pass1";
        return true;
    }
    bool ChangePassword(const std::string& oldPassword, std::string& newPassword) override {
        newPassword = oldPassword + "!";
        return true;
    }
};

struct Lookup : doctorzelvo::PostalLookup {
    bool ZipCode(std::string&, std::string& juso, std::string& zip, std::int32_t&, std::int32_t&) override {
        juso = "서울 종로 1";
        zip = "03045";
        return true;
    }
};

struct Editor : doctorzelvo::EatGuideEditor {
    bool edit(void* conSQL, std::string& patientName, std::string& sheetRtf, std::string&,
              std::string& phoneNo) override {
        if (!conSQL) throw std::runtime_error("the chart's editor is gone");
        sheetRtf = patientName;
        phoneNo = *static_cast<const std::string*>(conSQL);
        return true;
    }
};

// A script in a file of its own, for one run.
class ScriptFile {
public:
    explicit ScriptFile(const std::string& script)
        : path_(::testing::TempDir() + "zelvo-own-" + std::to_string(getpid()) + ".zs") {
        std::ofstream(path_) << script;
    }
    ~ScriptFile() { std::remove(path_.c_str()); }
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

// Works a script in the window that a chart with an account of no one's opens.
int play(const std::string& script, void* conSQL,
         const std::function<void(doctorzelvo::clsZELVOInterface&)>& bring, const char* server = nullptr) {
    const zelvo::testing::TestDatabase database;
    const ScriptFile file(script);
    return doctorzelvo::runInTerminal(file.path(), [&](doctorzelvo::clsZELVOInterface& component) {
        bring(component);
        component.ZELVOInterface(conSQL, server ? server : database.address(), "nobody/$/x", 7, "김하늘", "",
                                 41, 2, "", "", "", "", "", "", "", "", "", "", "");
    });
}

constexpr const char* login = R"(
expect message "한약국 로그인" *
press ssrLogIN
expect message "한약국 로그인" "한약국 로그인 성공! [ 접속 ID = doctor1 ]"
tab c1tMain 3
press ssrZipCode(4)
expect txtDTRhoszip 03045
press ssrPWDchang
expect message "비밀번호 변경" *
tab c1tMain 1
press cmdEatGuide
)";

TEST(OwnDialogs, standInThePlaceOfTheComponents) {
    const auto bring = [](doctorzelvo::clsZELVOInterface& component) {
        component.makeAccountPrompt = [] { return std::make_unique<Prompt>(); };
        component.makePostalLookup = [] { return std::make_unique<Lookup>(); };
        component.makeEatGuideEditor = [] { return std::make_unique<Editor>(); };
    };
    std::string phone = "02-700-0001";
    EXPECT_EQ(play(std::string(login) +
                       "expect plain rtxEatGuide 김하늘\nexpect txtEatGuideCall 02-700-0001\nclose\n",
                   &phone, bring),
              0);
    EXPECT_EQ(play(std::string(login) + "expect message 복용법작성 \"the chart's editor is gone\"\nclose\n",
                   nullptr, bring),
              0);
}

TEST(OwnDialogs, whatFailsInOneIsToldAndTheWindowGoesOn) {
    const struct {
        std::function<std::unique_ptr<doctorzelvo::AccountPrompt>()> make;
        const char* told;
    } cases[] = {{[] { return nullptr; }, "구성 요소 AccountPrompt.clsAccountPrompt을(를) 만들 수 없습니다."},
                 {[]() -> std::unique_ptr<Prompt> { throw std::runtime_error("no licence"); }, "no licence"},
                 {[]() -> std::unique_ptr<Prompt> { throw 7; }, "알 수 없는 오류"}};
    for (const auto& each : cases) {
        EXPECT_EQ(
            play(
                "expect message \"한약국 로그인\" *\npress ssrLogIN\nexpect message \"한약국 로그인 실패\" \"" +
                    std::string(each.told) + "\"\nexpect no message\nclose\n",
                nullptr, [&](auto& component) { component.makeAccountPrompt = each.make; }),
            0)
            << each.told;
    }
}

// A chart of another header's time: what lies behind the size that it says is not of this struct.
struct OtherChart {
    doctorzelvo_chart known;
    char behind[64];
    std::string server;
};

int callOf(doctorzelvo_terminal* terminal, void* context) {
    auto& other = *static_cast<OtherChart*>(context);
    other.known.terminal = terminal;
    return doctorzelvo_open(nullptr, other.server.c_str(), "nobody/$/x", nullptr, &other.known) ==
           doctorzelvo_closed;
}

TEST(OwnDialogs, ofAChartOfAnOlderOrNewerHeaderCountAsFarAsBothKnowThem) {
    const struct {
        std::size_t size;
        const char* ofThePassword;
    } cases[] = {{offsetof(doctorzelvo_chart, ChangePassword), "key txtOldPassword Esc\n"},
                 {sizeof(OtherChart), "expect message \"비밀번호 변경\" *\n"}};
    const zelvo::testing::TestDatabase database;
    for (const auto& each : cases) {
        OtherChart other{{}, {}, database.address()};
        std::memset(&other.known, 0xEE, sizeof other.known);
        std::memset(other.behind, 0xEE, sizeof other.behind);
        other.known.size = each.size;
        other.known.owner_window = 0;
        other.known.tell = nullptr;
        other.known.Send2Chart = nullptr;
        other.known.Login = [](doctorzelvo_text* id, doctorzelvo_text* password, doctorzelvo_text*, void*) {
            id->give(id, "nobody at all");
            id->give(id, "doctor1");
            password->give(password, "pass1");
            return int{doctorzelvo_confirmed};
        };
        if (each.size > sizeof other.known) {
            other.known.ChangePassword = [](const char* old, doctorzelvo_text* changed, doctorzelvo_text*,
                                            void*) {
                changed->give(changed, old);
                return int{doctorzelvo_confirmed};
            };
        }
        const ScriptFile file(
            "expect message \"한약국 로그인\" *\npress ssrLogIN\nexpect message \"한약국 로그인\" *\ntab c1tMain 3\n" +
            std::string("press ssrPWDchang\n") + each.ofThePassword + "expect no message\nclose\n");
        EXPECT_EQ(doctorzelvo_run_in_terminal(file.path().c_str(), callOf, nullptr, &other), 0) << each.size;
    }
}

TEST(OwnDialogs, whatAChartThrowsComesBackToIt) {
    EXPECT_THROW(play("", nullptr, [](auto&) { throw std::out_of_range("no patient"); }), std::out_of_range);
}

TEST(OwnDialogs, aServerThatIsNotThereIsTheExitCode) {
    EXPECT_EQ(play(
                  "no command at all\n", nullptr, [](auto&) {}, "sqlite:/nowhere/at-all.db"),
              3);
}

}  // namespace
