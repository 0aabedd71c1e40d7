#include "screen/RichText.h"

#include <algorithm>
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
    return content;
}

RichText tidied(RichText content) {
    for (Paragraph& paragraph : content.paragraphs) {
        paragraph.indent = std::clamp(paragraph.indent, 0, widestIndent);
        std::vector<Run> runs;
        for (Run& run : paragraph.runs) {
            run.text = tidiedText(run.text);
            run.style.family = tidiedFamily(run.style.family);
            run.style.halfPoints = std::clamp(run.style.halfPoints, 1, largestHalfPoints);
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
