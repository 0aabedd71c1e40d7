#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zelvo::basics {

/// True when the whole text is a decimal number: optional sign, decimal point, thousands separators, blanks
/// around it.
bool IsNumeric(std::string_view text);

/// The number at the start of the text, after leading blanks ("12abc" is 12, "1,234" is 1, "" and "abc" are
/// 0). Never fails; what is out of the range of a double is the nearest bound.
double numberFromStart(std::string_view text);

/// The number that a whole numeric text says, thousands separators allowed. Throws Fault when the text is no
/// number.
double toNumber(std::string_view text);

/// Conversions of a whole numeric text; halves go to the even neighbour. Throw Fault for no number or out of
/// range.
std::int16_t toInt16(std::string_view text);
std::int32_t toInt32(std::string_view text);
float toSingle(std::string_view text);

/// Conversions of a number; halves go to the even neighbour. Throw Fault when out of range.
std::int16_t toInt16(double value);
std::int32_t toInt32(double value);

/// Nearest whole number, halves to the even neighbour, without a bound of its own (rounds 2.5 to 2, 3.5 to
/// 4).
double roundHalfEven(double value);

/// Decimal text: a leading minus if negative, no separators.
std::string decimalText(std::int64_t value);
/// Shortest decimal text that reads back as the same single-precision value: "0.1", "17.5", "4"; never an
/// exponent.
std::string decimalText(float value);
/// Shortest decimal text that reads back as the same double; never an exponent.
std::string decimalText(double value);

/// 32-bit arithmetic that throws Fault instead of leaving the range.
std::int32_t addChecked(std::int32_t a, std::int32_t b);
std::int32_t subtractChecked(std::int32_t a, std::int32_t b);
std::int32_t multiplyChecked(std::int32_t a, std::int32_t b);

/// What stands bare in a statement for a text that should be a number: its digits as they stand if it is one
/// (separators dropped), "0" for a blank. Throws Fault for anything else.
std::string bareNumber(std::string_view text);

}  // namespace zelvo::basics
