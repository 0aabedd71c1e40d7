#include "input/modTelNumFormat.h"

#include <algorithm>
#include <initializer_list>

#include "basics/Text.h"
#include "basics/Utf8.h"
#include "screen/Window.h"

namespace zelvo::input::modTelNumFormat {

namespace {

constexpr const char* skip = "skip";
/// Digits of the shortest whole number, 123-4567.
constexpr std::size_t wholeNumber = 7;

// All texts here are ASCII: digits, hyphens and dots.

/// The digits in groups of the given lengths, parted by hyphens; `open` ends them with one more. What runs
/// past the end is cut.
std::string grouped(std::string_view digits, std::initializer_list<std::size_t> lengths, bool open = false) {
    std::string result;
    std::size_t at = 0;
    for (const std::size_t length : lengths) {
        if (at > 0) result += '-';
        result += digits.substr(std::min(at, digits.size()), length);
        at += length;
    }
    if (open) result += '-';
    return result;
}

/// A number that is full goes on behind a "~".
std::string cutAfter(std::string_view text, std::size_t count) {
    const std::string whole = basics::trim(basics::removeAll(text, "~"));
    return whole.substr(0, count) + "~" + (whole.size() > count ? whole.substr(count) : "");
}

std::string seoulNumber(std::string_view text, std::string_view digits) {
    switch (text.size()) {
        case 2:
            return grouped(digits, {2}, true);
        case 6:
            return grouped(digits, {2, 3}, true);
        case 7:
            return grouped(digits, {2, 4}, true);
        case 10:
        case 11:
            return grouped(digits, {2, 3, 4});
        case 12:
            return grouped(digits, {2, 4, 4});
        default:
            return text.size() > 12 ? cutAfter(text, 12) : std::string(text);
    }
}

std::string areaNumber(std::string_view text, std::string_view digits) {
    switch (text.size()) {
        case 2:
            return grouped(digits, {2}, true);
        case 7:
            return grouped(digits, {3, 3}, true);
        case 11:
        case 12:
            return grouped(digits, {3, 3, 4});
        case 13:
            return grouped(digits, {3, 4, 4});
        default:
            return text.size() > 13 ? cutAfter(text, 13) : std::string(text);
    }
}

std::string localNumber(std::string_view text, std::string_view digits) {
    switch (text.size()) {
        case 3:
            return grouped(digits, {3}, true);
        case 8:
            return grouped(digits, {3, 4});
        case 9:
            return grouped(digits, {4, 4});
        default:
            return text.size() > 9 ? cutAfter(text, 9) : std::string(text);
    }
}

/// The hyphens that a number of this length has, as it grows digit by digit.
std::string byLength(std::string_view text) {
    const std::string digits = basics::trim(basics::removeAll(text, "-"));
    if (digits.starts_with("02")) return seoulNumber(text, digits);
    if (digits.starts_with("0")) return areaNumber(text, digits);
    return localNumber(text, digits);
}

/// The digits as they would stand after typing them one by one.
std::string asTyped(std::string_view digits) {
    std::string text;
    std::size_t at = 0;
    // Once the number is full the rest follows as it comes, however long it is.
    for (; at < digits.size() && text.find('~') == std::string::npos; ++at) {
        text += digits[at];
        text = byLength(text);
    }
    return text.append(digits.substr(at));
}

bool holdsOnly(std::string_view text, std::string_view characters) {
    return text.find_first_not_of(characters) == std::string_view::npos;
}

bool isDigit(char32_t key) {
    return key >= U'0' && key <= U'9';
}

bool holdsTilde(const std::string& text) {
    return text.find('~') != std::string::npos;
}

/// Whether the number is full, so that a "~" may follow. The field may hold any text.
bool takesTilde(const std::string& text) {
    return basics::characterCount(text) > (text.starts_with('0') ? 10U : 7U);
}

}  // namespace

void TelNum_KeyPress(screen::TextField& field, char32_t& key) {
    const bool tilde = holdsTilde(field.text());
    if (isDigit(key)) {
        field.setTag(tilde ? skip : "");
    } else if (key == U'\b' || key == U'.' || (key == U'~' && !tilde && takesTilde(field.text()))) {
        field.setTag(skip);
    } else if (key == U'\r') {
        key = 0;
        field.window().desktop().sendKeys("{TAB}");
    } else {
        key = 0;
        field.setTag("");
    }
}

void TelNum_Change(screen::TextField& field) {
    if (field.tag() == skip) return;
    TelNum_Format(field);
    // A key would reach whatever has the focus, and move the cursor there.
    if (field.hasFocus()) {
        field.window().desktop().sendKeys("{END}");
    } else {
        field.caretToEnd();
    }
}

void TelNum_Format(screen::TextField& field) {
    field.setText(formatted(field.text()));
}

std::string formatted(std::string_view text) {
    const std::string number = basics::trim(text);
    if (!holdsOnly(number, "0123456789-.")) return std::string(text);
    const std::string digits = basics::removeAll(number, "-");
    if (digits.size() == number.size() && digits.size() >= wholeNumber && holdsOnly(digits, "0123456789")) {
        return asTyped(digits);
    }
    std::string result = byLength(number);
    if (basics::removeAll(basics::removeAll(result, "-"), "~") == digits) return result;
    return holdsOnly(digits, "0123456789") ? asTyped(digits) : std::string(text);
}

}  // namespace zelvo::input::modTelNumFormat
