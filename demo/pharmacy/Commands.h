#pragma once

#include <string>
#include <vector>

namespace zelvo::pharmacy {

/// Runs the program's words (without its name): init, serve, orders, state, paid, deposit. Gives the exit
/// code: 0, 1 when it cannot be done, 2 for words that it does not know. Results go to standard output,
/// errors to standard error.
int runCommand(const std::vector<std::string>& words);

}  // namespace zelvo::pharmacy
