#include "screen/Rtf.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::screen {

namespace {

constexpr std::string_view head =
    R"({\rtf1\ansi\ansicpg949\deff0{\fonttbl{\f0\fnil\fcharset129 Gulim;}}\uc1\pard\f0\fs20 )";
constexpr std::string_view tail = "\\par\r\n}";

/// Groups whose content is no text of the document.
constexpr std::array<std::string_view, 18> destinations{
    "fonttbl", "colortbl", "stylesheet", "info",    "pict",    "object",  "header", "headerl",  "headerr",
    "headerf", "footer",   "footerl",    "footerr", "footerf", "filetbl", "pntext", "listtext", "footnote"};

struct Sign {
    std::string_view word, text;
};
constexpr std::array<Sign, 16> signs{{{"par", "\r\n"},
                                      {"line", "\r\n"},
                                      {"sect", "\r\n"},
                                      {"page", "\r\n"},
                                      {"row", "\r\n"},
                                      {"tab", "\t"},
                                      {"cell", "\t"},
                                      {"lquote", "‘"},
                                      {"rquote", "’"},
                                      {"ldblquote", "“"},
                                      {"rdblquote", "”"},
                                      {"emdash", "—"},
                                      {"endash", "–"},
                                      {"bullet", "•"},
                                      {"emspace", " "},
                                      {"enspace", " "}}};

bool isLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

int hexValue(char byte) {
    if (isDigit(byte)) return byte - '0';
    const char lower = static_cast<char>(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

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
    } else if (character >= U' ') {
        if (character == U'\\' || character == U'{' || character == U'}') rtf += '\\';
        rtf += static_cast<char>(character);
    }
}

/// Reads an RTF content once from its start to its end, with the open groups on a stack of bounded height.
class Reader {
public:
    explicit Reader(std::string_view rtf) : rtf_(rtf) {}

    std::string read() {
        while (at_ < rtf_.size() && !ended_) step();
        flushSurrogate();
        // The last paragraph's own end is no line break of the text.
        if (endsInParagraph_) text_.resize(text_.size() - basics::lineBreak.size());
        return std::move(text_);
    }

private:
    static constexpr std::size_t deepest = 500;
    struct Group {
        bool skipped = false;
        int fallback = 1;  ///< characters that stand behind a \u for readers that can't take it
    };

    Group& group() { return groups_.back(); }

    void step() {
        const char byte = rtf_[at_++];
        switch (byte) {
            case '{':
                openGroup();
                break;
            case '}':
                closeGroup();
                break;
            case '\\':
                readControl();
                break;
            case '\r':
            case '\n':
                break;
            default:
                readCharacter();
        }
    }

    void openGroup() {
        toSkip_ = 0;
        if (groups_.size() > deepest) {
            ++tooDeep_;
        } else {
            groups_.push_back(group());
        }
    }

    void closeGroup() {
        toSkip_ = 0;
        if (tooDeep_ > 0) {
            --tooDeep_;
            return;
        }
        groups_.pop_back();
        ended_ = groups_.size() <= 1;
        if (groups_.empty()) groups_.emplace_back();
    }

    void readCharacter() {
        const std::size_t from = at_ - 1;
        while (at_ < rtf_.size() && (static_cast<unsigned char>(rtf_[at_]) & 0xC0) == 0x80) ++at_;
        if (!takesFallback()) emit(rtf_.substr(from, at_ - from));
    }

    void readControl() {
        if (at_ >= rtf_.size()) return;
        if (isLetter(rtf_[at_])) {
            readWord();
            return;
        }
        const char symbol = rtf_[at_++];
        switch (symbol) {
            case '\'':
                readByte();
                break;
            case '*':
                group().skipped = true;
                break;
            case '\r':
            case '\n':
                endParagraph();
                break;
            case '~':
                if (!takesFallback()) emit("\u00A0");
                break;
            case '_':
                if (!takesFallback()) emit("-");
                break;
            case '\\':
            case '{':
            case '}':
                if (!takesFallback()) emit(std::string_view(&symbol, 1));
                break;
            default:
                break;
        }
    }

    /// A byte of the document's code page. Those beyond ASCII need its table and are left out.
    void readByte() {
        if (rtf_.size() - at_ < 2) return;
        const int high = hexValue(rtf_[at_]), low = hexValue(rtf_[at_ + 1]);
        if (high < 0 || low < 0) return;
        at_ += 2;
        if (takesFallback()) return;
        const char byte = static_cast<char>(high * 16 + low);
        if (high < 8 && byte >= ' ' && byte != 127) emit(std::string_view(&byte, 1));
    }

    void readWord() {
        const std::size_t from = at_;
        while (at_ < rtf_.size() && isLetter(rtf_[at_])) ++at_;
        const std::string_view word = rtf_.substr(from, at_ - from);
        const bool negative = at_ + 1 < rtf_.size() && rtf_[at_] == '-' && isDigit(rtf_[at_ + 1]);
        if (negative) ++at_;
        const bool numbered = at_ < rtf_.size() && isDigit(rtf_[at_]);
        std::int64_t number = 0;
        for (; at_ < rtf_.size() && isDigit(rtf_[at_]); ++at_) {
            number = std::min<std::int64_t>(number * 10 + (rtf_[at_] - '0'), INT32_MAX);
        }
        if (at_ < rtf_.size() && rtf_[at_] == ' ') ++at_;
        apply(word, numbered, negative ? -number : number);
    }

    void apply(std::string_view word, bool numbered, std::int64_t number) {
        toSkip_ = 0;
        if (word == "u" && numbered) {
            emitUnit(number);
            toSkip_ = group().fallback;
        } else if (word == "uc" && numbered) {
            group().fallback = static_cast<int>(std::clamp<std::int64_t>(number, 0, INT16_MAX));
        } else if (word == "bin" && numbered) {
            at_ += std::min(rtf_.size() - at_, static_cast<std::size_t>(std::max<std::int64_t>(number, 0)));
        } else if (word == "par") {
            endParagraph();
        } else if (std::find(destinations.begin(), destinations.end(), word) != destinations.end()) {
            group().skipped = true;
        } else {
            for (const Sign& sign : signs) {
                if (sign.word == word) emit(sign.text);
            }
        }
    }

    /// True for a character that only stands in for the \u before it.
    bool takesFallback() {
        if (toSkip_ == 0) return false;
        --toSkip_;
        return true;
    }

    void emitUnit(std::int64_t number) {
        if (number < 0) number += 0x10000;
        const auto unit = static_cast<char32_t>(number < 0 || number > 0x10FFFF ? 0xFFFD : number);
        if (isLowSurrogate(unit) && surrogate_ != 0) {
            const char32_t joined = 0x10000 + ((surrogate_ - 0xD800) << 10) + (unit - 0xDC00);
            surrogate_ = 0;
            emit(basics::toUtf8(joined));
        } else if (isHighSurrogate(unit)) {
            flushSurrogate();
            if (!skipping()) surrogate_ = unit;
        } else if (unit >= U' ' || unit == U'\t') {
            emit(basics::toUtf8(isLowSurrogate(unit) ? 0xFFFD : unit));
        }
    }

    void flushSurrogate() {
        if (surrogate_ == 0) return;
        surrogate_ = 0;
        emit(basics::toUtf8(0xFFFD));
    }

    bool skipping() const { return groups_.back().skipped || tooDeep_ > 0; }

    void endParagraph() {
        if (skipping()) return;
        emit(basics::lineBreak);
        endsInParagraph_ = true;
    }

    void emit(std::string_view text) {
        if (skipping()) return;
        flushSurrogate();
        text_ += text;
        endsInParagraph_ = false;
    }

    std::string_view rtf_;
    std::string text_;
    std::vector<Group> groups_{Group{}};
    std::size_t at_ = 0, tooDeep_ = 0;
    int toSkip_ = 0;
    char32_t surrogate_ = 0;
    bool ended_ = false, endsInParagraph_ = false;
};

}  // namespace

bool looksLikeRtf(std::string_view text) {
    return text.starts_with("{\\rtf");
}

std::string plainToRtf(std::string_view text) {
    if (text.empty()) return {};
    std::string rtf(head);
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = basics::characterAt(text, at);
        at = basics::byteOffset(text.substr(at), 1) + at;
        if (character == U'\r' && at < text.size() && text[at] == '\n') ++at;
        if (character == U'\r' || character == U'\n') {
            rtf += "\\par\r\n";
        } else {
            appendCharacter(rtf, character);
        }
    }
    rtf += tail;
    return rtf;
}

std::string rtfToPlain(std::string_view rtf) {
    return looksLikeRtf(rtf) ? Reader(rtf).read() : std::string(rtf);
}

}  // namespace zelvo::screen
