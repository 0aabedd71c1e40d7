#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::screen {

struct Colour {
    std::uint8_t red = 0, green = 0, blue = 0;
    bool operator==(const Colour&) const = default;
};

/// The font of a text that says nothing of its own.
inline constexpr std::string_view standardFamily = "Gulim";

struct CharacterStyle {
    bool bold = false, italic = false, underline = false, strike = false;
    int halfPoints = 20;
    std::optional<Colour> colour;  ///< none is the reader's own
    std::string family{standardFamily};
    std::optional<Colour> ground;  ///< behind the letters; none is the paper
    bool operator==(const CharacterStyle&) const = default;
};

/// A stretch of text that looks the same throughout.
struct Run {
    std::string text;  ///< UTF-8; '\n' breaks the line within its paragraph, '\t' is a tab
    CharacterStyle style;
    bool operator==(const Run&) const = default;
};

enum class Alignment { Left, Center, Right, Justify };

struct Paragraph {
    Alignment alignment = Alignment::Left;
    bool bullet = false;
    int indent = 0;  ///< twips from the left edge to the first line, or to its bullet
    std::vector<Run> runs;
    bool operator==(const Paragraph&) const = default;
};

/// A text with its form. Without any text it has no paragraphs.
struct RichText {
    std::vector<Paragraph> paragraphs;
    bool operator==(const RichText&) const = default;
};

/// Widest indent that a paragraph keeps, in twips: a sheet's width.
inline constexpr int widestIndent = 31680;
/// 72 points: what is larger would make a text taller than a window can lay out.
inline constexpr int largestHalfPoints = 144;

/// Paragraphs and lines joined by CR LF; bullets are form and no text.
std::string plainText(const RichText& content);
/// A paragraph a line, all of it in the standard form; lines beyond the bound stand in the last one.
RichText richText(std::string_view plain);
/// The same content in its one form: no empty runs, no neighbours of the same look, line breaks as '\n', no
/// other control characters, measures within their bounds; nothing at all when it has no text. A window lays
/// it out in time: beyond 200,000 lines a break is a blank, beyond 100 fonts or a height that no window has
/// the size is the standard one.
RichText tidied(RichText content);

}  // namespace zelvo::screen
