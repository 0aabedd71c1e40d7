#pragma once

#include <optional>
#include <string_view>

namespace zelvo::screen {

/// Codes of the keys that the logic asks for, as onKeyDown brings them. A listener swallows a key by setting
/// it to 0.
namespace keys {
inline constexpr int none = 0, backspace = 8, tab = 9, enter = 13, escape = 27, end = 35, home = 36,
                     left = 37, up = 38, right = 39, down = 40, remove = 46;
}

/// A key that goes down, and the character that it types (0 where it types none).
struct Key {
    int code = keys::none;
    char32_t character = 0;

    /// A character typed; its code is that of the key where it is one of the above, else its upper-case
    /// letter.
    static Key typed(char32_t character);
    /// Enter Esc Tab Backspace Delete Up Down Left Right Home End, or one character; nothing for any other
    /// name.
    static std::optional<Key> named(std::string_view name);
};

}  // namespace zelvo::screen
