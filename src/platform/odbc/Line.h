#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "data/Connection.h"
#include "platform/odbc/Answer.h"
#include "platform/odbc/Caller.h"
#include "platform/odbc/Handle.h"

namespace zelvo::odbc {

/// How long a driver may take: for the login, and for the answer to one statement.
struct Limits {
    int loginSeconds = 15;
    int querySeconds = 30;
    std::uint16_t port = 0;  ///< of the server, 0 where nobody knows it
    data::Waiting waiting = {};
};

/// The line to one server: shared by a connection and the row writers of its result sets. It is open from its
/// making until it is closed or breaks, and never again. Every call throws Fault, at once when it is not
/// open. A driver that outlives its time by a second is cut off, whatever it waits for, and the line is
/// broken.
class Line {
public:
    /// Logs in. Throws ServerFault.
    Line(const std::string& connectionString, Limits limits);
    ~Line();
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    bool isOpen() const { return ends_ != nullptr; }
    void close() noexcept;
    /// From here on this begins the wait of a trip that lasts.
    void setWaiting(data::Waiting waiting) { limits_.waiting = std::move(waiting); }
    /// The driver's name and version, as it says them.
    std::string driver() const { return driver_; }
    /// The version of the protocol as FreeTDS numbers it: 0x70004 for 7.4; 0 for a driver that does not tell.
    SQLUINTEGER protocol() const { return protocol_; }

    /// One round trip: sends the text as it stands. `read` gets what comes back, on a thread of the line's:
    /// it owns what it touches, for a driver that hangs may still be reading when this has thrown.
    void talk(const std::string& text, std::function<void(Answer& answer)> read);
    /// The same for a statement whose result nobody wants. Gives the rows that it changed, -1 when the server
    /// does not say.
    SQLLEN run(const std::string& statement);
    /// The same for a statement with rows; `read` gets its first result set.
    void query(const std::string& statement, std::function<void(Answer& answer)> read);

private:
    struct Ends;
    class Watchdog;

    void call(int seconds, std::function<void()> work);
    void leave() noexcept;

    Limits limits_;
    Caller caller_;
    std::shared_ptr<Ends> ends_;
    std::string driver_;
    SQLUINTEGER protocol_ = 0;
};

}  // namespace zelvo::odbc
