#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/odbc/Settings.h"

namespace zelvo::odbc {

/// Where FreeTDS finds the server and what it checks its certificate by, as long as this lives: FreeTDS takes
/// that from a file alone, whose place the environment tells. What else the environment says to FreeTDS,
/// which could lead the login elsewhere or take its encryption away, is put aside for that time.
class FreeTdsConfiguration {
public:
    /// Throws Fault for an address that can't be read, and when the file can't be written.
    FreeTdsConfiguration(const std::string& address, const Settings& settings);
    ~FreeTdsConfiguration();
    FreeTdsConfiguration(const FreeTdsConfiguration&) = delete;
    FreeTdsConfiguration& operator=(const FreeTdsConfiguration&) = delete;

    /// The name under which the file has the server.
    static constexpr const char* server = "zelvo";

private:
    std::string path_;
    std::vector<std::pair<std::string, std::optional<std::string>>> before_;
};

}  // namespace zelvo::odbc
