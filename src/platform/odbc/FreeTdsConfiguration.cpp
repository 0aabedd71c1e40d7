#include "platform/odbc/FreeTdsConfiguration.h"

#include <algorithm>
#include <filesystem>

#include "basics/Environment.h"
#include "basics/Paths.h"
#include "data/Failure.h"
#include "data/ServerAddress.h"
#include "platform/odbc/DriverSurroundings.h"

namespace zelvo::odbc {
namespace {

/// A line of the file; what could be read as another line is refused.
std::string line(const char* word, const std::string& value) {
    if (std::any_of(value.begin(), value.end(), [](unsigned char c) { return c < 0x20; }))
        throw data::SetupFault(std::string("FreeTDS can't be told this ") + word);
    return "\t" + std::string(word) + " = " + value + "\n";
}

std::string fileText(const data::ServerPlace& place, const Settings& settings) {
    std::string text = "[" + std::string(FreeTdsConfiguration::server) + "]\n" + line("host", place.host);
    if (place.instance.empty()) {
        text += line("port", place.port.empty() ? data::defaultPort : place.port);
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

}  // namespace

FreeTdsConfiguration::FreeTdsConfiguration(const std::string& address, const Settings& settings) {
    const std::string text = fileText(data::readPlace(address), settings);
    path_ = makeTemporaryFile(text);
    if (path_.empty()) throw data::SetupFault("FreeTDS's configuration can't be written");
    for (const char* name :
         {"FREETDSCONF", "TDSVER", "TDSHOST", "TDSPORT", "TDSQUERY", "DSQUERY", "TDSDUMP", "TDSDUMPCONFIG"}) {
        before_.emplace_back(name, basics::environment(name));
        setVariable(name, std::nullopt);
    }
    setVariable("FREETDSCONF", path_);
}

FreeTdsConfiguration::~FreeTdsConfiguration() {
    for (const auto& [name, value] : before_) setVariable(name, value);
    std::error_code held;
    std::filesystem::remove(basics::pathOf(path_), held);
}

}  // namespace zelvo::odbc
