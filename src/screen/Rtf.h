#pragma once

#include <string>
#include <string_view>

namespace zelvo::screen {

/// A plain text as RTF: every character beyond ASCII as a \u escape, line breaks as \par. "" gives "".
std::string plainToRtf(std::string_view text);
/// The plain text of an RTF content: paragraphs, tabs and \u characters kept, all form dropped. Bounded in
/// depth; what is no RTF comes back unchanged.
std::string rtfToPlain(std::string_view rtf);
bool looksLikeRtf(std::string_view text);

}  // namespace zelvo::screen
