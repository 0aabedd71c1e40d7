#include <gtest/gtest.h>

#include <cstdlib>

#include "basics/Fault.h"
#include "session/YakGukConnection.h"
#include "support/TestDatabase.h"
#include "support/TestDesktop.h"

namespace zelvo::session {

using testing::TestDatabase;
using testing::TestDesktop;

TEST(ConnectYakGukServer, OpensOneConnectionAndDropsTheFormer) {
    const TestDatabase database(false);
    TestDesktop desktop;
    Session session;
    EXPECT_THROW(session.connection(), basics::Fault);
    std::vector<data::ServerLogin> logins;
    const auto open = [&](const data::ServerLogin& login) {
        EXPECT_EQ(desktop.pointer(), screen::Pointer::Busy);
        logins.push_back(login);
        return database.connect();
    };
    for (int piece = 1; piece <= 4; ++piece) {
        ::setenv(("ZELVO_DB_PASSWORD_" + std::to_string(piece)).c_str(),
                 std::string(1, static_cast<char>('a' + piece - 1)).c_str(), 1);
    }
    ASSERT_TRUE(ConnectYakGukServer(session, desktop, open, "10.0.0.1"));
    EXPECT_EQ(desktop.passes, 1);
    EXPECT_EQ(desktop.pointer(), screen::Pointer::Normal);
    session.connection().yield();
    EXPECT_EQ(logins[0].address + "," + logins[0].database + "," + logins[0].user + "," + logins[0].password,
              "10.0.0.1,zelvo,zelvo,abcd");
    ASSERT_TRUE(ConnectYakGukServer(session, desktop, open, "10.0.0.2"));
    EXPECT_EQ(logins.size(), 2U);
    EXPECT_TRUE(session.connection().isOpen());
}

TEST(ConnectYakGukServer, SaysWhichServerCannotBeReached) {
    const TestDatabase database(false);
    TestDesktop desktop;
    Session session;
    session.g_conYakGuk = database.connect();
    const auto refuse = [](const data::ServerLogin&) -> std::unique_ptr<data::Connection> {
        throw basics::Fault("refused");
    };
    EXPECT_FALSE(ConnectYakGukServer(session, desktop, refuse, "10.0.0.1"));
    desktop.expectBox("한약국서버 연결 실패", "한약국 DB서버 [10.0.0.1] 접속에 실패 하였습니다.",
                      screen::BoxIcon::Critical);
    EXPECT_EQ(session.g_conYakGuk, nullptr);
    EXPECT_EQ(desktop.pointerHistory, (std::vector<std::string>{"busy", "normal"}));
}

}  // namespace zelvo::session
