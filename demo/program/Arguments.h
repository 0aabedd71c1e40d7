#pragma once

#include <string>
#include <vector>

namespace program {

/// The words behind a program's name, in UTF-8.
std::vector<std::string> wordsOf(int argc, char** argv);

}  // namespace program
