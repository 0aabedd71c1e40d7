#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zelvo::odbc {

/// The driver for a SQL Server that is used where nobody names one. Throws data::SetupFault where none is
/// installed.
std::string usualDriver();

/// Writes a file that this user alone can read into the folder for temporary ones and gives its path, "" when
/// it can't be written.
std::string makeTemporaryFile(std::string_view text);

/// Sets a variable of the environment as drivers read it, or takes it away.
void setVariable(const std::string& name, const std::optional<std::string>& value);

}  // namespace zelvo::odbc
