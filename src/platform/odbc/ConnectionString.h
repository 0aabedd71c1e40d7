#pragma once

#include <string>
#include <string_view>

#include "data/Connection.h"
#include "platform/odbc/Settings.h"

namespace zelvo::odbc {

/// Where a server listens: "host", "host:port" or "host,port", "host\instance", "tcp:" before it, an IPv6
/// address in brackets.
struct ServerPlace {
    std::string host;
    std::string port;      ///< empty where none is told
    std::string instance;  ///< empty where none is told
};

inline constexpr const char* defaultPort = "1433";

/// Reads a server address. Throws Fault for one without a host, with a port that is none, or with both a port
/// and an instance.
ServerPlace readPlace(std::string_view address);

/// The connection string of a login in the driver's own words: FreeTDS's, which finds the server by its
/// configuration, or else those of Microsoft's drivers. No value can add an attribute, whatever stands in it.
/// Throws Fault for an address that can't be read.
std::string connectionString(const data::ServerLogin& login, const Settings& settings);

}  // namespace zelvo::odbc
