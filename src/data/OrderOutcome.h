#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "data/Connection.h"

namespace zelvo::data {

/// Whether the doctor's order of this key stands in the database; nothing when the database does not answer.
/// While the order's own transaction has not ended the server keeps the answer back.
std::optional<bool> orderStands(Connection& Conn, std::int32_t DTR_PK, std::int32_t CBJ_PK);
/// Whether the order stands and is cancelled; nothing when the database does not answer.
std::optional<bool> orderIsCanceled(Connection& Conn, std::int32_t CBJ_PK);
/// Whether the doctor's password is this one; nothing when the database does not answer.
std::optional<bool> passwordIs(Connection& Conn, std::int32_t DTR_PK, const std::string& DTR_PWD);

/// Asks a second connection, opened for this one question, when the line has broken and left an answer out;
/// nothing when the server can't be reached.
std::optional<bool> askAnother(const Connection& broken,
                               const std::function<std::optional<bool>(Connection& Conn)>& question);

}  // namespace zelvo::data
