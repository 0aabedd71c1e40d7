#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zelvo::data {

/// A statement template whose placeholders ("[CBJ_PK]") are filled one after the other. Text is made safe
/// here and nowhere else: a text whose placeholder stands between quotes has every ' doubled; one whose
/// placeholder stands bare goes in only as a number (blank is 0), anything else is a Fault. A value that
/// holds the text of a later placeholder is itself substituted when that one's turn comes; its own quoting is
/// decided by where it then stands.
class Statement {
public:
    explicit Statement(std::string text) : text_(std::move(text)) {}

    Statement& fill(std::string_view placeholder, std::string_view value);
    Statement& fill(std::string_view placeholder, const std::string& value) {
        return fill(placeholder, std::string_view(value));
    }
    Statement& fill(std::string_view placeholder, const char* value) {
        return fill(placeholder, std::string_view(value));
    }
    Statement& fill(std::string_view placeholder, std::int32_t value);
    /// Shortest decimal text of the single-precision value.
    Statement& fill(std::string_view placeholder, float value);

    Statement& add(std::string_view piece);
    const std::string& text() const { return text_; }

private:
    Statement& put(std::string_view placeholder, std::string_view number);

    std::string text_;
};

}  // namespace zelvo::data
