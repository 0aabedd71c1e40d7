#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zelvo::basics {

/// The path that a text in UTF-8 names, whatever letters the system's own names are made of.
inline std::filesystem::path pathOf(std::string_view text) {
    return std::u8string(text.begin(), text.end());
}
/// The same path as UTF-8.
inline std::string textOf(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

}  // namespace zelvo::basics
