#include <cstdlib>

#include "basics/Environment.h"
#include "basics/Paths.h"

namespace zelvo::basics {

// The narrow values are in the machine's code page, not in UTF-8.
std::optional<std::string> environment(const std::string& name) {
    const wchar_t* const value = ::_wgetenv(pathOf(name).c_str());
    return value == nullptr ? std::nullopt : std::optional(textOf(value));
}

}  // namespace zelvo::basics
