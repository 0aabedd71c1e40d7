#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>

/// The bytes of TDS 7.4, as far as TdsServer speaks it.
namespace zelvo::testing::tds {

std::string toUtf16(std::string_view text);
std::string fromUtf16(std::string_view bytes);

/// What goes out, number by number, the small end first.
class Bytes {
public:
    Bytes& number(std::uint64_t value, int size) {
        for (int i = 0; i < size; ++i) text_ += static_cast<char>(value >> (8 * i) & 0xFF);
        return *this;
    }
    Bytes& raw(std::string_view bytes) {
        text_ += bytes;
        return *this;
    }
    /// A count of characters in `size` bytes, then the text in UTF-16.
    Bytes& text(std::string_view text, int size) {
        const std::string wide = toUtf16(text);
        return number(wide.size() / 2, size).raw(wide);
    }
    const std::string& get() const { return text_; }

private:
    std::string text_;
};

/// How a column of SQLite's goes over the line.
struct Column {
    std::string name;
    std::uint8_t type = 0;  ///< TDS's number of the type
    std::uint32_t size = 0;
    std::uint8_t precision = 18, scale = 0;

    Column(sqlite3_stmt* statement, int index);
    void describe(Bytes& out) const;
    void value(Bytes& out, sqlite3_stmt* statement, int index) const;
};

std::string loginAnswer(const std::string& database);
std::string errorAnswer(std::uint32_t number, const std::string& message);
std::string done(std::uint16_t status, std::uint64_t rows);

}  // namespace zelvo::testing::tds
