#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "basics/Fault.h"
#include "platform/console/System.h"

namespace zelvo::console {

namespace {

constexpr int signalBase = 128;

int exitCodeOf(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) throw basics::Fault(std::string("the program got lost: ") + std::strerror(errno));
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : signalBase + WTERMSIG(status);
}

}  // namespace

bool prepareTerminal() {
    return isatty(STDIN_FILENO) == 1;
}

std::string besideThisProgram(const std::string& name) {
    std::error_code failed;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", failed);
    if (failed) throw basics::Fault("this program's own folder is not known: " + failed.message());
    return (self.parent_path() / name).string();
}

int runProgram(std::vector<std::string> arguments) {
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    pid_t child = 0;
    const int failed = posix_spawn(&child, pointers[0], nullptr, nullptr, pointers.data(), environ);
    if (failed != 0) throw basics::Fault(arguments[0] + " can't be run: " + std::strerror(failed));
    return exitCodeOf(child);
}

void endProgram(int code) {
    std::_Exit(code);
}

}  // namespace zelvo::console
