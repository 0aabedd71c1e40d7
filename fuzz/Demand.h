#pragma once

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace zelvo::fuzz {

/// Ends the program where something that must hold does not.
inline void demand(bool held, const char* what) {
    if (held) return;
    std::cerr << "broken: " << what << '\n';
    std::abort();
}

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace zelvo::fuzz
