#pragma once

#include <string>
#include <vector>

namespace zelvo::console {

/// Runs `zelvo-pharmacy`, which lies beside this program, with these words on the database of a session's
/// server address, and gives its exit code. Throws Fault when the address names no embedded database or the
/// program can't be run.
int runPharmacyTool(const std::string& serverAddress, const std::vector<std::string>& words);

}  // namespace zelvo::console
