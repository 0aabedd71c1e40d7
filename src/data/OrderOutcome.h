#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "data/Connection.h"

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
/// Whether the doctor's password is this one; nothing when the database does not answer.
std::optional<bool> passwordIs(Connection& Conn, std::int32_t DTR_PK, const std::string& DTR_PWD);

/// Asks a second connection, opened for this one question, when the line has broken and left an answer out;
/// nothing when the server can't be reached.
std::optional<bool> askAnother(const Connection& broken,
                               const std::function<std::optional<bool>(Connection& Conn)>& question);

}  // namespace zelvo::data
