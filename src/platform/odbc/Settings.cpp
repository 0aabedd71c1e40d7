#include "platform/odbc/Settings.h"

#include <fstream>

#include "basics/Numbers.h"
#include "basics/Paths.h"
#include "basics/Utf8.h"
#include "data/Failure.h"
#include "platform/odbc/DriverSurroundings.h"

namespace zelvo::odbc {
namespace {

using Fault = data::SetupFault;

std::string textOf(const Environment& environment, const char* name, const std::string& otherwise) {
    const std::string set = environment(name).value_or("");
    return set.empty() ? otherwise : set;
}

bool choiceOf(const Environment& environment, const char* name, const char* yes, const char* no,
              bool otherwise) {
    const std::string set = textOf(environment, name, otherwise ? yes : no);
    if (set != yes && set != no) {
        throw Fault(std::string(name) + " is " + yes + " or " + no + ", not " + set);
    }
    return set == yes;
}

int secondsOf(const Environment& environment, const char* name, int otherwise) {
    constexpr int most = 3600;
    const std::string set = textOf(environment, name, basics::decimalText(std::int64_t{otherwise}));
    const bool digits = set.find_first_not_of("0123456789") == std::string::npos && set.size() <= 4;
    const int seconds = digits ? basics::toInt32(set) : 0;
    if (seconds < 1 || seconds > most) throw Fault(std::string(name) + " is 1 to 3600 seconds, not " + set);
    return seconds;
}

}  // namespace

bool Settings::isFreeTds() const {
    return basics::foldCase(driver).find("tds") != std::string::npos;
}

Settings readSettings(const Environment& environment) {
    Settings settings;
    settings.driver = textOf(environment, "ZELVO_ODBC_DRIVER", "");
    if (settings.driver.empty()) settings.driver = usualDriver();
    settings.encrypted = choiceOf(environment, "ZELVO_ODBC_ENCRYPT", "on", "off", true);
    settings.checked = choiceOf(environment, "ZELVO_ODBC_CERTIFICATE", "check", "trust", settings.encrypted);
    settings.certificateFile = textOf(environment, "ZELVO_ODBC_CERTIFICATE_FILE", "");
    settings.loginSeconds = secondsOf(environment, "ZELVO_ODBC_LOGIN_SECONDS", settings.loginSeconds);
    settings.querySeconds = secondsOf(environment, "ZELVO_ODBC_QUERY_SECONDS", settings.querySeconds);
    if (settings.checked && !settings.encrypted) {
        throw Fault("ZELVO_ODBC_CERTIFICATE=check needs ZELVO_ODBC_ENCRYPT=on");
    }
    if (!settings.certificateFile.empty() && !std::ifstream(basics::pathOf(settings.certificateFile)))
        throw Fault("ZELVO_ODBC_CERTIFICATE_FILE can't be read");
    return settings;
}

}  // namespace zelvo::odbc
