#include "platform/odbc/ConnectionString.h"

#include <algorithm>

#include "basics/Text.h"
#include "data/Failure.h"
#include "data/ServerAddress.h"
#include "platform/odbc/FreeTdsConfiguration.h"

namespace zelvo::odbc {
namespace {

using Fault = data::SetupFault;

bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view(".-_:/\\").find(c) != std::string_view::npos;
}

bool isPlainText(std::string_view value) {
    return !value.empty() && std::all_of(value.begin(), value.end(), isPlain);
}

/// A value stands in braces, where only } has to be doubled.
std::string microsoftValue(std::string_view value) {
    return isPlainText(value) ? std::string(value) : "{" + basics::replaceAll(value, "}", "}}") + "}";
}

/// To FreeTDS a doubled } is two, and }; ends a value in braces: one with a } stands bare, or can't be said.
std::string freeTdsValue(std::string_view value) {
    if (isPlainText(value)) return std::string(value);
    if (value.find('}') == std::string_view::npos) return "{" + std::string(value) + "}";
    const bool bare = value.find(';') == std::string_view::npos && !value.starts_with('{') &&
                      basics::trim(value).size() == value.size();
    if (!bare) throw Fault("FreeTDS can't be told a value with } and ; or { or blanks at its ends");
    return std::string(value);
}

class Attributes {
public:
    using Escape = std::string (*)(std::string_view value);
    /// Starts with the driver, whose name always stands in braces.
    Attributes(std::string_view driver, Escape escape) : escape_(escape) {
        if (driver.find('}') != std::string_view::npos) throw Fault("no such driver: " + std::string(driver));
        text_.append("Driver={").append(driver).append("};");
    }
    Attributes& add(std::string_view word, std::string_view value) {
        text_.append(word).append("=").append(escape_(value)).append(";");
        return *this;
    }
    std::string text() const { return text_; }

private:
    Escape escape_;
    std::string text_;
};

std::string freeTdsString(const data::ServerLogin& login, const Settings& settings) {
    // Its configuration file could cut a dosage sheet. The version and the character set are never left to be
    // found out; the encryption has a word of its own here, and "require" is the one that does not fall back.
    return Attributes(settings.driver, freeTdsValue)
        .add("Servername", FreeTdsConfiguration::server)
        .add("Database", login.database)
        .add("UID", login.user)
        .add("PWD", login.password)
        .add("TDS_Version", "7.4")
        .add("ClientCharset", "UTF-8")
        .add("TextSize", "2147483647")
        .add("Encryption", settings.encrypted ? "require" : "off")
        .add("Language", "us_english")
        .add("APP", "DoctorZELVO")
        .text();
}

std::string microsoftString(const data::ServerLogin& login, const Settings& settings) {
    const data::ServerPlace place = data::readPlace(login.address);
    std::string server = place.host;
    if (!place.instance.empty()) {
        server += "\\" + place.instance;
    } else {
        server = "tcp:" + server + "," + (place.port.empty() ? data::defaultPort : place.port);
    }
    // A driver that reconnects by itself would go on behind a transaction that is gone.
    Attributes attributes(settings.driver, microsoftValue);
    if (settings.checked && !settings.certificateFile.empty())
        attributes.add("ServerCertificate", settings.certificateFile);
    return attributes.add("Server", server)
        .add("Database", login.database)
        .add("UID", login.user)
        .add("PWD", login.password)
        .add("Encrypt", settings.encrypted ? "yes" : "no")
        .add("TrustServerCertificate", settings.checked ? "no" : "yes")
        .add("ConnectRetryCount", "0")
        .add("Language", "us_english")
        .add("APP", "DoctorZELVO")
        .text();
}

}  // namespace

std::string connectionString(const data::ServerLogin& login, const Settings& settings) {
    return settings.isFreeTds() ? freeTdsString(login, settings) : microsoftString(login, settings);
}

}  // namespace zelvo::odbc
