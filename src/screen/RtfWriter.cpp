#include "screen/RtfWriter.h"

#include <algorithm>
#include <map>
#include <vector>

#include "basics/Utf8.h"

namespace zelvo::screen {

namespace {

/// Room for a bullet before its paragraph, in twips.
constexpr int bulletRoom = 360;
constexpr std::string_view symbolFamily = "Symbol";

void appendUnit(std::string& rtf, char32_t unit) {
    // The format counts its units as signed 16-bit numbers.
    const int value = static_cast<int>(unit);
    rtf += "\\u" + std::to_string(value > 0x7FFF ? value - 0x10000 : value) + '?';
}

void appendCharacter(std::string& rtf, char32_t character) {
    if (character > 0xFFFF) {
        appendUnit(rtf, 0xD800 + ((character - 0x10000) >> 10));
        appendUnit(rtf, 0xDC00 + ((character - 0x10000) & 0x3FF));
    } else if (character >= 127) {
        appendUnit(rtf, character);
    } else if (character == U'\t') {
        rtf += "\\tab ";
    } else if (character == U'\n') {
        rtf += "\\line ";
    } else if (character >= U' ') {
        if (character == U'\\' || character == U'{' || character == U'}') rtf += '\\';
        rtf += static_cast<char>(character);
    }
}

void appendText(std::string& rtf, std::string_view text) {
    while (!text.empty()) {
        appendCharacter(rtf, basics::characterAt(text, 0));
        text.remove_prefix(basics::byteOffset(text, 1));
    }
}

std::string_view alignmentWord(Alignment alignment) {
    switch (alignment) {
        case Alignment::Center:
            return "\\qc";
        case Alignment::Right:
            return "\\qr";
        case Alignment::Justify:
            return "\\qj";
        case Alignment::Left:
            break;
    }
    return {};
}

/// Numbers for what a table at the head of the document lists once.
template <class Entry, class Less = std::less<>>
class Numbers {
public:
    std::size_t of(const Entry& entry) {
        const auto [at, isNew] = numbers_.try_emplace(entry, entries_.size());
        if (isNew) entries_.push_back(entry);
        return at->second;
    }
    const std::vector<Entry>& entries() const { return entries_; }

private:
    std::map<Entry, std::size_t, Less> numbers_;
    std::vector<Entry> entries_;
};

struct ByParts {
    bool operator()(const Colour& one, const Colour& other) const { return number(one) < number(other); }
    static int number(const Colour& colour) {
        return colour.red * 0x10000 + colour.green * 0x100 + colour.blue;
    }
};

class Writer {
public:
    std::string write(const RichText& content) {
        fonts_.of(standard_.family);
        for (const Paragraph& paragraph : content.paragraphs) writeParagraph(paragraph);
        return head() + body_ + "}";
    }

private:
    void writeParagraph(const Paragraph& paragraph) {
        const int indent = std::clamp(paragraph.indent, 0, widestIndent);
        body_ += "\\pard";
        body_ += alignmentWord(paragraph.alignment);
        if (paragraph.bullet) {
            // The form that editors of every age read: a text for those that know no bullets, then what it
            // is.
            const std::string font = std::to_string(fonts_.of(std::string(symbolFamily)));
            body_ += "\\fi-" + std::to_string(bulletRoom) + "\\li" + std::to_string(indent + bulletRoom);
            body_ += "{\\pntext\\f" + font + R"(\'B7\tab}{\*\pn\pnlvlblt\pnf)" + font + "\\pnindent" +
                     std::to_string(bulletRoom) + R"({\pntxtb\'B7}})";
        } else {
            if (indent > 0) body_ += "\\li" + std::to_string(indent);
            body_ += ' ';
        }
        for (const Run& run : paragraph.runs) {
            // unrtf forgets the alignment of a paragraph that begins with a \u outside of a group.
            if (run.style != standard_ || paragraph.alignment != Alignment::Left) {
                writeGroup(run);
            } else {
                appendText(body_, run.text);
            }
        }
        body_ += "\\par\r\n";
    }

    void writeGroup(const Run& run) {
        const CharacterStyle& style = run.style;
        body_ += '{';
        if (style.family != standard_.family) body_ += "\\f" + std::to_string(fonts_.of(style.family));
        if (style.halfPoints != standard_.halfPoints) {
            body_ += "\\fs" + std::to_string(std::clamp(style.halfPoints, 1, largestHalfPoints));
        }
        // Number 0 is the reader's own colour.
        if (style.colour) body_ += "\\cf" + std::to_string(colours_.of(*style.colour) + 1);
        if (style.ground) body_ += "\\highlight" + std::to_string(colours_.of(*style.ground) + 1);
        if (style.bold) body_ += "\\b";
        if (style.italic) body_ += "\\i";
        if (style.underline) body_ += "\\ul";
        if (style.strike) body_ += "\\strike";
        if (style != standard_) body_ += ' ';
        appendText(body_, run.text);
        body_ += '}';
    }

    std::string head() const {
        std::string head = R"({\rtf1\ansi\ansicpg949\deff0{\fonttbl)";
        std::size_t number = 0;
        for (const std::string& family : fonts_.entries()) {
            head += "{\\f" + std::to_string(number++) + "\\fnil\\fcharset";
            head += family == symbolFamily ? "2 " : "129 ";
            appendText(head, family);
            head += ";}";
        }
        head += '}';
        if (!colours_.entries().empty()) {
            head += "{\\colortbl ;";
            for (const Colour& colour : colours_.entries()) {
                head += "\\red" + std::to_string(colour.red) + "\\green" + std::to_string(colour.green) +
                        "\\blue" + std::to_string(colour.blue) + ';';
            }
            head += '}';
        }
        return head + "\\uc1\\f0\\fs" + std::to_string(standard_.halfPoints) + "\r\n";
    }

    const CharacterStyle standard_{};
    Numbers<std::string> fonts_;
    Numbers<Colour, ByParts> colours_;
    std::string body_;
};

}  // namespace

std::string writeRtf(const RichText& content) {
    return content.paragraphs.empty() ? std::string() : Writer().write(content);
}

std::string plainToRtf(std::string_view text) {
    return writeRtf(richText(text));
}

}  // namespace zelvo::screen
