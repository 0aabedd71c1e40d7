#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::settings {

/// The text of a settings file:
///
///     # A line that says nothing to this program is kept as it stands.
///     [section]
///     key=value
///
/// UTF-8, a line each. In a name and a value "\\" is a backslash, "\n" and "\r" are line breaks, "\s" is a
/// blank (used at the ends); a name also has "\=" and "\]", and "\#" and "\[" at its start.
class SettingsText {
public:
    explicit SettingsText(std::string_view text);

    std::optional<std::string> value(std::string_view section, std::string_view key) const;
    /// Replaces the key's line, or adds it at the end of its section, which is made if it isn't there.
    void setValue(std::string_view section, std::string_view key, std::string_view value);
    std::string text() const;

private:
    /// Index of the key's line (nothing if there is none), and where a new line of the section goes.
    struct Place {
        std::optional<std::size_t> line;
        std::optional<std::size_t> sectionEnd;
    };
    Place find(std::string_view section, std::string_view key) const;

    std::vector<std::string> lines_;
};

}  // namespace zelvo::settings
