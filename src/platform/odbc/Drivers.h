#pragma once

#include <string>
#include <vector>

namespace zelvo::odbc {

/// The names of the drivers that this machine has for whatever kind of database.
std::vector<std::string> installedDrivers();

/// The newest one for a SQL Server among them: the numbered ones first, then those that came with Windows and
/// with older servers. Throws data::SetupFault, which says what to install, where there is none.
std::string newestForServer(const std::vector<std::string>& drivers);

}  // namespace zelvo::odbc
