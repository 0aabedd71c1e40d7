#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zelvo::basics {

/// CR LF, the line break of all texts of the system.
inline constexpr std::string_view lineBreak = "\r\n";

/// The text without the blanks (U+0020) at both ends.
std::string trim(std::string_view text);
/// The text without any blank, inner ones too.
std::string removeBlanks(std::string_view text);
/// True when nothing but blanks stands in the text.
bool isBlank(std::string_view text);

/// Every occurrence of `what` from left to right replaced; an empty `what` changes nothing.
std::string replaceAll(std::string_view text, std::string_view what, std::string_view with);
/// Every occurrence of `what` removed.
std::string removeAll(std::string_view text, std::string_view what);
/// A web address as a person pasted it: without blanks and line ends around it or behind its "//".
std::string pastedAddress(std::string_view text);
/// Parts between the separators; an empty text gives one empty part.
std::vector<std::string> split(std::string_view text, std::string_view separator);
std::string join(const std::vector<std::string>& parts, std::string_view separator);

}  // namespace zelvo::basics
