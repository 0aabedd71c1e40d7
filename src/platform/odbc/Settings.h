#pragma once

#include <functional>
#include <optional>
#include <string>

namespace zelvo::odbc {

/// How the road to the server is built, where a machine wants it otherwise. docs/server.md tells the same to
/// who sets it up.
struct Settings {
    std::string driver = "FreeTDS";  ///< ZELVO_ODBC_DRIVER: the name of an installed driver, or its file
    bool encrypted = true;           ///< ZELVO_ODBC_ENCRYPT: "on" or "off"
    bool checked = true;             ///< ZELVO_ODBC_CERTIFICATE: "check" or "trust"
    std::string certificateFile;  ///< ZELVO_ODBC_CERTIFICATE_FILE: the pharmacy's; "" for the machine's own
    bool anyName = false;   ///< a certificate for another name will do; no setting, for asking what is wrong
    int loginSeconds = 15;  ///< ZELVO_ODBC_LOGIN_SECONDS, 1 to 3600
    int querySeconds = 30;  ///< ZELVO_ODBC_QUERY_SECONDS, 1 to 3600

    bool isFreeTds() const;
};

/// Gives a variable's value, nothing when it is not set.
using Environment = std::function<std::optional<std::string>(const char* name)>;

/// The settings that the environment asks for. Throws Fault for a value that it can't have, so that a
/// mistyped word never weakens the line.
Settings readSettings(const Environment& environment);

}  // namespace zelvo::odbc
