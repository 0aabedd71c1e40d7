#pragma once

#include <optional>
#include <string>

namespace zelvo::basics {

/// A variable of the environment as UTF-8, whatever letters the system keeps it in; nothing where it is not
/// set.
std::optional<std::string> environment(const std::string& name);

}  // namespace zelvo::basics
