#pragma once

#include <string>
#include <vector>

namespace zelvo::console {

/// The one line that a program is started with here, of its name and its arguments.
std::wstring commandLine(const std::vector<std::string>& arguments);

}  // namespace zelvo::console
