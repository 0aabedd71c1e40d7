#include "platform/console/PharmacyTool.h"

#include "basics/Environment.h"
#include "basics/Fault.h"
#include "basics/Text.h"
#include "platform/console/System.h"

namespace zelvo::console {

namespace {

constexpr std::string_view embedded = "sqlite:";

/// The file that the pharmacy's people work on.
std::string pharmacyFile(const std::string& serverAddress) {
    const std::string address = basics::trim(serverAddress);
    if (address.starts_with(embedded)) return address.substr(embedded.size());
    const auto told = basics::environment("ZELVO_DEMO_PHARMACY");
    return told ? *told : throw basics::Fault(address + " is no embedded database");
}

}  // namespace

int runPharmacyTool(const std::string& serverAddress, const std::vector<std::string>& words) {
    std::vector<std::string> arguments{besideThisProgram("zelvo-pharmacy"), "--db",
                                       pharmacyFile(serverAddress)};
    arguments.insert(arguments.end(), words.begin(), words.end());
    return runProgram(std::move(arguments));
}

}  // namespace zelvo::console
