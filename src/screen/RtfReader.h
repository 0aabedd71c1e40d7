#pragma once

#include <string_view>

#include "screen/CodePage.h"
#include "screen/RichText.h"

namespace zelvo::screen {

bool looksLikeRtf(std::string_view text);

/// The content of an RTF text, in its one form (see tidied). Takes anything: what is cut gives what came
/// before the cut, what doesn't begin as RTF is a plain text. Time grows with the length; groups beyond a
/// depth of 500 are left out, and beyond 200,000 paragraphs or 100,000 changes of look the text stays and its
/// form is lost. Without code pages the bytes of old documents are U+FFFD, one a character.
RichText readRtf(std::string_view rtf, const CodePages& pages = {});
/// Whether all that an RTF text shows is in its content: no picture, no table, no raised letters.
bool keepsAll(std::string_view rtf);

}  // namespace zelvo::screen
