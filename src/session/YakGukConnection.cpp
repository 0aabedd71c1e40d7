#include "session/YakGukConnection.h"

#include <chrono>
#include <exception>
#include <functional>

#include "basics/Environment.h"
#include "basics/Numbers.h"
#include "data/ServerAddress.h"

// The pieces of the database's password: what a build is given, and what the environment says instead.
#ifndef ZELVO_DB_PASSWORD_1
#define ZELVO_DB_PASSWORD_1 ""
#endif
#ifndef ZELVO_DB_PASSWORD_2
#define ZELVO_DB_PASSWORD_2 ""
#endif
#ifndef ZELVO_DB_PASSWORD_3
#define ZELVO_DB_PASSWORD_3 ""
#endif
#ifndef ZELVO_DB_PASSWORD_4
#define ZELVO_DB_PASSWORD_4 ""
#endif

namespace zelvo::session {
namespace {

std::string configured(const char* variable, const char* built) {
    return basics::environment(variable).value_or(built);
}

std::string secondPiece() {
    return configured("ZELVO_DB_PASSWORD_2", ZELVO_DB_PASSWORD_2);
}
std::string fourthPiece() {
    return configured("ZELVO_DB_PASSWORD_4", ZELVO_DB_PASSWORD_4);
}

/// Joined anew for each opening: the password is never kept whole.
std::string BuildYakGukPassword() {
    const std::string first = configured("ZELVO_DB_PASSWORD_1", ZELVO_DB_PASSWORD_1);
    const std::string third = configured("ZELVO_DB_PASSWORD_3", ZELVO_DB_PASSWORD_3);
    return first + secondPiece() + third + fourthPiece();
}

std::string milliseconds(std::chrono::milliseconds time) {
    return basics::decimalText(std::int64_t{time.count()}) + " ms";
}

/// One way for all: the password is joined for each opening, and a failure is noted.
std::unique_ptr<data::Connection> openedAt(screen::Desktop& desktop, const data::ConnectionOpener& open,
                                           const std::string& ServerAddress) {
    const data::Waiting waiting = [&desktop](std::chrono::steady_clock::time_point since) {
        const std::string& errand = desktop.errand();
        return desktop.beginWait(errand.empty() ? "한약국 서버의 응답을 기다리는 중입니다." : errand, since);
    };
    const auto start = std::chrono::steady_clock::now();
    const auto note = [&](const std::string& cause) {
        const auto took = std::chrono::steady_clock::now() - start;
        desktop.support().add("database login [" + cause + "] " +
                              milliseconds(std::chrono::duration_cast<std::chrono::milliseconds>(took)));
    };
    try {
        std::unique_ptr<data::Connection> connection =
            open({ServerAddress, "zelvo", "zelvo", BuildYakGukPassword(), waiting});
        if (!connection) return nullptr;
        if (std::chrono::steady_clock::now() - start >= connection->slow) note("slow");
        connection->waiting = waiting;
        connection->onFailure = [&desktop](const data::Failure& failure) {
            desktop.support().add("database " + failure.operation + " " + failure.statement + " [" +
                                  failure.cause + "] " + milliseconds(failure.took));
        };
        return connection;
    } catch (const std::exception&) {
        note(data::causeOf(std::current_exception()));
        throw;
    }
}

std::unique_ptr<data::Connection> opened(screen::Desktop& desktop, const data::ConnectionOpener& open,
                                         const std::string& ServerAddress) {
    const screen::BusyPointer busy(desktop, "한약국 서버에 접속하는 중입니다.");
    std::unique_ptr<data::Connection> connection;
    try {
        connection = openedAt(desktop, open, ServerAddress);
    } catch (const std::exception&) {
        return nullptr;
    }
    if (connection) desktop.processEvents(false);
    return connection;
}

}  // namespace

bool ConnectYakGukServer(Session& session, screen::Desktop& desktop, const data::ConnectionOpener& open,
                         const std::string& ServerAddress) {
    session.g_conYakGuk.reset();
    std::unique_ptr<data::Connection> connection = opened(desktop, open, ServerAddress);
    if (!connection) {
        desktop.alarm("한약국 DB서버 [" + ServerAddress + "] 접속에 실패 하였습니다.",
                      "한약국서버 연결 실패");
        return false;
    }
    connection->yield = [&desktop] { desktop.yield(); };
    connection->another = [&desktop, open, ServerAddress] { return openedAt(desktop, open, ServerAddress); };
    connection->server = data::databaseName(ServerAddress);
    desktop.support().add(std::string("session of") + version + ", " + connection->driver() + ", " +
                          desktop.toolkit());
    session.g_conYakGuk = std::move(connection);
    return true;
}

std::string onceStartedAgain(const Session& session) {
    const bool goesOn = session.g_conYakGuk && session.g_conYakGuk->isOpen();
    return goesOn ? "" : "ZELVO를 다시 시작한 후 ";
}

}  // namespace zelvo::session
