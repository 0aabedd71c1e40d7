#include "screen/RichText.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <tuple>
#include <utility>

#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::screen {

namespace {

std::string tidiedText(std::string_view text) {
    std::string tidy;
    tidy.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char byte = text[at];
        if (byte == '\r' && at + 1 < text.size() && text[at + 1] == '\n') continue;
        if (byte == '\r' || byte == '\n') {
            tidy += '\n';
        } else if (byte == '\t' || static_cast<unsigned char>(byte) >= ' ') {
            tidy += byte;
        }
    }
    return basics::cleanUtf8(tidy);
}

constexpr std::size_t mostLines = 200'000, mostFonts = 100;
/// A toolkit counts heights up to 33 million pixels and never comes to an end beyond.
constexpr double tallest = 16'000'000, pixelsPerHalfPoint = 0.9, narrowestLine = 450;

/// Breaks beyond the bound become blanks, those between paragraphs too.
void boundLines(RichText& content) {
    std::size_t lines = 0;
    for (Paragraph& paragraph : content.paragraphs) {
        for (Run& run : paragraph.runs) {
            for (char& byte : run.text) {
                if (byte == '\n' && ++lines >= mostLines) byte = ' ';
            }
        }
        ++lines;
    }
    if (lines <= mostLines) return;
    std::size_t kept = 0;
    for (lines = 0; kept < content.paragraphs.size() && lines < mostLines; ++kept) {
        for (const Run& run : content.paragraphs[kept].runs)
            lines += static_cast<std::size_t>(std::count(run.text.begin(), run.text.end(), '\n'));
        ++lines;
    }
    for (std::size_t at = kept; at < content.paragraphs.size(); ++at) {
        std::vector<Run>& runs = content.paragraphs[kept - 1].runs;
        std::vector<Run>& more = content.paragraphs[at].runs;
        if (more.empty()) continue;
        more.front().text.insert(0, " ");
        std::move(more.begin(), more.end(), std::back_inserter(runs));
    }
    content.paragraphs.resize(kept);
}

/// Each font is loaded when it is first drawn.
void boundFonts(RichText& content) {
    std::set<std::tuple<std::string, int, bool, bool>> fonts;
    for (Paragraph& paragraph : content.paragraphs) {
        for (Run& run : paragraph.runs) {
            CharacterStyle& style = run.style;
            const std::tuple font(style.family, style.halfPoints, style.bold, style.italic);
            if (fonts.size() >= mostFonts && !fonts.contains(font)) {
                style.family = standardFamily;
                style.halfPoints = CharacterStyle().halfPoints;
                style.bold = style.italic = false;
            } else {
                fonts.insert(font);
            }
        }
    }
}

double heightOf(const Run& run) {
    const auto breaks = static_cast<double>(std::count(run.text.begin(), run.text.end(), '\n'));
    const double wrapped =
        static_cast<double>(basics::characterCount(run.text)) * run.style.halfPoints / narrowestLine;
    return (breaks + wrapped + 1) * run.style.halfPoints * pixelsPerHalfPoint;
}

void boundHeight(RichText& content) {
    double height = 0;
    for (const Paragraph& paragraph : content.paragraphs)
        for (const Run& run : paragraph.runs) height += heightOf(run);
    if (height <= tallest) return;
    for (Paragraph& paragraph : content.paragraphs) {
        for (Run& run : paragraph.runs)
            run.style.halfPoints = std::min(run.style.halfPoints, CharacterStyle().halfPoints);
    }
}

std::string tidiedFamily(std::string_view family) {
    std::string tidy = basics::cleanUtf8(family);
    std::erase_if(tidy, [](char byte) { return byte == ';' || static_cast<unsigned char>(byte) < ' '; });
    tidy = basics::trim(tidy);
    return tidy.empty() ? std::string(standardFamily) : tidy;
}

}  // namespace

std::string plainText(const RichText& content) {
    std::string plain;
    bool first = true;
    for (const Paragraph& paragraph : content.paragraphs) {
        if (!std::exchange(first, false)) plain += basics::lineBreak;
        for (const Run& run : paragraph.runs) {
            for (std::size_t at = 0; at < run.text.size();) {
                const std::size_t end = std::min(run.text.find('\n', at), run.text.size());
                plain.append(run.text, at, end - at);
                if (end < run.text.size()) plain += basics::lineBreak;
                at = end + 1;
            }
        }
    }
    return plain;
}

RichText richText(std::string_view plain) {
    RichText content;
    if (plain.empty()) return content;
    for (std::size_t at = 0; at <= plain.size();) {
        const std::size_t end = std::min(plain.find_first_of(basics::lineBreak, at), plain.size());
        Paragraph& paragraph = content.paragraphs.emplace_back();
        if (end > at) paragraph.runs.push_back({std::string(plain.substr(at, end - at)), {}});
        at = end + (plain.substr(end).starts_with(basics::lineBreak) ? basics::lineBreak.size() : 1);
    }
    boundLines(content);
    return content;
}

RichText tidied(RichText content) {
    for (Paragraph& paragraph : content.paragraphs) {
        for (Run& run : paragraph.runs) {
            run.text = tidiedText(run.text);
            run.style.family = tidiedFamily(run.style.family);
            run.style.halfPoints = std::clamp(run.style.halfPoints, 1, largestHalfPoints);
        }
    }
    boundLines(content);
    boundFonts(content);
    boundHeight(content);
    for (Paragraph& paragraph : content.paragraphs) {
        paragraph.indent = std::clamp(paragraph.indent, 0, widestIndent);
        std::vector<Run> runs;
        for (Run& run : paragraph.runs) {
            if (run.text.empty()) continue;
            if (!runs.empty() && runs.back().style == run.style) {
                runs.back().text += run.text;
            } else {
                runs.push_back(std::move(run));
            }
        }
        paragraph.runs = std::move(runs);
    }
    if (content.paragraphs.size() == 1 && content.paragraphs[0].runs.empty()) content.paragraphs.clear();
    return content;
}

}  // namespace zelvo::screen
