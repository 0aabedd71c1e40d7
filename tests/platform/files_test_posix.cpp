#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>

#include "platform/UserFiles.h"
#include "platform/browser/SystemBrowser.h"

namespace zelvo {
namespace {

TEST_F(UserFiles, WhatIsNoPlainFileIsAFaultAndNobodyWaitsForIt) {
    const std::string pipe = (home / "pipe").string(), file = (home / "file").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::ofstream(file).flush();
    for (const std::string& path : {pipe, home.string(), file + "/x"})
        EXPECT_THROW(files.holdFile(path), basics::Fault) << path;
    EXPECT_FALSE(files::readPlainFile(pipe) || files::readPlainFile(home));
    EXPECT_TRUE(files.namesIn(file).empty());
    fs::create_directory(home / "zelvo");
    ASSERT_EQ(::mkfifo((home / "zelvo/support.log").c_str(), 0600), 0);
    files::SupportFile record(home / "zelvo");
    record.add("nobody reads a pipe");
    EXPECT_EQ(record.lastLines(), "");
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
