#pragma once

#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "platform/console/ConsoleDesktop.h"

namespace zelvo::console {

struct ConsoleOptions {
    /// Path of the script; "" for the standard input, with a prompt when a person sits there.
    std::string script;
    screen::SettingsStore& settings;
    std::function<int(const std::vector<std::string>&)> pharmacy;
    std::istream& in = std::cin;
    std::ostream& out = std::cout;
    std::ostream& errors = std::cerr;
};

/// One console run: `session` opens its windows on the desktop, the script works them, and what is left of it
/// is read when they have closed. Gives the exit code; a command that fails before ends the program with its
/// own.
int runConsole(const ConsoleOptions& options, const std::function<void(ConsoleDesktop&)>& session);

}  // namespace zelvo::console
