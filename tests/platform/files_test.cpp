#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "basics/Fault.h"
#include "platform/browser/SystemBrowser.h"
#include "platform/files/FileSystemObject.h"
#include "platform/files/WholeFile.h"
#include "platform/settings/SettingsText.h"
#include "platform/settings/UserSettings.h"

namespace zelvo {
namespace {

namespace fs = std::filesystem;

/// A home of its own for one test.
class UserFiles : public ::testing::Test {
protected:
    UserFiles() {
        std::string name = (fs::temp_directory_path() / "zelvo-home-XXXXXX").string();
        home_ = mkdtemp(name.data());
        setenv("HOME", home_.c_str(), 1);
        unsetenv("XDG_DATA_HOME");
        unsetenv("XDG_CONFIG_HOME");
    }
    ~UserFiles() override { fs::remove_all(home_); }

    static std::string contentOf(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static unsigned modeOf(const fs::path& path) {
        struct stat info {};
        stat(path.c_str(), &info);
        return info.st_mode & 0777U;
    }
    static std::size_t entriesOf(const fs::path& folder) {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    fs::path home_;
    files::FileSystemObject files_;
};

std::string faultOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const basics::Fault& fault) {
        return fault.what();
    }
    return "no fault";
}

TEST_F(UserFiles, aLogIsWrittenWholeAndForItsUserAlone) {
    EXPECT_EQ(files_.fixedFolder("zelvo"), (home_ / ".local/share/zelvo").string());
    setenv("XDG_DATA_HOME", "not/absolute", 1);
    EXPECT_EQ(files_.fixedFolder("zelvo"), (home_ / ".local/share/zelvo").string());
    setenv("XDG_DATA_HOME", (home_ / "data").c_str(), 1);
    const std::string folder = files_.fixedFolder("zelvo");
    EXPECT_EQ(folder, (home_ / "data/zelvo").string());

    EXPECT_FALSE(files_.folderExists(folder));
    files_.createFolder(folder);
    files_.createFolder(folder);
    EXPECT_TRUE(files_.folderExists(folder));
    EXPECT_EQ(modeOf(folder), 0700U);
    EXPECT_EQ(modeOf(home_ / "data"), 0700U);

    const std::string path = folder + "/zelvo_20240229101112.htm";
    files_.writeTextFile(path, std::string(100'000, 'x'));
    files_.writeTextFile(path, "당귀\xff");
    EXPECT_EQ(contentOf(path), "\xef\xbb\xbf당귀\uFFFD");
    EXPECT_EQ(modeOf(path), 0600U);
    EXPECT_EQ(entriesOf(folder), 1U);
}

TEST_F(UserFiles, whatCannotBeWrittenIsSaidAndLeavesEverythingAsItWas) {
    const std::string file = (home_ / "file").string();
    files_.writeTextFile(file, "before");
    const std::string longName = (home_ / std::string(300, 'n')).string();
    fs::create_directory(home_ / "folder");
    EXPECT_EQ(faultOf([&] { files_.writeTextFile((home_ / "none/log").string(), "x"); }),
              "파일 " + (home_ / "none/log").string() + "에 기록하지 못했습니다. 폴더가 없습니다.");
    EXPECT_EQ(faultOf([&] { files_.writeTextFile(longName, "x"); }),
              "파일 " + longName + "에 기록하지 못했습니다. 이름이 너무 깁니다.");
    EXPECT_EQ(faultOf([&] { files_.writeTextFile((home_ / "folder").string(), "x"); }),
              "파일 " + (home_ / "folder").string() + "에 기록하지 못했습니다. 같은 이름의 폴더가 있습니다.");
    EXPECT_EQ(faultOf([&] { files_.createFolder(file + "/deeper"); }),
              "폴더 " + file + "을(를) 만들지 못했습니다. 같은 이름의 파일이 있습니다.");

    // A disk that fills up in the middle: the process may write no file of more than 50,000 bytes.
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{50'000, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string fault = faultOf([&] { files_.writeTextFile(file, std::string(200'000, 'x')); });
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_TRUE(fault.starts_with("파일 " + file + "에 기록하지 못했습니다.")) << fault;
    EXPECT_EQ(contentOf(file),
              "\xef\xbb\xbf"
              "before");
    EXPECT_EQ(entriesOf(home_), 2U);
}

TEST_F(UserFiles, settingsComeBackAsTheyWereStored) {
    settings::UserSettings store;
    const fs::path file = home_ / ".config/Vexora/settings.ini";
    EXPECT_EQ(store.read("Vexora", "벡 소라", "복용법 추가메모1", "absent"), "absent");
    const std::vector<std::string> values{
        "벡한의원",       "",       " both ends ", "a=b # c", "two\r\nlines",
        "back\\slash\\n", "[head]", "#",           " ",       "\uFEFF\t'\""};
    for (const std::string& value : values) {
        store.write("Vexora", "벡 소라", "복용법 추가메모1", value);
        EXPECT_EQ(settings::UserSettings().read("Vexora", "벡 소라", "복용법 추가메모1", "absent"), value);
        for (const std::string& name : values) {
            settings::SettingsText text("");
            text.setValue(name, value, "kept");
            EXPECT_EQ(settings::SettingsText(text.text()).value(name, value), "kept") << text.text();
            EXPECT_EQ(text.value(name, value + "x"), std::nullopt);
        }
    }
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_EQ(entriesOf(file.parent_path()), 1U);
    store.write("Vexora", "other", "복용법 추가메모1", "x");
    EXPECT_EQ(store.read("Vexora", "벡 소라", "복용법 추가메모1", "absent"), values.back());

    fs::remove(file);
    fs::create_directory(file);  // a file that can't be read is not overwritten
    EXPECT_EQ(store.read("Vexora", "벡 소라", "복용법 추가메모1", "absent"), "absent");
    EXPECT_THROW(store.write("Vexora", "벡 소라", "복용법 추가메모1", "x"), basics::Fault);
}

TEST(SettingsText, linesOfOthersAreKept) {
    settings::SettingsText text(
        "\xef\xbb\xbf# by hand\r\nstray\r\n[a]\r\nk=1\r\n# k=2\r\nwhat is this\r\n\r\n[b]\r\nk=3\r\nk=4");
    EXPECT_EQ(text.value("a", "k"), "1");
    EXPECT_EQ(text.value("b", "k"), "3");
    EXPECT_EQ(text.value("", "stray"), std::nullopt);
    text.setValue("a", "k", "5");
    text.setValue("a", "new", "6");
    text.setValue("c", "k", "7");
    EXPECT_EQ(text.text(),
              "# by hand\nstray\n[a]\nk=5\n# k=2\nwhat is this\nnew=6\n\n[b]\nk=3\nk=4\n\n[c]\nk=7\n");
}

TEST_F(UserFiles, theBrowserGetsTheAddressAsOneArgumentAndNoShellReadsIt) {
    const std::string path = std::getenv("PATH");
    const fs::path opener = home_ / "xdg-open";
    const auto install = [&](const std::string& script) {
        std::ofstream(opener) << "#!/bin/sh\n" << script;
        fs::permissions(opener, fs::perms::owner_all);
    };
    browser::SystemBrowser browser;
    setenv("PATH", home_.c_str(), 1);
    EXPECT_EQ(faultOf([&] { browser.open("http://notice.example/1"); }),
              "이 컴퓨터에서 웹 브라우저를 실행할 수 없습니다.");
    setenv("PATH", (home_.string() + ":" + path).c_str(), 1);
    install("printf '%s|' \"$#\" \"$1\" > '" + (home_ / "seen").string() + "'\n");
    browser.open(" HTTP://notice.example/1?a=$(id)&b=';x' ");
    EXPECT_EQ(contentOf(home_ / "seen"), "1|HTTP://notice.example/1?a=$(id)&b=';x'|");
    install("exit 3\n");
    EXPECT_EQ(faultOf([&] { browser.open("https://notice.example/"); }),
              "이 컴퓨터에서 웹 브라우저를 찾지 못했습니다.");
    install("exec sleep 2\n");
    browser.open("https://notice.example/");
    for (const char* address :
         {"", "notice.example", "file:///etc/passwd", "--version", "http://a b", "http://a\nb"}) {
        EXPECT_EQ(faultOf([&] { browser.open(address); }), "열 수 없는 웹페이지 주소입니다.") << address;
    }
    setenv("PATH", path.c_str(), 1);
}

}  // namespace
}  // namespace zelvo
