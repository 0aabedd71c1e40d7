// The toolkit's life in a host's process: whose application it is, who may call, and when it ends.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QtCore/QLibrary>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStyle>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "Host.h"
#include "doctorzelvo/doctorzelvo.h"
#include "support/TestDatabase.h"

namespace {

using zelvo::testing::call;
using zelvo::testing::Onlooker;

// A host process with a screen that nobody sees; what a call has started ends with the test.
class Life : public ::testing::Test {
protected:
    void SetUp() override {
        qunsetenv("DISPLAY");
        qunsetenv("WAYLAND_DISPLAY");
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    void TearDown() override { EXPECT_TRUE(doctorzelvo::shutdown()); }

    zelvo::testing::TestDatabase database;
};

/// A word of the toolkit's own, as its menus have it.
QString copyWord() {
    return QCoreApplication::translate("QWidgetTextControl", "&Copy");
}

struct HostApplication {
    int count = 1;
    char name[5] = "host";
    char* words[2] = {name, nullptr};
};

// A chart may well keep a thread for the component: what counts is that it stays the same one. The first
// test, for no other may have started the toolkit before it.
TEST_F(Life, aProcessThatEndsWithOrWithoutShutdownEndsWell) {
    for (const char* way : {"its first thread", "a thread", "a thread that shuts down"}) {
        SCOPED_TRACE(way);
        const pid_t host = fork();
        if (host == 0) {
            Onlooker onlooker;
            std::string error;
            bool shut = true;
            const auto chart = [&] {
                for (int calls = 0; calls < 2; ++calls) error += call(database.address());
                if (way == std::string("a thread that shuts down")) shut = doctorzelvo::shutdown();
            };
            way == std::string("its first thread") ? chart() : std::thread(chart).join();
            std::exit(shut && error.empty() && onlooker.windows == 2 ? 7 : 1);
        }
        int status = 0;
        ASSERT_EQ(waitpid(host, &status, 0), host);
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 7);
    }
}

TEST_F(Life, withoutADisplayTheCallSaysSoAndTheHostLivesOn) {
    const struct {
        const char* name;
        const char *platform, *expected;
    } cases[] = {
        {"the wanted kind is not there", "xcb", "of the kind xcb"},
        {"what drives the wanted kind is broken", "broken", "libqbroken.so"},
    };
    const QTemporaryDir parts;
    QFile broken(parts.filePath("libqbroken.so"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly) && broken.write("no library") > 0 && broken.flush());
    qputenv("QT_QPA_PLATFORM_PLUGIN_PATH", parts.path().toUtf8());
    for (const auto& each : cases) {
        qputenv("QT_QPA_PLATFORM", each.platform);
        EXPECT_NE(call(database.address()).find(each.expected), std::string::npos) << each.name;
        EXPECT_EQ(QCoreApplication::instance(), nullptr) << each.name;
    }
    qunsetenv("QT_QPA_PLATFORM_PLUGIN_PATH");
}

TEST_F(Life, usesTheHostsApplicationAndLeavesItAsItWas) {
    HostApplication host;
    QApplication application(host.count, host.words);
    const QString style = QApplication::style()->name();
    bool quit = false;
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &application, [&quit] { quit = true; });
    Onlooker onlooker;
    for (int round = 1; round <= 2; ++round) EXPECT_EQ(call(database.address()), "");
    EXPECT_EQ(onlooker.windows, 2);
    EXPECT_TRUE(doctorzelvo::shutdown());
    EXPECT_EQ(QCoreApplication::instance(), &application);
    EXPECT_EQ(copyWord(), "&Copy");
    QCoreApplication::processEvents();
    EXPECT_FALSE(quit);
    EXPECT_TRUE(QApplication::quitOnLastWindowClosed());
    EXPECT_EQ(QApplication::style()->name(), style);
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

TEST_F(Life, aHostWithoutWindowsIsToldSo) {
    HostApplication host;
    const QCoreApplication application(host.count, host.words);
    EXPECT_NE(call(database.address()).find("QCoreApplication"), std::string::npos);
    EXPECT_EQ(QCoreApplication::instance(), &application);
}

/// How many threads or descriptors the process has.
long countIn(const char* folder) {
    return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
}

TEST_F(Life, keepsWhatItHasStartedUntilShutdownAndStartsAnew) {
    Onlooker onlooker;
    EXPECT_TRUE(doctorzelvo::shutdown());
    const long descriptors = countIn("/proc/self/fd");
    for (int life = 1; life <= 2; ++life) {
        EXPECT_EQ(call(database.address()), "");
        const QCoreApplication* const started = QCoreApplication::instance();
        ASSERT_NE(started, nullptr);
        EXPECT_EQ(call(database.address()), "");
        EXPECT_EQ(QCoreApplication::instance(), started);
        EXPECT_TRUE(copyWord().startsWith("복사"));
        EXPECT_EQ(onlooker.windows, 2 * life);
        EXPECT_TRUE(doctorzelvo::shutdown());
        EXPECT_EQ(QCoreApplication::instance(), nullptr);
        // A thread that has ended may be listed a moment longer. The library of the main loop keeps one
        // descriptor.
        for (int tries = 0; tries < 100 && countIn("/proc/self/task") > 1; ++tries) usleep(10000);
        EXPECT_EQ(countIn("/proc/self/task"), 1);
        EXPECT_LE(countIn("/proc/self/fd"), descriptors + 1);
    }
}

TEST_F(Life, anotherThreadIsTurnedAwayAndCannotEndIt) {
    Onlooker onlooker;
    const auto main = [](const char* what) {
        reinterpret_cast<int (*)(void*)>(QLibrary("glib-2.0", 0).resolve(what))(nullptr);
    };
    main("g_main_context_acquire");  // as a loop does while it runs
    std::thread([this] { EXPECT_NE(call(database.address()).find("thread"), std::string::npos); }).join();
    main("g_main_context_release");
    EXPECT_EQ(call(database.address()), "");
    std::thread([this] {
        EXPECT_NE(call(database.address()).find("thread"), std::string::npos);
        EXPECT_FALSE(doctorzelvo::shutdown());
    }).join();
    EXPECT_NE(QCoreApplication::instance(), nullptr);
    EXPECT_EQ(call(database.address()), "");
    EXPECT_EQ(onlooker.windows, 2);
    EXPECT_TRUE(doctorzelvo::shutdown());
    std::thread([this] { EXPECT_NE(call(database.address()).find("thread"), std::string::npos); }).join();
}

// The user's locale has a decimal comma, maybe; the host may write its files without one.
TEST_F(Life, theHostsLocaleStaysAsItWas) {
    qputenv("LC_ALL", "C.UTF-8");
    Onlooker onlooker;
    for (const char* host : {"C", "C.UTF-8"}) {
        ASSERT_NE(std::setlocale(LC_ALL, host), nullptr);
        onlooker.atWindow = [host](QWidget&) { EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), host); };
        EXPECT_EQ(call(database.address()), "");
        EXPECT_TRUE(doctorzelvo::shutdown());
        EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), host);
    }
}

TEST_F(Life, anOpenWindowIsNotShutDownNorOpenedTwice) {
    Onlooker onlooker;
    std::string second, another;
    char cut[12] = "";
    int failed = 0;
    onlooker.atWindow = [&](QWidget&) {
        EXPECT_FALSE(doctorzelvo::shutdown());
        second = call(database.address());
        std::thread([this, &another] { another = call("sqlite:/nowhere"); }).join();
        failed = doctorzelvo_interface(nullptr, database.address().c_str(), nullptr, nullptr, nullptr,
                                       nullptr, cut, sizeof cut);
    };
    EXPECT_EQ(call(database.address()), "");
    EXPECT_EQ(onlooker.windows, 1);
    EXPECT_NE(second.find("이미 열려 있습니다"), std::string::npos);
    EXPECT_EQ(another, second);
    EXPECT_EQ(failed, 1);
    // Eleven bytes would end within the third character.
    EXPECT_STREQ(cut, "ZELVO 창");
}

TEST_F(Life, aServerThatCannotBeReachedIsToldInABoxAndTheNextCallWorks) {
    Onlooker onlooker;
    EXPECT_EQ(call("sqlite:/nowhere/at-all.db"), "");
    EXPECT_EQ(onlooker.boxes.size(), 1U);
    EXPECT_EQ(onlooker.windows, 0);
    doctorzelvo_patient patient{};
    patient.PatientName = "김하늘";
    onlooker.atWindow = [](QWidget& window) {
        EXPECT_EQ(window.findChild<QLineEdit*>("txtPatientName")->text(), "김하늘");
    };
    char error[64] = "?";
    EXPECT_EQ(doctorzelvo_interface(nullptr, database.address().c_str(), "doctor1/$/pass1", &patient, nullptr,
                                    nullptr, error, sizeof error),
              0);
    EXPECT_STREQ(error, "");
    EXPECT_EQ(onlooker.windows, 1);
}

}  // namespace
