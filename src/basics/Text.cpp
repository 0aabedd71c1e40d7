#include "basics/Text.h"

#include <algorithm>

namespace zelvo::basics {

std::string trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string removeBlanks(std::string_view text) {
    return removeAll(text, " ");
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view with) {
    if (what.empty()) return std::string(text);
    std::string result;
    result.reserve(text.size());
    std::size_t start = 0;
    for (auto at = text.find(what); at != std::string_view::npos; at = text.find(what, start)) {
        result.append(text, start, at - start).append(with);
        start = at + what.size();
    }
    return result.append(text, start);
}

std::string pastedAddress(std::string_view text) {
    constexpr std::string_view around = " \t\r\n";
    const std::size_t start = text.find_first_not_of(around);
    if (start == std::string_view::npos) return {};
    text = text.substr(start, text.find_last_not_of(around) + 1 - start);
    const std::size_t mark = text.find("://");
    if (mark == std::string_view::npos) return std::string(text);
    const std::size_t rest = std::min(text.find_first_not_of(around, mark + 3), text.size());
    return std::string(text.substr(0, mark + 3)).append(text.substr(rest));
}

std::string removeAll(std::string_view text, std::string_view what) {
    return replaceAll(text, what, "");
}

std::vector<std::string> split(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    if (!separator.empty()) {
        for (auto at = text.find(separator); at != std::string_view::npos; at = text.find(separator, start)) {
            parts.emplace_back(text.substr(start, at - start));
            start = at + separator.size();
        }
    }
    parts.emplace_back(text.substr(start));
    return parts;
}

std::string join(const std::vector<std::string>& parts, std::string_view separator) {
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) text += separator;
        text += parts[i];
    }
    return text;
}

}  // namespace zelvo::basics
