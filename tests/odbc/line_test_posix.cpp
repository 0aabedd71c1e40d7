// The line over the real driver, to a desk that is no SQL Server, and to ports where none stands.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <fstream>

#include "basics/Fault.h"
#include "data/DataTests.h"
#include "data/OrderOutcome.h"
#include "data/clsZELVORecordSet.h"
#include "platform/odbc/OdbcConnection.h"
#include "session/YakGukConnection.h"
#include "support/TestDatabase.h"
#include "support/TestDesktop.h"
#include "support/tds/TdsPipe.h"
#include "support/tds/TdsServer.h"

namespace zelvo::odbc {

using basics::Fault;
using data::CommitOutcome;
using testing::TdsServer;
using Trouble = TdsServer::Trouble;

constexpr const char* insert = "INSERT INTO t_EatGuide (CBJ_PK) VALUES (1)";

class OdbcLine : public ::testing::Test {
protected:
    std::unique_ptr<data::Connection> connect(const data::ServerLogin& login, int querySeconds = 1) const {
        if (server_.tls) testing::TdsCertificate::instance();  // takes its time, which is not the login's
        Settings settings;
        settings.encrypted = server_.tls;
        settings.checked = false;
        settings.loginSeconds = 1;
        settings.querySeconds = querySeconds;
        return openServerBy(settings, login);
    }
    std::unique_ptr<data::Connection> connect() const {
        return connect({server_.address(), "zelvo", "zelvo", "pw"});
    }
    /// Seconds that the work takes, which must end in a Fault.
    template <class Work>
    static double failsAfter(Work&& work) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_THROW(work(), Fault);
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
    std::string guides() const { return database_.value("SELECT count(*) FROM t_EatGuide"); }

    testing::TestDatabase database_{false};
    TdsServer server_{database_.path()};
    data::RecordSet set_;
};

TEST_F(OdbcLine, TheLoginArrivesAsItWasMeant) {
    for (const std::string password :
         {"{; =x ", "}", "a;UID=sa", " ", "a} =b{", "비밀'\"", "a}}b", "{", "[a](b)?*=!@,\\"}) {
        connect({server_.address(), "ze lvo", "zel;vo", password});
        const TdsServer::Login login = server_.takeLogin();
        EXPECT_EQ(login.password, password);
        EXPECT_EQ(login.database + login.user + login.language, "ze lvozel;vous_english") << password;
    }
    for (const char* unsayable : {"p}};UID=sa;PWD={x", "a};b", "{a}", "}a ", " }"})
        EXPECT_THROW(connect({server_.address(), "zelvo", "zelvo", unsayable}), Fault) << unsayable;
}

TEST_F(OdbcLine, NothingThatTheMachineSaysWeakensTheLogin) {
    server_.tls = true;
    const std::string conf = database_.path() + ".conf";
    const std::pair<const char*, std::string> cases[] = {
        {"TDSVER", "7.0"},
        {"TDSVER", "5.0"},
        {"TDSHOST", "127.0.0.2"},
        {"TDSPORT", "1"},
        {"FREETDSCONF", "[global]\ntds version = 7.0\nencryption = off\n"},
        {"FREETDSCONF", "[127.0.0.1]\ntds version = 5.0\nencryption = off\n"},
        {"FREETDSCONF", "[zelvo]\nhost = 127.0.0.2\nencryption = off\n"}};
    for (const auto& [name, value] : cases) {
        const bool isFile = name == std::string("FREETDSCONF");
        if (isFile) std::ofstream(conf) << value;
        const std::string set = isFile ? conf : value;
        ::setenv(name, set.c_str(), 1);
        connect();
        EXPECT_TRUE(server_.takeLogin().encrypted) << name << " " << value;
        EXPECT_EQ(std::getenv(name), set) << "what the chart's own lines go by";
        ::unsetenv(name);
    }
    std::remove(conf.c_str());
}

TEST_F(OdbcLine, OnlyACertificateThatChecksGetsThePassword) {
    server_.tls = true;
    const std::string file = testing::TdsCertificate::instance().file(), port = server_.address().substr(9);
    const struct {
        std::string host, file, reason;
        bool checked = true;
    } cases[] = {{"localhost", file, ""},
                 {"127.0.0.1", file, "the server's certificate is made out to another name than its address"},
                 {"localhost", "", "the server's certificate is none of those to trust, or out of date"},
                 {"127.0.0.1", "", "", false}};
    for (const auto& test : cases) {
        Settings settings;
        settings.checked = test.checked;
        settings.certificateFile = test.file;
        std::string reason;
        try {
            openServerBy(settings, {test.host + port, "zelvo", "zelvo", "pw"});
        } catch (const data::SetupFault& fault) {
            reason = fault.what();
        }
        EXPECT_EQ(reason, test.reason);
        EXPECT_EQ(server_.takeLogin().password, reason.empty() ? "pw" : "") << test.host;
    }
}

TEST_F(OdbcLine, NativeTypesBecomeTheSystemsTexts) {
    database_.run(
        "CREATE TABLE t_Types (a MONEY, b DECIMAL(18,4), c REAL, d FLOAT, e DATETIME, f DATETIME, g BIT, h INT);"
        "INSERT INTO t_Types VALUES (12500, -0.5, 0.1, 0.1, '2024-05-06', '2024-05-06 09:08:07', 1, -2147483648),"
        " (0.25, 0, 17.5, 1e15, NULL, NULL, 0, 0), (-1, 1000, NULL, NULL, NULL, NULL, NULL, NULL)");
    for (const bool smallPieces : {false, true}) {
        server_.smallPieces = smallPieces;
        connect()->open(set_, "SELECT * FROM t_Types", data::Cursor::Static);
        std::string all;
        for (; !set_.atEnd(); set_.moveNext()) {
            for (const std::string& field : set_.fields())
                all += set_.isNull(field) ? "-;" : set_.text(field) + ";";
        }
        EXPECT_EQ(all,
                  "12500;-0.5;0.1;0.1;2024-05-06;2024-05-06 09:08:07;True;-2147483648;"
                  "0.25;0;17.5;1000000000000000;-;-;False;0;-1;1000;-;-;-;-;-;-;");
    }
}

TEST_F(OdbcLine, EveryBreakIsTheNextOperationsFailure) {
    const struct {
        const char* at;
        Trouble trouble;
        bool tls = false;
    } cases[] = {{"INSERT", Trouble::CutBeforeRun},
                 {"INSERT", Trouble::CutBeforeAnswer},
                 {"INSERT", Trouble::Mute},
                 {"SELECT", Trouble::CutBeforeRun},
                 {"SELECT", Trouble::CutInAnswer},
                 {"SELECT", Trouble::Mute},
                 {"INSERT", Trouble::CutInAnswer, true},
                 {"INSERT", Trouble::EndInOrder, true},
                 {"SELECT", Trouble::EndInOrder, true},
                 {"SELECT", Trouble::EndHalf, true},
                 {"SELECT", Trouble::Reset, true},
                 {"SELECT", Trouble::Mute, true}};
    for (const auto& test : cases) {
        SCOPED_TRACE(std::string(test.at) + " " + std::to_string(static_cast<int>(test.trouble)));
        server_.tls = test.tls;
        const auto connection = connect();
        server_.misbehave(test.at, test.trouble);
        connection->begin();
        const double seconds = failsAfter([&] {
            connection->execute(insert);
            connection->open(set_, "SELECT * FROM t_Doctor", data::Cursor::Static);
        });
        EXPECT_LT(seconds, 2.5) << "a second more than the second that it has";
        EXPECT_FALSE(connection->isOpen());
        EXPECT_LT(failsAfter([&] { connection->execute(insert); }), 0.1);
        connection->rollback();
        EXPECT_EQ(guides(), "0") << "what was begun is gone";
    }
}

TEST_F(OdbcLine, ASendIsWholeOrNothingWhereverTheLineIsCut) {
    for (const char* at : {"BEGIN", "Insert into t_ChubangJun", "t_CBJDetail", "t_EatGuide", "COMMIT"}) {
        for (const Trouble trouble :
             {Trouble::CutBeforeRun, Trouble::CutBeforeAnswer, Trouble::CutInAnswer, Trouble::Mute}) {
            if (trouble == Trouble::Mute && at != std::string("COMMIT")) continue;  // it takes its time
            SCOPED_TRACE(std::string(at) + " " + std::to_string(static_cast<int>(trouble)));
            database_.run("DELETE FROM t_ChubangJun; DELETE FROM t_CBJDetail; DELETE FROM t_EatGuide");
            const auto connection = connect();
            server_.misbehave(at, trouble);
            data::clsZELVORecordSet operations;
            bool written = false;
            std::int32_t key = 0;
            CommitOutcome outcome = CommitOutcome::Refused;
            try {
                data::Transaction transaction(*connection);
                data::ChubangJun order;
                order.DTR_PK = 1;
                order.CBJ_RegDate = "2024-05-06 09:08:07";
                key = operations.Insert_ChubangJun(*connection, order);
                written = key != -1 && operations.Insert_ChubangJun_Detail(*connection, key, {}) == 1 &&
                          operations.Insert_ChubangJun_EatGuide(*connection, key, "식후", "", "") == 1;
                if (written) outcome = transaction.commit();
            } catch (const Fault&) {
                EXPECT_EQ(at, std::string("BEGIN"));
            }
            EXPECT_EQ(written, at == std::string("COMMIT"));
            EXPECT_EQ(outcome, written ? CommitOutcome::Unknown : CommitOutcome::Refused);
            const bool stands =
                written && (trouble == Trouble::CutBeforeAnswer || trouble == Trouble::CutInAnswer);
            EXPECT_EQ(data::orderStands(*connect(), 1, key, "2024-05-06 09:08:07"), stands);
            EXPECT_EQ(data::orderStands(*connection, 1, key, "2024-05-06 09:08:07"), std::nullopt);
            EXPECT_EQ(database_.value(
                          "SELECT (SELECT count(*) FROM t_CBJDetail) || (SELECT count(*) FROM t_EatGuide)"),
                      stands ? "11" : "00");
        }
    }
}

TEST_F(OdbcLine, AnotherClinicsRowIsNeverTakenForTheNewOne) {
    const auto connection = connect();
    data::clsZELVORecordSet operations;
    server_.takeBatches();
    const std::int32_t key = operations.Insert_ChubangJun(*connection, testing::sampleOrder());
    ASSERT_EQ(server_.takeBatches().size(), 1U) << "a question of its own could meet another clinic's row";
    database_.run("INSERT INTO t_ChubangJun (DTR_PK) VALUES (2)");
    EXPECT_EQ(std::to_string(key), database_.value("SELECT CBJ_PK FROM t_ChubangJun WHERE DTR_PK = 1"));
    database_.run(
        "CREATE TRIGGER instead AFTER INSERT ON t_ChubangJun BEGIN"
        " UPDATE t_ChubangJun SET CBJ_PK = 99 WHERE CBJ_PK = NEW.CBJ_PK; END");
    EXPECT_EQ(operations.Insert_ChubangJun(*connection, testing::sampleOrder()), -1)
        << "the key of what a trigger wrote is no order's";
}

TEST_F(OdbcLine, AStatementWithoutAnAnswerIsGivenUpAndTheLineLives) {
    const auto connection = connect();
    for (const char* at : {"INSERT", "SELECT"}) {
        server_.misbehave(at, Trouble::Late);
        EXPECT_LT(failsAfter([&] {
                      connection->open(set_, "SELECT 1 AS one", data::Cursor::Static);
                      connection->execute(insert);
                  }),
                  4);
        connection->open(set_, "SELECT count(*) AS n FROM t_EatGuide", data::Cursor::Static);
        EXPECT_EQ(set_.text("n"), "0") << "a person who waits for a lock goes on working";
    }
    const auto slow = connect({server_.address(), "zelvo", "zelvo", "pw"}, 30);
    server_.misbehave("SELECT", Trouble::Late);
    slow->waiting = [&](std::chrono::steady_clock::time_point since) {
        return [&, since] {
            EXPECT_THROW(slow->execute(insert), Fault) << "the line is taken";
            return std::chrono::steady_clock::now() - since < std::chrono::milliseconds(700);
        };
    };
    EXPECT_NEAR(failsAfter([&] { slow->open(set_, "SELECT 1 AS one", data::Cursor::Static); }), 0.8, 0.3);
    slow->open(set_, "SELECT count(*) AS n FROM t_EatGuide", data::Cursor::Static);
    EXPECT_EQ(set_.text("n"), "0") << "the user has given it up, and goes on working too";
}

TEST_F(OdbcLine, WhatTheServerHasEndedGoesNoFurther) {
    for (const Trouble trouble : {Trouble::Deadlock, Trouble::Late}) {
        const auto connection = connect();
        connection->begin();
        connection->execute("INSERT INTO t_EatGuide (CBJ_PK) VALUES (2)");
        server_.misbehave("UPDATE", trouble);
        EXPECT_THROW(connection->execute("UPDATE t_EatGuide SET BogYak = ''"), Fault);
        EXPECT_THROW(connection->execute(insert), Fault) << "it would commit by itself";
        EXPECT_EQ(connection->commit(), CommitOutcome::Refused);
        EXPECT_EQ(guides(), "0");
        connection->execute(insert);
        EXPECT_EQ(guides(), "1");
        database_.run("DELETE FROM t_EatGuide");
    }
}

TEST_F(OdbcLine, ABeginWithoutAnAnswerLeavesNoTransactionBehind) {
    auto connection = connect();
    server_.misbehave("BEGIN", Trouble::LateAfterRun);
    EXPECT_THROW(connection->begin(), Fault);
    connection->begin();
    connection->execute(insert);
    EXPECT_EQ(connection->commit(), CommitOutcome::Done);
    connection->close();
    EXPECT_EQ(guides(), "1") << "a commit within the forgotten transaction is none";
}

TEST_F(OdbcLine, ALostAnswerIsAskedForOnASecondConnection) {
    data::clsZELVORecordSet operations;
    database_.run(
        "INSERT INTO t_ChubangJun (CBJ_PK, DTR_PK, CBJ_IsCanceled) VALUES (5, 1, 0);"
        "INSERT INTO t_Doctor (DTR_PK, DTR_ID, DTR_PWD) VALUES (1, 'kim', 'old')");
    data::CBJmUpdate change;
    change.CBJ_PK = 5;
    change.CBJ_Msg = "it's";
    data::DoctorRecord doctor;
    doctor.DTR_Name = "o'new";
    for (const Trouble trouble : {Trouble::CutBeforeRun, Trouble::CutBeforeAnswer, Trouble::LateAfterRun}) {
        const bool done = trouble != Trouble::CutBeforeRun;
        const bool late = trouble == Trouble::LateAfterRun;
        for (const bool answers : {false, true}) {
            database_.run(
                "UPDATE t_ChubangJun SET CBJ_IsCanceled = 0, CBJ_Msg = ''; UPDATE t_Doctor SET DTR_PWD = 'old', DTR_Name = ''");
            const CommitOutcome outcome = !answers ? CommitOutcome::Unknown
                                          : done   ? CommitOutcome::Done
                                                   : CommitOutcome::Refused;
            const auto connected = [&] {
                auto connection = connect();
                if (answers) connection->another = [this] { return connect(); };
                return connection;
            };
            auto connection = connected();
            server_.misbehave("COMMIT", trouble);
            EXPECT_EQ(operations.Update_CBJCancel(*connection, 5), outcome);
            connection = connected();
            server_.misbehave("COMMIT", trouble);
            EXPECT_EQ(operations.Update_ChubangJun(*connection, change), outcome);
            connection = connected();
            server_.misbehave("DTR_PWD", trouble);
            EXPECT_EQ(operations.Update_DoctorPassword(*connection, 1, "new"),
                      late ? CommitOutcome::Done : outcome);
            connection = connected();
            server_.misbehave("DTR_Name", trouble);
            EXPECT_EQ(operations.Update_DoctorInfo(*connection, 1, doctor),
                      late ? CommitOutcome::Done : outcome);
        }
    }
}

TEST_F(OdbcLine, ARollbackThatFailsClosesTheConnection) {
    const auto connection = connect();
    connection->begin();
    connection->execute(insert);
    server_.misbehave("ROLLBACK", Trouble::CutBeforeRun);
    EXPECT_THROW(connection->rollback(), Fault);
    EXPECT_FALSE(connection->isOpen());
}

TEST_F(OdbcLine, ALoginThatFailsEndsInTimeWithOneBox) {
    ::setenv("ZELVO_ODBC_LOGIN_SECONDS", "1", 1);
    const testing::Loopback closed;
    const struct {
        const char* name;
        std::string address;
        Trouble trouble = Trouble::None;
        const char* encrypt = "off";
        const char* at = "";
    } cases[] = {
        {"a closed port", closed.address()},
        {"accepts and says nothing", server_.address(), Trouble::Mute},
        {"says nothing where encryption is asked for", server_.address(), Trouble::Mute, "on"},
        {"says nothing in mid-login", server_.address(), Trouble::Mute, "off", "LOGIN7"},
        {"closes at once", server_.address(), Trouble::CutBeforeRun},
        {"closes in mid-login", server_.address(), Trouble::CutBeforeRun, "off", "LOGIN7"},
        {"ends in mid-login, under TLS", server_.address(), Trouble::EndHalf, "on", "LOGIN7"},
        {"can't encrypt, and plain text is never fallen back to", server_.address(), Trouble::None, "on"},
        {"no such driver's address", "host:x"}};
    session::Session session;
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        ::setenv("ZELVO_ODBC_ENCRYPT", test.encrypt, 1);
        ::setenv("ZELVO_ODBC_CERTIFICATE", "trust", 1);
        server_.tls = test.trouble == Trouble::EndHalf;
        if (test.trouble != Trouble::None) server_.misbehave(test.at, test.trouble);
        testing::TestDesktop desktop;
        const auto start = std::chrono::steady_clock::now();
        EXPECT_FALSE(session::ConnectYakGukServer(session, desktop, openServer, test.address));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
        desktop.expectBox("한약국서버 연결 실패",
                          "한약국 DB서버 [" + test.address + "] 접속에 실패 하였습니다.",
                          screen::BoxIcon::Critical);
    }
    server_.tls = false;
    ::setenv("ZELVO_ODBC_ENCRYPT", "off", 1);
    for (const char* piece : {"1", "2", "3", "4"})
        ::setenv((std::string("ZELVO_DB_PASSWORD_") + piece).c_str(), piece, 1);
    testing::TestDesktop desktop;
    EXPECT_TRUE(session::ConnectYakGukServer(session, desktop, openServer, server_.address()));
    const TdsServer::Login login = server_.takeLogin();
    EXPECT_EQ(login.database + " " + login.user + " " + login.password, "zelvo zelvo 1234");
    EXPECT_FALSE(session::ConnectYakGukServer(session, desktop, openServer, closed.address()));
    EXPECT_EQ(session.g_conYakGuk, nullptr) << "the former one is dropped";
    desktop.takeBox();
}

}  // namespace zelvo::odbc
