#include <cstdlib>

#include "basics/Environment.h"

namespace zelvo::basics {

std::optional<std::string> environment(const std::string& name) {
    const char* const value = std::getenv(name.c_str());
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

}  // namespace zelvo::basics
