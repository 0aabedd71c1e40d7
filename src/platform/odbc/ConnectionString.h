#pragma once

#include <string>

#include "data/Connection.h"
#include "platform/odbc/Settings.h"

namespace zelvo::odbc {

/// The connection string of a login in the driver's own words: FreeTDS's, which finds the server by its
/// configuration, or else those of Microsoft's drivers. No value can add an attribute, whatever stands in it.
/// Throws Fault for an address that can't be read.
std::string connectionString(const data::ServerLogin& login, const Settings& settings);

}  // namespace zelvo::odbc
