#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace zelvo::screen {

/// Reads bytes of a Windows code page (949 is the Korean one) as UTF-8, U+FFFD for what is no character
/// there. The platform brings it: the tables are the machine's.
using CodePages = std::function<std::string(std::string_view bytes, int page)>;

}  // namespace zelvo::screen
