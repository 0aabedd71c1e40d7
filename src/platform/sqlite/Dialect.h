#pragma once

#include <string>
#include <string_view>

namespace zelvo::sqlite {

/// Name of the collation that compares texts as the pharmacy's server does by default: letters of either case
/// are equal, blanks at the end don't count.
inline constexpr const char* serverCollation = "SERVER";

/// A statement written for SQL Server as SQLite reads it. Outside of literals, LEFT( becomes a function's
/// quoted name; in conditions a comparison "= 'text'" gets the server's collation, and "= '1'" also finds the
/// number 1 in a column that was declared without a type; the lock hint goes. Where such columns hold texts
/// (`looseColumns`), numbers and keys find those as well.
std::string toSqlite(std::string_view statement, bool looseColumns = false);

}  // namespace zelvo::sqlite
