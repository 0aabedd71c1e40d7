#include "platform/odbc/FreeTdsConfiguration.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "data/Failure.h"
#include "platform/odbc/ConnectionString.h"

namespace zelvo::odbc {
namespace {

/// A line of the file; what could be read as another line is refused.
std::string line(const char* word, const std::string& value) {
    if (std::any_of(value.begin(), value.end(), [](unsigned char c) { return c < 0x20; }))
        throw data::SetupFault(std::string("FreeTDS can't be told this ") + word);
    return "\t" + std::string(word) + " = " + value + "\n";
}

std::string fileText(const ServerPlace& place, const Settings& settings) {
    std::string text = "[" + std::string(FreeTdsConfiguration::server) + "]\n" + line("host", place.host);
    if (place.instance.empty()) {
        text += line("port", place.port.empty() ? defaultPort : place.port);
    } else {
        text += line("instance", place.instance);
    }
    text += line("tds version", "7.4") + line("client charset", "UTF-8");
    text += line("encryption", settings.encrypted ? "require" : "off");
    if (settings.checked) {
        text += line("ca file", settings.certificateFile.empty() ? "system" : settings.certificateFile);
        text += line("check certificate hostname", settings.anyName ? "no" : "yes");
    }
    return text;
}

void setVariable(const std::string& name, const std::optional<std::string>& value) {
    if (value) {
        ::setenv(name.c_str(), value->c_str(), 1);
    } else {
        ::unsetenv(name.c_str());
    }
}

}  // namespace

FreeTdsConfiguration::FreeTdsConfiguration(const std::string& address, const Settings& settings) {
    const std::string text = fileText(readPlace(address), settings);
    path_ = (std::filesystem::temp_directory_path() / "zelvo-freetds-XXXXXX").string();
    const int descriptor = ::mkstemp(path_.data());  // readable by this user alone
    const bool written =
        descriptor >= 0 && ::write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    if (descriptor >= 0) ::close(descriptor);
    if (!written) {
        if (descriptor >= 0) ::unlink(path_.c_str());
        throw data::SetupFault("FreeTDS's configuration can't be written");
    }
    for (const char* name :
         {"FREETDSCONF", "TDSVER", "TDSHOST", "TDSPORT", "TDSQUERY", "DSQUERY", "TDSDUMP", "TDSDUMPCONFIG"}) {
        const char* const value = std::getenv(name);
        before_.emplace_back(name, value ? std::optional<std::string>(value) : std::nullopt);
        if (value) ::unsetenv(name);
    }
    ::setenv("FREETDSCONF", path_.c_str(), 1);
}

FreeTdsConfiguration::~FreeTdsConfiguration() {
    for (const auto& [name, value] : before_) setVariable(name, value);
    ::unlink(path_.c_str());
}

}  // namespace zelvo::odbc
