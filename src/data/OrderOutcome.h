#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/Connection.h"

namespace zelvo::data {

/// Whether an order of the doctor with this server time ("yyyy-mm-dd hh:mm:ss") stands in the database;
/// nothing when the database does not answer.
std::optional<bool> orderStands(Connection& Conn, std::int32_t DTR_PK, const std::string& CBJ_RegDate);

}  // namespace zelvo::data
