#include "basics/Pictures.h"

#include <array>
#include <charconv>
#include <cmath>

#include "basics/Fault.h"
#include "basics/Numbers.h"

namespace zelvo::basics {
namespace {

std::string withSeparators(std::string_view digits) {
    std::string text;
    text.reserve(digits.size() + digits.size() / 3);
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) text += ',';
        text += digits[i];
    }
    return text;
}

}  // namespace

std::string formatNumber(double value, NumberPicture picture) {
    if (!std::isfinite(value)) throwOverflow();
    const double rounded = std::round(value);
    if (rounded == 0) return picture == NumberPicture::SeparatedZero ? "0" : "";
    std::array<char, 320> buffer{};  // the largest double has 309 digits
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(rounded),
                                   std::chars_format::fixed, 0)
                         .ptr;
    const std::string_view digits(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    std::string text = rounded < 0 ? "-" : "";
    text += picture == NumberPicture::Plain ? std::string(digits) : withSeparators(digits);
    return text;
}

std::string wonText(std::int64_t won, NumberPicture picture) {
    return formatNumber(static_cast<double>(won), picture);
}

std::string formatText(std::string_view text, NumberPicture picture) {
    return IsNumeric(text) ? formatNumber(toNumber(text), picture) : std::string(text);
}

}  // namespace zelvo::basics
