#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "data/Connection.h"
#include "data/Statement.h"

namespace zelvo::data {

/// What the units of work on a doctor's new orders, and on one order, take turns by.
std::string newOrdersTurn(std::int32_t DTR_PK);
std::string orderTurn(std::int32_t CBJ_PK);

/// Whether the doctor's order of this key and time stamp ("yyyy-mm-dd hh:mm:ss") stands in the database;
/// nothing when the database does not answer. A unit of work of that turn that has not ended is waited for.
std::optional<bool> orderStands(Connection& Conn, std::int32_t DTR_PK, std::int32_t CBJ_PK,
                                const std::string& CBJ_RegDate);
/// Whether the order stands and is cancelled; nothing when the database does not answer.
std::optional<bool> orderIsCanceled(Connection& Conn, std::int32_t CBJ_PK);
/// Whether such a row stands, asked behind the unit of work of that turn; nothing when the database does not
/// answer.
std::optional<bool> rowStands(Connection& Conn, const Statement& statement, std::string_view turn,
                              Connection::From from = Connection::From::current());

/// Asks a second connection, opened for this one question, when the line has broken and left an answer out;
/// nothing when the server can't be reached.
std::optional<bool> askAnother(const Connection& broken,
                               const std::function<std::optional<bool>(Connection& Conn)>& question);

/// What a change has come to whose rows stand, do not, or can't be asked for.
CommitOutcome outcomeOf(std::optional<bool> stands);

}  // namespace zelvo::data
