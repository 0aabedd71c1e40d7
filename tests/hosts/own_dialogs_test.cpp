// A host's own dialogs in the place of the component's.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
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

// Works a script in the window that a chart with an account of no one's opens.
int play(const std::string& script, void* conSQL,
         const std::function<void(doctorzelvo::clsZELVOInterface&)>& bring, const char* server = nullptr) {
    const zelvo::testing::TestDatabase database;
    const std::string path = ::testing::TempDir() + "zelvo-own-" + std::to_string(getpid()) + ".zs";
    std::ofstream(path) << script;
    const int code = doctorzelvo::runInTerminal(path, [&](doctorzelvo::clsZELVOInterface& component) {
        bring(component);
        component.ZELVOInterface(conSQL, server ? server : database.address(), "nobody/$/x", 7, "김하늘", "",
                                 41, 2, "", "", "", "", "", "", "", "", "", "", "");
    });
    std::remove(path.c_str());
    return code;
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

TEST(OwnDialogs, aServerThatIsNotThereIsTheExitCode) {
    EXPECT_EQ(play(
                  "no command at all\n", nullptr, [](auto&) {}, "sqlite:/nowhere/at-all.db"),
              3);
}

}  // namespace
