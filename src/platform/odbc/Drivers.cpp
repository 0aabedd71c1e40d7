#include "platform/odbc/Drivers.h"

#include <algorithm>
#include <array>

#include "basics/Numbers.h"
#include "data/Failure.h"
#include "platform/odbc/Handle.h"

namespace zelvo::odbc {
namespace {

/// How new a driver for a SQL Server is by its name; 0 for one that is for something else.
double ageOf(const std::string& driver) {
    constexpr std::string_view numbered = "ODBC Driver ", ending = " for SQL Server",
                               client = "SQL Server Native Client ";
    if (driver.starts_with(numbered) && driver.ends_with(ending))
        return 1000 + basics::numberFromStart(driver.substr(numbered.size()));
    if (driver.starts_with(client)) return 100 + basics::numberFromStart(driver.substr(client.size()));
    return driver == "SQL Server" ? 1 : 0;
}

}  // namespace

std::vector<std::string> installedDrivers() {
    std::vector<std::string> drivers;
    const EnvironmentHandle environment(SQL_NULL_HANDLE);
    environment.require(SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION, attribute(SQL_OV_ODBC3), 0));
    std::array<SQLWCHAR, 512> name{}, rest{};
    SQLUSMALLINT which = SQL_FETCH_FIRST;
    SQLSMALLINT length = 0, restLength = 0;
    while (SQL_SUCCEEDED(SQLDriversW(environment.get(), which, name.data(),
                                     static_cast<SQLSMALLINT>(name.size()), &length, rest.data(),
                                     static_cast<SQLSMALLINT>(rest.size()), &restLength))) {
        std::string text;
        appendUtf8(text, name.data(), static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0)));
        drivers.push_back(text);
        which = SQL_FETCH_NEXT;
    }
    return drivers;
}

std::string newestForServer(const std::vector<std::string>& drivers) {
    const auto newest =
        std::max_element(drivers.begin(), drivers.end(),
                         [](const std::string& a, const std::string& b) { return ageOf(a) < ageOf(b); });
    if (newest == drivers.end() || ageOf(*newest) == 0) {
        throw data::SetupFault(
            "no driver for SQL Server is installed that a program of 64 bits can use: install \"ODBC Driver 18 for "
            "SQL Server\" for 64 bits, whatever the chart is");
    }
    return *newest;
}

}  // namespace zelvo::odbc
