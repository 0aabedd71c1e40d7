#include "platform/settings/SettingsText.h"

#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::settings {
namespace {

enum class Role { Name, Value };

std::string escaped(std::string_view text, Role role) {
    const std::string clean = basics::cleanUtf8(text);
    std::string line;
    for (std::size_t i = 0; i < clean.size(); ++i) {
        const char c = clean[i];
        const bool first = i == 0;
        const bool atEnd = first || i + 1 == clean.size();
        if (c == '\n') {
            line += "\\n";
        } else if (c == '\r') {
            line += "\\r";
        } else if (c == ' ' && atEnd) {
            line += "\\s";
        } else {
            const bool marks =
                role == Role::Name && (c == '=' || c == ']' || (first && (c == '#' || c == '[')));
            if (c == '\\' || marks) line += '\\';
            line += c;
        }
    }
    return line;
}

std::string unescaped(std::string_view line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\' || i + 1 == line.size()) {
            text += line[i];
            continue;
        }
        const char c = line[++i];
        text += c == 'n' ? '\n' : c == 'r' ? '\r' : c == 's' ? ' ' : c;
    }
    return text;
}

/// Position of the first `mark` that no backslash stands before.
std::size_t bareMark(std::string_view line, char mark) {
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\\') {
            ++i;
        } else if (line[i] == mark) {
            return i;
        }
    }
    return std::string_view::npos;
}

/// The name of a section's head, nothing for any other line.
std::optional<std::string> headOf(std::string_view line) {
    if (!line.starts_with('[')) return std::nullopt;
    const auto end = bareMark(line, ']');
    if (end == std::string_view::npos) return std::nullopt;
    return unescaped(line.substr(1, end - 1));
}

}  // namespace

SettingsText::SettingsText(std::string_view text) {
    constexpr std::string_view mark = "\uFEFF";
    if (text.starts_with(mark)) text.remove_prefix(mark.size());
    const std::string clean = basics::removeAll(basics::cleanUtf8(text), "\r");
    if (!clean.empty()) lines_ = basics::split(clean, "\n");
    while (!lines_.empty() && lines_.back().empty()) lines_.pop_back();
}

SettingsText::Place SettingsText::find(std::string_view section, std::string_view key) const {
    Place place;
    bool inside = false;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const std::string_view line = lines_[i];
        if (const auto head = headOf(line)) {
            inside = *head == section;
        } else if (inside && !place.line && !line.starts_with('#')) {
            const auto equals = bareMark(line, '=');
            if (equals != std::string_view::npos && unescaped(line.substr(0, equals)) == key) place.line = i;
        }
        if (inside && !basics::isBlank(line)) place.sectionEnd = i + 1;
    }
    return place;
}

std::optional<std::string> SettingsText::value(std::string_view section, std::string_view key) const {
    const auto line = find(basics::cleanUtf8(section), basics::cleanUtf8(key)).line;
    if (!line) return std::nullopt;
    const std::string_view text = lines_[*line];
    return unescaped(text.substr(bareMark(text, '=') + 1));
}

void SettingsText::setValue(std::string_view section, std::string_view key, std::string_view value) {
    const std::string line = escaped(key, Role::Name) + "=" + escaped(value, Role::Value);
    const Place place = find(basics::cleanUtf8(section), basics::cleanUtf8(key));
    if (place.line) {
        lines_[*place.line] = line;
        return;
    }
    if (place.sectionEnd) {
        lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(*place.sectionEnd), line);
        return;
    }
    if (!lines_.empty()) lines_.emplace_back();
    lines_.push_back("[" + escaped(section, Role::Name) + "]");
    lines_.push_back(line);
}

std::string SettingsText::text() const {
    return lines_.empty() ? "" : basics::join(lines_, "\n") + "\n";
}

}  // namespace zelvo::settings
