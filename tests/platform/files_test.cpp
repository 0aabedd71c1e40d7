#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "basics/Fault.h"
#include "platform/browser/SystemBrowser.h"
#include "platform/files/SupportFile.h"
#include "platform/files/WholeFile.h"
#include "platform/settings/SettingsText.h"
#include "platform/settings/UserSettings.h"
#include "support/TestFolder.h"

namespace zelvo {
namespace {

namespace fs = std::filesystem;

/// A home of its own for one test.
struct UserFiles : ::testing::Test {
    UserFiles() {
        setenv("HOME", home.c_str(), 1);
        setenv("XDG_DATA_HOME", "not/absolute", 1);
        unsetenv("XDG_CONFIG_HOME");
    }

    static auto entriesOf(const fs::path& folder) {
        return std::distance(fs::directory_iterator(folder), {});
    }
    static std::string faultOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const basics::Fault& fault) {
            return fault.what();
        }
        return "no fault";
    }

    const testing::TestFolder machine;
    const fs::path& home = machine.path;
    files::FileSystemObject files;
};

TEST_F(UserFiles, TheSupportRecordStaysSmallAndItsUsersOwn) {
    const fs::path log = home / "zelvo/support.log", former = home / "zelvo/support.1.log";
    files::SupportFile record(home / "zelvo");
    EXPECT_EQ(record.lastLines(), "");
    record.add("one\r\nline\xff");
    EXPECT_TRUE(record.lastLines().ends_with(" one  line\uFFFD\n")) << record.lastLines();
    EXPECT_EQ(fs::status(log).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    for (int i = 0; i < 6000; ++i) record.add(std::string(400, 'x'));
    record.add("the last");
    EXPECT_LE(fs::file_size(log), 1U << 20);
    EXPECT_LE(fs::file_size(former), 1U << 20);
    EXPECT_EQ(entriesOf(home / "zelvo"), 2);
    EXPECT_TRUE(record.lastLines().ends_with(" the last\n"));
    fs::remove(log);
    ASSERT_EQ(mkfifo(log.c_str(), 0600), 0);
    record.add("nobody reads a pipe, and nobody waits for one");
    EXPECT_EQ(record.lastLines(), "");
}

TEST_F(UserFiles, AFileIsMadeWholeForItsUserAloneAndHeld) {
    const std::string folder = files.fixedFolder("zelvo");
    EXPECT_EQ(folder, (home / ".local/share/zelvo").string());
    EXPECT_TRUE(files.namesIn(folder).empty());
    files.createFolder(folder);
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
    const std::string path = folder + "/zelvo_20240229101112.htm";
    auto made = files.makeFile(path, "당귀\xff");
    ASSERT_TRUE(made);
    EXPECT_EQ(testing::contentOf(path), "\xef\xbb\xbf당귀\uFFFD");
    EXPECT_EQ(files.readTextFile(path) + "|" + files.readTextFile(path + "x"), "당귀\uFFFD|");
    EXPECT_THROW(files.readTextFile(folder), basics::Fault);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_FALSE(files.makeFile(path, "another's")) << "what stands there is not this one's to write over";
    EXPECT_FALSE(files.holdFile(path) || files.holdFile(path + "x"));
    made = nullptr;
    const auto held = files.holdFile(path);
    ASSERT_TRUE(held);
    EXPECT_EQ(held->text(), "당귀\uFFFD");
    std::ofstream(folder + "/x.htm.AbCdEf.part") << "of a program that was killed";
    files.clearHalfWritten(folder);
    EXPECT_EQ(files.namesIn(folder), std::vector<std::string>{"zelvo_20240229101112.htm"});
    held->remove();
    held->remove();
    EXPECT_EQ(entriesOf(folder), 0);
}

TEST_F(UserFiles, WhatIsNoPlainFileIsAFaultAndNobodyWaitsForIt) {
    const std::string pipe = (home / "pipe").string(), file = (home / "file").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::ofstream(file).flush();
    for (const std::string& path : {pipe, home.string(), file + "/x"})
        EXPECT_THROW(files.holdFile(path), basics::Fault) << path;
    EXPECT_FALSE(files::readPlainFile(pipe) || files::readPlainFile(home));
    EXPECT_TRUE(files.namesIn(file).empty());
}

TEST_F(UserFiles, WhatCannotBeWrittenIsSaidAndLeavesEverythingAsItWas) {
    const std::string file = (home / "file").string();
    files::writeWholeFile(file, "before");
    EXPECT_EQ(faultOf([&] { files::writeWholeFile(home.string(), "x"); }),
              "파일 " + home.string() + "에 기록하지 못했습니다. 같은 이름의 폴더가 있습니다.");

    // A disk that fills up in the middle: the process may write no file of more than 50,000 bytes.
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{50'000, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string fault = faultOf([&] { files::writeWholeFile(file, std::string(200'000, 'x')); });
    EXPECT_THROW(files.makeFile(file + "2", std::string(200'000, 'x')), basics::Fault);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_TRUE(fault.starts_with("파일 " + file + "에 기록하지 못했습니다.")) << fault;
    EXPECT_EQ(testing::contentOf(file), "before");
    EXPECT_EQ(entriesOf(home), 1);
}

TEST_F(UserFiles, SettingsComeBackAsTheyWereStored) {
    settings::UserSettings store;
    const std::vector<std::string> values{
        "", " both ends ", "a=b # c", "two\r\nlines", "back\\slash\\n", "[head]", "#", "\uFEFF\t'\""};
    for (const std::string& value : values) {
        store.write("Vexora", "벡 소라", "복용법 추가메모1", value);
        EXPECT_EQ(settings::UserSettings().read("Vexora", "벡 소라", "복용법 추가메모1", "absent"), value);
        for (const std::string& name : values) {
            settings::SettingsText text("");
            text.setValue(name, value, "kept");
            EXPECT_EQ(settings::SettingsText(text.text()).value(name, value), "kept") << text.text();
        }
    }
    const fs::path file = home / ".config/Vexora/settings.ini";
    EXPECT_EQ(entriesOf(file.parent_path()), 1);
    fs::remove(file);
    fs::create_directory(file);  // a file that can't be read is not overwritten
    EXPECT_EQ(store.read("Vexora", "벡 소라", "복용법 추가메모1", "absent"), "absent");
    EXPECT_THROW(store.write("Vexora", "벡 소라", "복용법 추가메모1", "x"), basics::Fault);
}

TEST_F(UserFiles, WhatTheWindowsWereLikeIsNeverAFailure) {
    const auto session = [] { return screen::Remembered(std::make_unique<settings::UserSettings>()); };
    const fs::path file = home / ".config/Vexora/windows/settings.ini";
    session().keep("zoom", "125");
    EXPECT_EQ(session().text("zoom"), "125");
    const std::string damaged("\xff\0=\n[windows\nzoom", 17), notOurs(2'000'000, 'x');
    for (const auto& [text, next] : {std::pair{damaged, "150"}, {notOurs, ""}}) {
        std::ofstream(file) << text;
        screen::Remembered here = session();
        EXPECT_EQ(here.text("zoom"), "");
        here.keep("zoom", "150");
        EXPECT_EQ(here.text("zoom"), "150");
        EXPECT_EQ(session().text("zoom"), next);
    }
}

TEST(SettingsText, LinesOfOthersAreKept) {
    settings::SettingsText text(
        "\uFEFF# by hand\r\nstray\r\n[a]\r\nk=1\r\n# k=2\r\nwhat\r\n\r\n[b]\r\nk=3\r\nk=4");
    EXPECT_EQ(text.value("b", "k"), "3");
    text.setValue("a", "k", "5");
    text.setValue("a", "new", "6");
    text.setValue("c", "k", "7");
    EXPECT_EQ(text.text(), "# by hand\nstray\n[a]\nk=5\n# k=2\nwhat\nnew=6\n\n[b]\nk=3\nk=4\n\n[c]\nk=7\n");
}

TEST_F(UserFiles, TheBrowserGetsTheAddressAsOneArgumentAndNoShellReadsIt) {
    const auto opens = [&](const std::string& script, const std::string& address) {
        std::ofstream(home / "xdg-open") << "#!/bin/sh\n" << script;
        fs::permissions(home / "xdg-open", fs::perms::owner_all);
        return faultOf([&] { browser::SystemBrowser().open(address); });
    };
    setenv("PATH", (home.string() + ":" + std::getenv("PATH")).c_str(), 1);
    const std::string keeps = "printf '%s|' \"$#\" \"$1\" > '" + (home / "seen").string() + "'\n";
    EXPECT_EQ(opens(keeps, " HTTP://notice.example/1?a=$(id)&b=';x y' "), "no fault");
    EXPECT_EQ(testing::contentOf(home / "seen"), "1|HTTP://notice.example/1?a=$(id)&b=';x%20y'|");
    EXPECT_EQ(opens("exit 3\n", "https://notice.example/"), "이 컴퓨터에서 웹 브라우저를 찾지 못했습니다.");
    for (const char* address : {"", "file:///etc/passwd", "--version", "a b", "http://a\nb"})
        EXPECT_EQ(opens(keeps, address), "열 수 없는 웹페이지 주소입니다.") << address;
}

}  // namespace
}  // namespace zelvo
