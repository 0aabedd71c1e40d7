#pragma once

#include <string>
#include <string_view>

namespace zelvo::basics {

/// True for a syllable, "가" to "힣".
bool isSyllable(char32_t character);
/// The consonant that a syllable begins with, as it is typed alone ("ㄷ" of "당"); any other character
/// itself.
char32_t initialOf(char32_t character);

/// What would stand there had the two-set Hangul keyboard been on: "당귀" for "ekdrnl". Characters that are
/// no keys of letters stay.
std::string hangulOfKeys(std::string_view latin);

/// Where `typed` stands in `text`, in characters; npos where it does not. A lone consonant stands for any
/// syllable that begins with it, a syllable without a final consonant for those that add one ("다" for "당"),
/// and the case of Latin letters does not count. "" stands at 0.
std::size_t findTyped(std::string_view text, std::string_view typed);

}  // namespace zelvo::basics
