// The component as a chart loads it: one window at a time, whoever calls.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <thread>

#include "doctorzelvo/DoctorZELVO.hpp"
#include "support/TestDatabase.h"

namespace {

using doctorzelvo::clsZELVOInterface;

bool call(clsZELVOInterface& component, const std::string& server,
          const std::string& account = "doctor1/$/pass1") {
    return component.ZELVOInterface(nullptr, server, account, 7, "김하늘", "", 41, 2, "", "", "", "", "", "",
                                    "", "", "", "", "");
}

/// Works the commands in the terminal; the exit code.
int play(const std::string& commands, const std::function<void(clsZELVOInterface&)>& chart) {
    const std::string script = ::testing::TempDir() + "zelvo-component-" + std::to_string(getpid()) + ".zs";
    std::ofstream(script) << commands;
    const int code = doctorzelvo::runInTerminal(script, chart);
    std::remove(script.c_str());
    return code;
}

TEST(Component, turnsASecondCallAwayAndLeavesTheOpenWindowAlone) {
    const zelvo::testing::TestDatabase database;
    bool second = true;
    std::string refusal, error = "not called";
    const auto callAgain = [&]() -> std::unique_ptr<doctorzelvo::AccountPrompt> {
        std::thread([&] {
            clsZELVOInterface other;
            second = call(other, "sqlite:/nowhere");
            refusal = other.errorText();
        }).join();
        return nullptr;
    };
    const int code = play(
        "expect message \"한약국 로그인\" *\npress ssrLogIN\nexpect message \"한약국 로그인 실패\" *\n"
        "expect no message\nexpect window frmDoctorOCSmain\ntab c1tMain 0\nclose\nexpect events 0\n",
        [&](clsZELVOInterface& component) {
            component.makeAccountPrompt = callAgain;
            EXPECT_FALSE(call(component, database.address(), "nobody/$/x"));
            error = component.errorText();
        });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(error, "");
    EXPECT_FALSE(second);
    EXPECT_FALSE(refusal.empty());
}

TEST(Component, worksTwiceInOneProcessAndTellsTheExitCode) {
    const zelvo::testing::TestDatabase database;
    const std::string open = database.address(), road = "expect txtPatientName 김하늘\nclose\n";
    const std::tuple<std::string, std::string, int> calls[] = {
        {open, road + "expect window none\nexpect events 0\n", 0},
        {open, road, 0},
        {"sqlite:/nowhere/at-all.db", "no command at all\n", 3}};
    for (const auto& [server, commands, code] : calls)
        EXPECT_EQ(play(commands, [&, &to = server](clsZELVOInterface& component) { call(component, to); }),
                  code)
            << server;
}

}  // namespace
