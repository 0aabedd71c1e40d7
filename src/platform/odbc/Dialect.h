#pragma once

#include <string>
#include <string_view>

namespace zelvo::odbc {

/// A statement as SQL Server reads it and means the same. A literal with a character beyond ASCII becomes
/// N'...', so that the server's code page turns nothing into "?". A backslash before a line end, which the
/// server would take out together with the line end, is parted from it: the literal becomes a sum of
/// literals.
std::string toSqlServer(std::string_view statement);

}  // namespace zelvo::odbc
