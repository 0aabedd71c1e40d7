#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zelvo::basics {

/// The text with every byte sequence that is not UTF-8 replaced by U+FFFD and U+0000 dropped. The way in for
/// all texts from outside: the host, the database, the web.
std::string cleanUtf8(std::string_view text);
bool isUtf8(std::string_view text);

/// Length in characters (code points).
std::size_t characterCount(std::string_view text);
/// Byte offset of the character at `index` (from 0); the text's length when there are fewer.
std::size_t byteOffset(std::string_view text, std::size_t index);
/// The part from character `start` (from 0), at most `count` characters; what runs past the end is cut.
std::string part(std::string_view text, std::size_t start, std::size_t count = std::string_view::npos);

/// One character as UTF-8, and the character at a byte offset (U+FFFD when the bytes are no character).
std::string toUtf8(char32_t character);
char32_t characterAt(std::string_view text, std::size_t offset);

/// For comparisons as the pharmacy's server makes them: ASCII letters in lower case, the rest unchanged.
std::string foldCase(std::string_view text);

}  // namespace zelvo::basics
