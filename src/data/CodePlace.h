#pragma once

#include <source_location>

namespace zelvo::data {

#ifdef __cpp_lib_source_location
/// Where in the code something was asked; a default argument of its own kind tells the caller's place.
using CodePlace = std::source_location;
#else
/// The same where the compiler does not tell it: without a name.
class CodePlace {
public:
    static constexpr CodePlace current() noexcept { return {}; }
    constexpr const char* function_name() const noexcept { return ""; }
};
#endif

}  // namespace zelvo::data
