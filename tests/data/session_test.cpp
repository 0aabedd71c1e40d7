#include <gtest/gtest.h>

#include <cstdlib>

#include "session/YakGukConnection.h"
#include "support/TestDatabase.h"
#include "support/TestDesktop.h"

namespace zelvo::session {

TEST(ConnectYakGukServer, OpensOneConnectionAndDropsTheFormer) {
    const testing::TestDatabase database(false);
    testing::TestDesktop desktop;
    Session session;
    std::string logins;
    const auto open = [&](const data::ServerLogin& login) {
        EXPECT_EQ(session.g_conYakGuk, nullptr);
        EXPECT_EQ(desktop.pointer(), screen::Pointer::Busy);
        logins += login.address + "," + login.database + "," + login.user + "," + login.password + ";";
        return database.connect();
    };
    for (const char* piece : {"1", "2", "3", "4"})
        ::setenv((std::string("ZELVO_DB_PASSWORD_") + piece).c_str(), piece, 1);
    ASSERT_TRUE(ConnectYakGukServer(session, desktop, open, "10.0.0.1"));
    ASSERT_TRUE(ConnectYakGukServer(session, desktop, open, "10.0.0.2"));
    EXPECT_EQ(logins, "10.0.0.1,zelvo,zelvo,1234;10.0.0.2,zelvo,zelvo,1234;");
    session.connection().yield();
    EXPECT_EQ(desktop.pointer(), screen::Pointer::Normal);
}

}  // namespace zelvo::session
