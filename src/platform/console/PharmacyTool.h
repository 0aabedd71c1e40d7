#pragma once

#include <string>
#include <vector>

namespace zelvo::console {

/// Runs `zelvo-pharmacy`, which lies beside this program, with these words on the database of a session's
/// server address, or where that is no file on the one that ZELVO_DEMO_PHARMACY names, and gives its exit
/// code. Throws Fault when there is no such file or the program can't be run.
int runPharmacyTool(const std::string& serverAddress, const std::vector<std::string>& words);

}  // namespace zelvo::console
