#include "basics/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "basics/Fault.h"
#include "basics/Text.h"

namespace zelvo::basics {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// What stands at the start of a text as a number: its sign, and its digits with one decimal point at most.
struct Scan {
    bool negative = false;
    std::string_view digits;
    bool separated = false;
    bool found = false;
    std::string_view rest;
};

Scan scanNumber(std::string_view text, bool separators) {
    Scan scan;
    std::size_t at = text.find_first_not_of(' ');
    if (at == std::string_view::npos) return scan;
    if (text[at] == '-' || text[at] == '+') scan.negative = text[at++] == '-';
    const std::size_t start = at;
    bool point = false;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (isDigit(c)) {
            scan.found = true;
        } else if (c == '.' && !point) {
            point = true;
        } else if (c == ',' && separators && scan.found && !point) {
            scan.separated = true;
        } else {
            break;
        }
    }
    scan.digits = text.substr(start, at - start);
    scan.rest = text.substr(at);
    return scan;
}

/// The digits' value in `Real`; nothing when it lies beyond the range of `Real`.
template <class Real>
std::optional<Real> valueOf(std::string_view digits) {
    Real value = 0;
    const auto end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value, std::chars_format::fixed);
    if (result.ec == std::errc::result_out_of_range) {
        const auto whole = digits.substr(0, digits.find('.'));
        if (whole.find_first_not_of('0') != std::string_view::npos) return std::nullopt;
        return Real(0);  // too small to tell from 0
    }
    return value;
}

template <class Real>
std::optional<Real> valueOf(const Scan& scan) {
    const auto value = scan.separated ? valueOf<Real>(std::string_view(removeAll(scan.digits, ",")))
                                      : valueOf<Real>(scan.digits);
    if (!value) return std::nullopt;
    return scan.negative ? -*value : *value;
}

Scan scanWhole(std::string_view text) {
    Scan scan = scanNumber(text, true);
    if (!isBlank(scan.rest)) scan.found = false;
    return scan;
}

template <class Real>
Real convert(std::string_view text) {
    const Scan scan = scanWhole(text);
    if (!scan.found) throwTypeMismatch();
    const auto value = valueOf<Real>(scan);
    if (!value) throwOverflow();
    return *value;
}

template <class Whole>
Whole toWhole(double value) {
    const double rounded = roundHalfEven(value);
    constexpr auto least = static_cast<double>(std::numeric_limits<Whole>::min());
    constexpr auto most = static_cast<double>(std::numeric_limits<Whole>::max());
    if (!(rounded >= least && rounded <= most)) throwOverflow();
    return static_cast<Whole>(rounded);
}

std::int32_t toRange(std::int64_t value) {
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max()) {
        throwOverflow();
    }
    return static_cast<std::int32_t>(value);
}

template <class Real>
std::string shortestText(Real value) {
    if (!std::isfinite(value)) throwOverflow();
    if (value == 0) return "0";
    std::array<char, 1100> buffer{};  // the smallest double has 1,074 decimals
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed).ptr;
    return {buffer.data(), end};
}

}  // namespace

bool IsNumeric(std::string_view text) {
    const Scan scan = scanWhole(text);
    // A number too large for a double is none: whatever asks first may then convert without a fault.
    return scan.found && valueOf<double>(scan).has_value();
}

double numberFromStart(std::string_view text) {
    const Scan scan = scanNumber(text, false);
    if (!scan.found) return 0;
    constexpr double bound = std::numeric_limits<double>::max();
    return valueOf<double>(scan).value_or(scan.negative ? -bound : bound);
}

double toNumber(std::string_view text) {
    return convert<double>(text);
}

std::int16_t toInt16(std::string_view text) {
    return toInt16(toNumber(text));
}

std::int32_t toInt32(std::string_view text) {
    return toInt32(toNumber(text));
}

float toSingle(std::string_view text) {
    return convert<float>(text);
}

std::int16_t toInt16(double value) {
    return toWhole<std::int16_t>(value);
}

std::int32_t toInt32(double value) {
    return toWhole<std::int32_t>(value);
}

double roundHalfEven(double value) {
    // By hand: the rounding mode belongs to the host's thread, and not every library's round is exact just
    // below a half.
    const double whole = std::trunc(value);
    const double rest = std::fabs(value - whole);
    if (rest == 0.5) return 2 * std::round(value / 2);
    return rest < 0.5 ? whole : whole + std::copysign(1.0, value);
}

std::string decimalText(std::int64_t value) {
    return std::to_string(value);
}

std::string decimalText(float value) {
    return shortestText(value);
}

std::string decimalText(double value) {
    return shortestText(value);
}

std::int32_t addChecked(std::int32_t a, std::int32_t b) {
    return toRange(std::int64_t{a} + b);
}

std::int32_t subtractChecked(std::int32_t a, std::int32_t b) {
    return toRange(std::int64_t{a} - b);
}

std::int32_t multiplyChecked(std::int32_t a, std::int32_t b) {
    return toRange(std::int64_t{a} * b);
}

std::string bareNumber(std::string_view text) {
    if (isBlank(text)) return "0";
    const Scan scan = scanWhole(text);
    if (!scan.found || !valueOf<double>(scan)) throwTypeMismatch();
    std::string digits = removeAll(scan.digits, ",");
    return scan.negative ? "-" + digits : digits;
}

}  // namespace zelvo::basics
