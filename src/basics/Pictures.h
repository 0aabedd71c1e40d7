#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zelvo::basics {

/// Number pictures. All round to the nearest whole number, halves upward (away from zero for negatives),
/// with a leading minus if negative.
/// "###": no separators, nothing for 0.  "###,###": separators, nothing for 0.  "###,##0": separators, "0"
/// for 0.
enum class NumberPicture { Plain, Separated, SeparatedZero };

std::string formatNumber(double value, NumberPicture picture);
/// Money, with separators.
std::string wonText(std::int64_t won, NumberPicture picture = NumberPicture::SeparatedZero);
/// A text through a picture: a numeric text is formatted, any other text passes unchanged.
std::string formatText(std::string_view text, NumberPicture picture);

}  // namespace zelvo::basics
