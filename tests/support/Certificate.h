#pragma once

#include <cstdlib>
#include <filesystem>

namespace zelvo::testing {

/// A certificate for "localhost" that signed itself and its key, as "cert" and "key" in a folder, by the
/// machine's openssl program. False without that.
inline bool makeCertificate(const std::filesystem::path& folder) {
    const std::string command =
        "cd '" + folder.string() +
        "' && openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -keyout key -out cert -days 2 "
        "-subj /CN=localhost -addext subjectAltName=DNS:localhost >log 2>&1";
    return std::system(command.c_str()) == 0;
}

}  // namespace zelvo::testing
