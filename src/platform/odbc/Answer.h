#pragma once

#include <atomic>
#include <functional>
#include <utility>

#include "platform/odbc/Handle.h"

namespace zelvo::odbc {

/// What a server says to one text: its results, one after the other, the first of which the object stands on.
class Answer {
public:
    /// `sign` is called before and after each wait for the server: the driver is alive. Once `givenUp` is
    /// true nobody wants the rows that are left.
    Answer(const StatementHandle& statement, std::function<void()> sign, const std::atomic<bool>& givenUp)
        : statement_(statement), sign_(std::move(sign)), givenUp_(givenUp) {}

    const StatementHandle& statement() const { return statement_; }
    /// Before each fetch of rows. Throws a late ServerFault when they have been given up.
    void sign() const;
    /// After each, before anybody asks what came of it.
    void came() const { sign_(); }
    /// The columns of the result, 0 for a count of rows.
    SQLSMALLINT columnCount() const;
    /// The count of rows, -1 when there is none.
    SQLLEN rowCount() const;
    /// False behind the last result. What went wrong behind the first shows here, as a ServerFault.
    bool next() const;

private:
    const StatementHandle& statement_;
    std::function<void()> sign_;
    const std::atomic<bool>& givenUp_;
};

}  // namespace zelvo::odbc
