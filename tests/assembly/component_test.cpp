// The component as a chart loads it: one window at a time, whoever calls.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <thread>

#include "doctorzelvo/DoctorZELVO.hpp"
#include "support/TestDatabase.h"

namespace {

bool call(doctorzelvo::clsZELVOInterface& component, const std::string& server) {
    return component.ZELVOInterface(nullptr, server, "doctor1/$/pass1", 7, "김하늘", "", 41, 2, "", "", "",
                                    "", "", "", "", "", "", "", "");
}

// A pipe for the window's commands, so that the test decides when the window closes.
class CommandPipe {
public:
    CommandPipe() : path_(::testing::TempDir() + "zelvo-commands-" + std::to_string(getpid())) {
        std::remove(path_.c_str());
        mkfifo(path_.c_str(), 0600);
    }
    ~CommandPipe() { std::remove(path_.c_str()); }
    CommandPipe(const CommandPipe&) = delete;
    CommandPipe& operator=(const CommandPipe&) = delete;
    const std::string& path() const { return path_; }

    void open() { end_ = ::open(path_.c_str(), O_WRONLY); }
    void close() { ::close(end_); }
    void write(const std::string& commands) {
        EXPECT_EQ(::write(end_, commands.data(), commands.size()), static_cast<ssize_t>(commands.size()));
    }
    // Commands are read by an open window only.
    void waitUntilRead() const {
        int left = 1;
        while (left > 0) {
            ioctl(end_, FIONREAD, &left);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

private:
    std::string path_;
    int end_ = -1;
};

TEST(Component, turnsASecondCallAwayAndLeavesTheOpenWindowAlone) {
    const zelvo::testing::TestDatabase database;
    CommandPipe commands;
    bool second = true;
    std::string refusal;
    std::thread user([&] {
        commands.open();
        commands.write("expect window frmDoctorOCSmain\n");
        commands.waitUntilRead();
        doctorzelvo::clsZELVOInterface other;
        second = call(other, "sqlite:/nowhere");
        refusal = other.errorText();
        commands.write("expect txtPatientName 김하늘\nclose\n");
        commands.close();
    });
    std::string error = "not called";
    const int code =
        doctorzelvo::runInTerminal(commands.path(), [&](doctorzelvo::clsZELVOInterface& component) {
            EXPECT_FALSE(call(component, database.address()));
            error = component.errorText();
        });
    user.join();
    EXPECT_EQ(code, 0);
    EXPECT_EQ(error, "");
    EXPECT_FALSE(second);
    EXPECT_FALSE(refusal.empty());
}

TEST(Component, worksTwiceInOneProcessAndTellsTheExitCode) {
    const zelvo::testing::TestDatabase database;
    const struct {
        std::string server, commands;
        int code;
    } calls[] = {
        {database.address(), "expect txtPatientName 김하늘\nclose\nexpect window none\nexpect events 0\n", 0},
        {database.address(), "expect txtPatientName 김하늘\nclose\n", 0},
        {"sqlite:/nowhere/at-all.db", "no command at all\n", 3}};
    const std::string script = ::testing::TempDir() + "zelvo-twice-" + std::to_string(getpid()) + ".zs";
    for (const auto& each : calls) {
        std::ofstream(script) << each.commands;
        const auto chart = [&](doctorzelvo::clsZELVOInterface& component) { call(component, each.server); };
        EXPECT_EQ(doctorzelvo::runInTerminal(script, chart), each.code);
    }
    std::remove(script.c_str());
}

}  // namespace
