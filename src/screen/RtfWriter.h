#pragma once

#include <string>
#include <string_view>

#include "screen/RichText.h"

namespace zelvo::screen {

/// The content as RTF in ASCII: every other character as a \u escape. "" for one without paragraphs.
std::string writeRtf(const RichText& content);
/// A plain text as RTF in the standard form; "" gives "".
std::string plainToRtf(std::string_view text);

}  // namespace zelvo::screen
