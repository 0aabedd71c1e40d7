#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace zelvo::data {

/// How long a text each column of the server takes. What is not known takes any.
class TextLengths {
public:
    /// A column's length as the server's catalogue tells it: in bytes of that character set, or in units of
    /// UTF-16 for one of the national types. Of two tables of one name the longer counts.
    void add(std::string_view table, std::string_view column, std::string_view type, std::string_view charset,
             std::int32_t length);
    /// By how many characters the text is too long for its column, 0 when it fits. Blanks at the end don't
    /// count: the server drops them.
    std::size_t excess(std::string_view table, std::string_view column, std::string_view text) const;

private:
    /// What a character takes that is not ASCII.
    enum class Width { One, Two, Utf8, Utf16 };
    struct Limit {
        Width width = Width::One;
        std::size_t length = 0;
    };

    static std::size_t widthOf(char32_t character, Width width);

    std::map<std::string, Limit> limits_;
};

}  // namespace zelvo::data
