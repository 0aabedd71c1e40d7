#include "platform/odbc/ConnectionString.h"

#include <algorithm>

#include "basics/Numbers.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "data/Failure.h"
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

std::string checkedPort(std::string_view port, std::string_view address) {
    const bool digits =
        !port.empty() && port.size() <= 5 && port.find_first_not_of("0123456789") == std::string_view::npos;
    const std::int32_t number = digits ? basics::toInt32(port) : 0;
    if (number < 1 || number > 65535) throw Fault("no port in the server address " + std::string(address));
    return basics::decimalText(std::int64_t{number});
}

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
    const ServerPlace place = readPlace(login.address);
    std::string server = place.host;
    if (!place.instance.empty()) {
        server += "\\" + place.instance;
    } else {
        server = "tcp:" + server + "," + (place.port.empty() ? defaultPort : place.port);
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

ServerPlace readPlace(std::string_view address) {
    std::string_view rest = address;
    if (basics::foldCase(rest.substr(0, 4)) == "tcp:") rest.remove_prefix(4);
    ServerPlace place;
    if (rest.starts_with('[')) {
        const std::size_t end = rest.find(']');
        if (end == std::string_view::npos)
            throw Fault("no host in the server address " + std::string(address));
        place.host = rest.substr(1, end - 1);
        rest.remove_prefix(end + 1);
    } else {
        // More than one colon and no bracket: the whole is an IPv6 address.
        const bool bareIpv6 = std::count(rest.begin(), rest.end(), ':') > 1;
        const std::size_t end = std::min(rest.find_first_of(bareIpv6 ? ",\\" : ":,\\"), rest.size());
        place.host = rest.substr(0, end);
        rest.remove_prefix(end);
    }
    if (rest.starts_with('\\')) {
        place.instance = rest.substr(1);
        if (place.instance.empty() || place.instance.find_first_of(",:") != std::string::npos) {
            throw Fault("no instance in the server address " + std::string(address));
        }
    } else if (!rest.empty()) {
        if (rest.front() != ':' && rest.front() != ',') {
            throw Fault("can't read the server address " + std::string(address));
        }
        place.port = checkedPort(rest.substr(1), address);
    }
    if (place.host.empty()) throw Fault("no host in the server address " + std::string(address));
    return place;
}

std::string connectionString(const data::ServerLogin& login, const Settings& settings) {
    return settings.isFreeTds() ? freeTdsString(login, settings) : microsoftString(login, settings);
}

}  // namespace zelvo::odbc
