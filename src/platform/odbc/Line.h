#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/odbc/Handle.h"

namespace zelvo::odbc {

/// How long a driver may take: for the login, and for the answer to one statement.
struct Limits {
    int loginSeconds = 15;
    int querySeconds = 30;
};

/// The line to one server: shared by a connection and the row writers of its result sets. It is open from its
/// making until it is closed or breaks, and never again. Every call throws Fault, at once when it is not
/// open.
class Line {
public:
    /// Logs in. Throws ServerFault.
    Line(const std::string& connectionString, const Limits& limits);
    ~Line();
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    bool isOpen() const { return connection_.has_value(); }
    void close() noexcept;

    /// One round trip: sends the statement as it stands and drops what it returns. Gives the rows that it
    /// changed, -1 when the server does not say.
    SQLLEN run(const std::string& statement);
    /// Sends the statement; `read` gets its first result set.
    void query(const std::string& statement, const std::function<void(const StatementHandle&)>& read);

private:
    StatementHandle send(const std::string& statement) const;
    void onLine(const std::function<void()>& work);

    EnvironmentHandle environment_;
    std::optional<ConnectionHandle> connection_;
    bool loggedIn_ = false;
    SQLULEN querySeconds_;
};

}  // namespace zelvo::odbc
