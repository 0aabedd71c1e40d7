#include "platform/odbc/Line.h"

#include <algorithm>

namespace zelvo::odbc {
namespace {

EnvironmentHandle environment() {
    EnvironmentHandle made(SQL_NULL_HANDLE);
    made.require(SQLSetEnvAttr(made.get(), SQL_ATTR_ODBC_VERSION, attribute(SQL_OV_ODBC3), 0));
    return made;
}

/// The columns of the result that the handle stands on; 0 for a count of rows.
SQLSMALLINT columnCount(const StatementHandle& statement) {
    SQLSMALLINT columns = 0;
    statement.require(SQLNumResultCols(statement.get(), &columns));
    return columns;
}

/// True when another result came. What went wrong behind the first result shows here.
bool nextResult(const StatementHandle& statement) {
    const SQLRETURN result = SQLMoreResults(statement.get());
    if (result == SQL_NO_DATA) return false;
    statement.require(result);
    return true;
}

}  // namespace

Line::Line(const std::string& connectionString, const Limits& limits)
    : environment_(environment()), querySeconds_(static_cast<SQLULEN>(limits.querySeconds)) {
    connection_.emplace(environment_.get());
    const auto login = static_cast<SQLULEN>(limits.loginSeconds);
    connection_->require(
        SQLSetConnectAttrW(connection_->get(), SQL_ATTR_LOGIN_TIMEOUT, attribute(login), SQL_IS_UINTEGER));
    std::vector<SQLWCHAR> wide = toWide(connectionString);
    const SQLRETURN result =
        SQLDriverConnectW(connection_->get(), nullptr, wide.data(), static_cast<SQLSMALLINT>(wide.size() - 1),
                          nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    std::fill(wide.begin(), wide.end(), SQLWCHAR{0});  // the password stood in it
    connection_->require(result);
    loggedIn_ = true;
}

Line::~Line() {
    close();
}

void Line::close() noexcept {
    if (connection_ && loggedIn_) SQLDisconnect(connection_->get());
    connection_.reset();
}

/// A line that turns out to be broken is closed: whatever comes then fails at once.
void Line::onLine(const std::function<void()>& work) {
    if (!isOpen()) throw basics::Fault("the connection is closed");
    try {
        return work();
    } catch (const ServerFault& fault) {
        SQLUINTEGER dead = SQL_CD_FALSE;
        SQLGetConnectAttrW(connection_->get(), SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
        if (fault.kind() != ServerFault::Kind::Broken && dead != SQL_CD_TRUE) throw;
        const ServerFault told(fault.what(), ServerFault::Kind::Broken);
        close();
        throw told;
    }
}

StatementHandle Line::send(const std::string& statement) const {
    StatementHandle handle(connection_->get());
    handle.require(SQLSetStmtAttrW(handle.get(), SQL_ATTR_QUERY_TIMEOUT, attribute(querySeconds_), 0));
    // What stands between braces in a text is the doctor's, no escape of the driver's. Not every driver
    // scans.
    SQLSetStmtAttrW(handle.get(), SQL_ATTR_NOSCAN, attribute(SQL_NOSCAN_ON), 0);
    std::vector<SQLWCHAR> wide = toWide(statement);
    const SQLRETURN result =
        SQLExecDirectW(handle.get(), wide.data(), static_cast<SQLINTEGER>(wide.size() - 1));
    if (result != SQL_NO_DATA) handle.require(result);
    return handle;
}

SQLLEN Line::run(const std::string& statement) {
    SQLLEN changed = -1;
    onLine([&] {
        const StatementHandle handle = send(statement);
        // The counts of a trigger's statements stand before the statement's own.
        do {
            SQLLEN count = -1;
            if (SQL_SUCCEEDED(SQLRowCount(handle.get(), &count)) && count >= 0) changed = count;
        } while (nextResult(handle));
    });
    return changed;
}

void Line::query(const std::string& statement, const std::function<void(const StatementHandle&)>& read) {
    onLine([&] {
        const StatementHandle handle = send(statement);
        // A trigger's count of rows may stand before the rows that were asked for.
        while (columnCount(handle) == 0) {
            if (!nextResult(handle)) throw basics::Fault("the statement returns no rows: " + statement);
        }
        read(handle);
        while (nextResult(handle)) {
        }
    });
}

}  // namespace zelvo::odbc
