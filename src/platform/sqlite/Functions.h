#pragma once

struct sqlite3;

namespace zelvo::sqlite {

/// Gives a connection what the statements ask of SQL Server: getdate(), convert(varchar(n), date, 120),
/// left(text, n), and the server's collation. Throws Fault when SQLite refuses.
void registerServerFunctions(sqlite3* database);

}  // namespace zelvo::sqlite
