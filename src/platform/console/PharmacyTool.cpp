#include "platform/console/PharmacyTool.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "basics/Fault.h"
#include "basics/Text.h"

namespace zelvo::console {

namespace {

constexpr std::string_view embedded = "sqlite:";
constexpr int signalBase = 128;

std::string besideThisProgram(const char* name) {
    std::error_code failed;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", failed);
    if (failed) throw basics::Fault("this program's own folder is not known: " + failed.message());
    return (self.parent_path() / name).string();
}

int exitCodeOf(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            throw basics::Fault(std::string("the pharmacy's tool got lost: ") + std::strerror(errno));
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : signalBase + WTERMSIG(status);
}

/// The file that the pharmacy's people work on.
std::string pharmacyFile(const std::string& serverAddress) {
    const std::string address = basics::trim(serverAddress);
    if (address.starts_with(embedded)) return address.substr(embedded.size());
    const char* told = std::getenv("ZELVO_DEMO_PHARMACY");
    return told ? told : throw basics::Fault(address + " is no embedded database");
}

}  // namespace

int runPharmacyTool(const std::string& serverAddress, const std::vector<std::string>& words) {
    std::vector<std::string> arguments{besideThisProgram("zelvo-pharmacy"), "--db",
                                       pharmacyFile(serverAddress)};
    arguments.insert(arguments.end(), words.begin(), words.end());
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    pid_t child = 0;
    const int failed = posix_spawn(&child, pointers[0], nullptr, nullptr, pointers.data(), environ);
    if (failed != 0) throw basics::Fault(arguments[0] + " can't be run: " + std::strerror(failed));
    return exitCodeOf(child);
}

}  // namespace zelvo::console
