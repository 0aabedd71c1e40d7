#pragma once

#include <string>
#include <vector>

namespace zelvo::console {

/// Has the terminal take and show UTF-8 while the program runs; true when a person sits at the standard
/// input.
bool prepareTerminal();

/// The file of a program that lies beside this one. Throws Fault where this one's own folder is not known.
std::string besideThisProgram(const std::string& name);

/// Runs a program with its arguments, its own name first, and gives its exit code once it has ended. Throws
/// Fault when it can't be run.
int runProgram(std::vector<std::string> arguments);

/// Ends this program as it stands: nothing is undone, and no thread is waited for.
[[noreturn]] void endProgram(int code);

}  // namespace zelvo::console
