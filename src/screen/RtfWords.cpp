#include "screen/RtfWords.h"

#include <algorithm>
#include <array>

#include "screen/RichText.h"

namespace zelvo::screen {

namespace {

constexpr RtfWord of(std::string_view word, RtfPart part) {
    return {word, RtfAct::Part, static_cast<int>(part), {}};
}

constexpr RtfWord of(std::string_view word, Alignment alignment) {
    return {word, RtfAct::Align, static_cast<int>(alignment), {}};
}

constexpr RtfWord of(std::string_view word, std::string_view sign) {
    return {word, RtfAct::Sign, 0, sign};
}

constexpr RtfWord of(std::string_view word, RtfAct act, int value = 0) {
    return {word, act, value, {}};
}

/// Something that other programs show, and that a content has no word for.
constexpr RtfWord ofShown(std::string_view word) {
    return {word, RtfAct::Part, static_cast<int>(RtfPart::Skipped), "shown"};
}

constexpr std::array words{of("ansicpg", RtfAct::DocumentPage),
                           of("b", RtfAct::Bold, 1),
                           of("blue", RtfAct::Blue),
                           of("bullet", "•"),
                           of("cb", RtfAct::GroundIndex),
                           of("cell", "\t"),
                           of("cf", RtfAct::ColourIndex),
                           of("chcbpat", RtfAct::GroundIndex),
                           of("colortbl", RtfPart::Colours),
                           of("cpg", RtfAct::FontPage),
                           of("deff", RtfAct::DefaultFont),
                           of("deleted", RtfAct::Hidden, 1),
                           of("emdash", "—"),
                           of("emspace", "\u2003"),
                           of("endash", "–"),
                           of("enspace", "\u2002"),
                           of("f", RtfAct::Font),
                           of("fcharset", RtfAct::Charset),
                           of("fi", RtfAct::FirstIndent),
                           of("filetbl", RtfPart::Skipped),
                           of("fldinst", RtfPart::Skipped),
                           of("fonttbl", RtfPart::Fonts),
                           of("footer", RtfPart::Skipped),
                           of("footerf", RtfPart::Skipped),
                           of("footerl", RtfPart::Skipped),
                           of("footerr", RtfPart::Skipped),
                           of("footnote", RtfPart::Skipped),
                           of("fs", RtfAct::Size),
                           of("green", RtfAct::Green),
                           of("header", RtfPart::Skipped),
                           of("headerf", RtfPart::Skipped),
                           of("headerl", RtfPart::Skipped),
                           of("headerr", RtfPart::Skipped),
                           of("highlight", RtfAct::GroundIndex),
                           of("i", RtfAct::Italic, 1),
                           of("info", RtfPart::Skipped),
                           of("lbr", "\n"),
                           of("ldblquote", "“"),
                           of("levelnfc", RtfAct::NumberForm),
                           of("li", RtfAct::LeftIndent),
                           of("line", "\n"),
                           of("listid", RtfAct::ListId),
                           of("listoverridetable", RtfPart::ListUses),
                           of("listtable", RtfPart::Lists),
                           of("listtext", RtfPart::Label),
                           of("lquote", "‘"),
                           of("ls", RtfAct::ListNumber),
                           of("nestcell", "\t"),
                           of("nestrow", RtfAct::EndParagraph),
                           of("nonshppict", RtfPart::Skipped),
                           ofShown("object"),
                           of("page", RtfAct::EndParagraph),
                           of("par", RtfAct::EndParagraph),
                           of("pard", RtfAct::PlainParagraph),
                           ofShown("pict"),
                           of("plain", RtfAct::PlainCharacters),
                           of("pn", RtfPart::Numbering),
                           of("pnlvlblt", RtfAct::Bullet),
                           of("pntext", RtfPart::Label),
                           of("pntxta", RtfPart::Skipped),
                           of("pntxtb", RtfPart::Skipped),
                           of("private", RtfPart::Skipped),
                           of("qc", Alignment::Center),
                           of("qd", Alignment::Justify),
                           of("qj", Alignment::Justify),
                           of("ql", Alignment::Left),
                           of("qmspace", "\u2005"),
                           of("qr", Alignment::Right),
                           of("rdblquote", "”"),
                           of("red", RtfAct::Red),
                           of("row", RtfAct::EndParagraph),
                           of("rquote", "’"),
                           of("rxe", RtfPart::Skipped),
                           of("sect", RtfAct::EndParagraph),
                           of("shpinst", RtfPart::Outer),
                           of("shppict", RtfAct::Unkept),
                           of("shprslt", RtfPart::Skipped),
                           of("shptxt", RtfPart::Inner),
                           of("strike", RtfAct::Strike, 1),
                           of("striked", RtfAct::Strike, 1),
                           of("stylesheet", RtfPart::Skipped),
                           of("sub", RtfAct::Unkept, 1),
                           of("super", RtfAct::Unkept, 1),
                           of("tab", "\t"),
                           of("tc", RtfPart::Skipped),
                           of("tcn", RtfPart::Skipped),
                           of("trowd", RtfAct::Unkept, 1),
                           of("u", RtfAct::Character),
                           of("uc", RtfAct::FallbackLength),
                           of("ud", RtfPart::Inner),
                           of("ul", RtfAct::Underline, 1),
                           of("uld", RtfAct::Underline, 1),
                           of("uldash", RtfAct::Underline, 1),
                           of("uldashd", RtfAct::Underline, 1),
                           of("uldashdd", RtfAct::Underline, 1),
                           of("uldb", RtfAct::Underline, 1),
                           of("ulhwave", RtfAct::Underline, 1),
                           of("ulldash", RtfAct::Underline, 1),
                           of("ulnone", RtfAct::Underline),
                           of("ulth", RtfAct::Underline, 1),
                           of("ulthd", RtfAct::Underline, 1),
                           of("ulthdash", RtfAct::Underline, 1),
                           of("ululdbwave", RtfAct::Underline, 1),
                           of("ulw", RtfAct::Underline, 1),
                           of("ulwave", RtfAct::Underline, 1),
                           of("upr", RtfPart::Outer),
                           of("v", RtfAct::Hidden, 1),
                           of("xe", RtfPart::Skipped),
                           of("zwj", "\u200D"),
                           of("zwnj", "\u200C")};

constexpr bool isBefore(const RtfWord& one, const RtfWord& other) {
    return one.word < other.word;
}
static_assert(std::is_sorted(words.begin(), words.end(), isBefore));

}  // namespace

const RtfWord* rtfWord(std::string_view word) {
    const auto* found = std::lower_bound(words.begin(), words.end(), RtfWord{word, {}, 0, {}}, isBefore);
    return found != words.end() && found->word == word ? &*found : nullptr;
}

}  // namespace zelvo::screen
