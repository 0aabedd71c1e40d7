#include "platform/odbc/Wide.h"

#include "basics/Utf8.h"

namespace zelvo::odbc {
namespace {

constexpr char32_t highHalf = 0xD800, lowHalf = 0xDC00, behindHalves = 0xE000, replacement = 0xFFFD;

bool isHigh(char32_t unit) {
    return unit >= highHalf && unit < lowHalf;
}
bool isLow(char32_t unit) {
    return unit >= lowHalf && unit < behindHalves;
}

}  // namespace

std::vector<SQLWCHAR> toWide(std::string_view text) {
    std::vector<SQLWCHAR> wide;
    wide.reserve(text.size() + 1);
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = basics::characterAt(text, at);
        at += character < 0x80 ? 1 : basics::byteOffset(text.substr(at), 1);
        if (character < 0x10000) {
            wide.push_back(static_cast<SQLWCHAR>(character));
        } else {
            wide.push_back(static_cast<SQLWCHAR>(highHalf + ((character - 0x10000) >> 10)));
            wide.push_back(static_cast<SQLWCHAR>(lowHalf + ((character - 0x10000) & 0x3FF)));
        }
    }
    wide.push_back(0);
    return wide;
}

void appendUtf8(std::string& text, const SQLWCHAR* wide, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const char32_t unit = wide[i];
        if (unit < 0x80) {
            text += static_cast<char>(unit);
        } else if (isHigh(unit) && i + 1 < count && isLow(wide[i + 1])) {
            text += basics::toUtf8(0x10000 + ((unit - highHalf) << 10) + (wide[++i] - lowHalf));
        } else {
            text += basics::toUtf8(isHigh(unit) || isLow(unit) ? replacement : unit);
        }
    }
}

}  // namespace zelvo::odbc
