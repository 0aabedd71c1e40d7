#pragma once

#include <string>
#include <string_view>

namespace zelvo::data {

/// What a server address begins with that means a file of this machine; its path stands behind it.
inline constexpr std::string_view fileAddress = "sqlite:";

/// Where a server listens: "host", "host:port" or "host,port", "host\instance", "tcp:" before it, an IPv6
/// address in brackets.
struct ServerPlace {
    std::string host;
    std::string port;      ///< empty where none is told
    std::string instance;  ///< empty where none is told
};

inline constexpr const char* defaultPort = "1433";

/// Reads a server address. Throws SetupFault for one without a host, with a port that is none, or with both a
/// port and an instance.
ServerPlace readPlace(std::string_view address);

/// The one name of a pharmacy's database, however its address is spelled: a file's real path, a server's host
/// and its port or instance. A name is its own name; an address that can't be read is taken as it stands.
std::string databaseName(std::string_view address);

}  // namespace zelvo::data
