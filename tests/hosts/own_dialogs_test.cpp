// What a chart brings to the library and gets from it: its own dialogs, its own end of an order.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include "doctorzelvo/DoctorZELVO.hpp"
#include "support/Machine.h"
#include "support/TestDatabase.h"
#include "support/TestFolder.h"

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

// A clinic's machine with the script of one run; what the run leaves in the user's folders goes with it.
class Machine {
public:
    explicit Machine(const std::string& script) {
        zelvo::testing::liveIn(folder_.path);
        std::ofstream(this->script()) << script;
    }
    std::string script() const { return folder_.path / "run.zs"; }

private:
    zelvo::testing::TestFolder folder_;
};

// Works a script in the window that a chart with an account of no one's opens.
int play(const std::string& script, void* conSQL,
         const std::function<void(doctorzelvo::clsZELVOInterface&)>& bring, const char* server = nullptr) {
    const zelvo::testing::TestDatabase database;
    const Machine machine(script);
    return doctorzelvo::runInTerminal(machine.script(), [&](doctorzelvo::clsZELVOInterface& component) {
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
    const doctorzelvo_chart sayingNothing{};
    EXPECT_EQ(doctorzelvo_open_nurse(nullptr, database.address().c_str(), "", &sayingNothing),
              doctorzelvo_broken);
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
        const Machine machine(
            "expect message \"한약국 로그인\" *\npress ssrLogIN\nexpect message \"한약국 로그인\" *\ntab c1tMain 3\n" +
            std::string("press ssrPWDchang\n") + each.ofThePassword + "expect no message\nclose\n");
        EXPECT_EQ(doctorzelvo_run_in_terminal(machine.script().c_str(), callOf, nullptr, &other), 0)
            << each.size;
    }
}

// The demo pharmacy's pages, for as long as this process lives.
void servePages(const zelvo::testing::TestDatabase& database) {
    const std::string ready = database.path() + ".port";
    ASSERT_EQ(std::system((ZELVO_BIN_DIR "/zelvo-pharmacy --db '" + database.path() + "' serve --parent " +
                           std::to_string(getpid()) + " --ready-file '" + ready + "' >/dev/null &")
                              .c_str()),
              0);
    for (int turn = 0; turn < 400 && zelvo::testing::contentOf(ready).empty(); ++turn) usleep(25000);
    std::filesystem::remove(ready);
}

TEST(SentOrder, reachesTheChartWithItsNineValuesAndWhatFailsThereIsTold) {
    const zelvo::testing::TestDatabase database;
    servePages(database);
    std::string script = zelvo::testing::contentOf(ZELVO_SOURCE_DIR "/demo/scenarios/first-order.zs");
    const std::string send = "answer No\npress ssrCBJSend\n";
    script.replace(
        script.find(send), send.size(),
        "answer OK\n" + send +
            "expect message \"처방전 전송\" \"처방전은 전송되었습니다. 진료부에 전달하는 중 오류 발생 - "
            "[the record is closed ]\"\n");
    const Machine machine(script);
    doctorzelvo::ChartRecord order;
    const int code = doctorzelvo::runInTerminal(machine.script(), [&](auto& component) {
        component.Send2Chart = [&](const doctorzelvo::ChartRecord& brought) {
            order = brought;
            throw std::runtime_error("the record is closed");
        };
        component.ZELVOInterface(nullptr, database.address(), "doctor1/$/pass1", 1024, "김하늘", "", 41, 2,
                                 "01012345678", "", "", "06236", "서울특별시 강남구 테헤란로 152",
                                 "하늘한의원", "이정민", "025550123", "", "03045",
                                 "서울특별시 종로구 효자로 12");
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(order.strJob, "첩약 + 탕전");
    EXPECT_EQ(order.intChupSu, 20);
    EXPECT_EQ(order.intPouchAmount, 100);
    EXPECT_EQ(order.sglDayTuYak, 3);
    EXPECT_EQ(order.intTuyakilsu, 7);
    EXPECT_EQ(order.intPouchTotal, 21);
    EXPECT_EQ(order.strMessage, "식후 30분에 복용하도록 안내 부탁드립니다.");
    EXPECT_GT(order.lngSumCost, 0);
    EXPECT_EQ(order.strxDrugList, "당귀/$CD$/6/$RD$/작약/$CD$/4/$RD$/감초/$CD$/2");
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
