#pragma once

#include <string>
#include <string_view>

#include "screen/TextField.h"

namespace zelvo::input {

/// The telephone rule: a number grows its hyphens while it is typed. Behind a "~" nothing is formatted any
/// more. The field's tag says whether its next change is to be formatted (empty) or not ("skip").
namespace modTelNumFormat {

/// Lets digits, Backspace, "." and a "~" behind a whole number pass; sets any other key to 0. Enter moves on.
void TelNum_KeyPress(screen::TextField& field, char32_t& key);
/// Formats the field unless its tag says "skip"; the caret then stands behind the text.
void TelNum_Change(screen::TextField& field);
/// Rewrites the text of the field with its hyphens.
void TelNum_Format(screen::TextField& field);

/// The text of a number with the hyphens that its length asks for. A whole number that comes without hyphens
/// is grouped as if it were typed, and no digit is ever lost. A text that no telephone number can be stays as
/// it is.
std::string formatted(std::string_view text);

}  // namespace modTelNumFormat

}  // namespace zelvo::input
