#include "screen/RtfReader.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "basics/Text.h"
#include "basics/Utf8.h"
#include "screen/RtfBytes.h"
#include "screen/RtfTables.h"
#include "screen/RtfTokens.h"
#include "screen/RtfWords.h"

namespace zelvo::screen {

namespace {

constexpr std::size_t deepest = 500, mostParagraphs = 200'000, mostRuns = 100'000, longestLabel = 64;
constexpr int farthest = 100'000;

/// What the characters look like, in the document's own numbers.
struct Look {
    bool bold = false, italic = false, underline = false, strike = false, hidden = false;
    int font = 0, halfPoints = 24, colour = 0, ground = 0;
    bool operator==(const Look&) const = default;
};

struct Format {
    Alignment alignment = Alignment::Left;
    bool bullet = false;
    int left = 0, first = 0, list = 0;
};

struct Group {
    RtfPart part = RtfPart::Body;
    bool optional = false;  ///< its first word is for readers that know it; others skip the group
    int fallback = 1;       ///< characters that stand behind a \u for readers that can't take it
    RtfEncoding encoding;
    Look look;
    Format format;
};

bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

/// A paragraph's label is a bullet when it is one sign, and a number ("1.", "가)", "②") else.
bool isBullet(std::string_view label) {
    if (basics::characterCount(label) != 1) return false;
    const char32_t sign = basics::characterAt(label, 0);
    if (sign == U'o') return true;  // the second level's, in a font where it is round
    const bool letter = (sign | 0x20) >= U'a' && (sign | 0x20) <= U'z';
    const bool counted = (sign >= U'0' && sign <= U'9') || (sign >= 0x2460 && sign <= 0x249B) ||
                         (sign >= 0x3131 && sign <= 0xD7A3);
    return !letter && !counted;
}

/// The paragraphs as they come. Its texts are sound UTF-8.
class Composer {
public:
    explicit Composer(const RtfTables& tables) : tables_(tables) {}

    void append(std::string_view text, const Look& look, const Format& format) {
        lastFormat_ = format;
        std::vector<Run>& runs = paragraph_.runs;
        if (runs.empty() || (look != look_ && runCount_ < mostRuns)) {
            CharacterStyle style = styleOf(look);
            if (runs.empty() || runs.back().style != style) {
                runs.push_back({{}, std::move(style)});
                ++runCount_;
            }
            look_ = look;
        }
        runs.back().text.append(std::exchange(breaks_, 0), '\n');
        runs.back().text += text;
    }

    /// The text of a paragraph's bullet or number, before the paragraph itself.
    void label(std::string_view text, const Look& look, const Format& format) {
        bullet_ = isBullet(basics::trim(basics::removeAll(text, "\t")));
        labelled_ = true;
        if (!bullet_ && text.find_first_not_of("\t ") != std::string_view::npos) append(text, look, format);
    }

    void endParagraph(const Format& format) {
        if (content_.paragraphs.size() + 1 < mostParagraphs) {
            store(format);
        } else {
            ++breaks_;
        }
    }

    RichText finish() {
        if (!paragraph_.runs.empty()) store(lastFormat_);
        return tidied(std::move(content_));
    }

private:
    void store(const Format& format) {
        paragraph_.alignment = format.alignment;
        paragraph_.bullet = labelled_ ? bullet_ : format.bullet || tables_.hasBullets(format.list);
        paragraph_.indent = std::clamp(format.left + std::min(format.first, 0), 0, widestIndent);
        content_.paragraphs.push_back(std::exchange(paragraph_, {}));
        labelled_ = false;
    }

    CharacterStyle styleOf(const Look& look) const {
        return {look.bold,
                look.italic,
                look.underline,
                look.strike,
                look.halfPoints,
                tables_.colour(look.colour),
                tables_.family(look.font),
                look.ground > 0 ? tables_.colour(look.ground) : std::nullopt};
    }

    const RtfTables& tables_;
    RichText content_;
    Paragraph paragraph_;
    Look look_;
    Format lastFormat_;
    std::size_t runCount_ = 0;
    std::size_t breaks_ = 0;  ///< ends of paragraphs beyond the bound, not yet followed by text
    bool bullet_ = false, labelled_ = false;
};

/// Reads an RTF text once from its start to its end, with the open groups on a stack of bounded height.
class Reader {
public:
    Reader(std::string_view rtf, const CodePages& pages) : tokens_(rtf), bytes_(pages) {}

    RichText read() {
        while (!ended_) step(tokens_.next());
        flush();
        return composer_.finish();
    }
    /// Whether nothing was passed over that another program shows.
    bool keepsAll() const { return keepsAll_; }

private:
    Group& group() { return groups_.back(); }
    bool skipping() { return tooDeep_ > 0 || group().part == RtfPart::Skipped; }

    void step(const RtfToken& token) {
        using Kind = RtfToken::Kind;
        if (token.kind != Kind::Byte && token.kind != Kind::Text) putBytes();
        switch (token.kind) {
            case Kind::Open:
                return openGroup();
            case Kind::Close:
                return closeGroup();
            case Kind::Byte:
                return readByte(token);
            case Kind::Text:
                return readText(token.text);
            case Kind::Symbol:
                return readSymbol(token.text);
            case Kind::Word:
                if (!skipping() || group().optional) readWord(token);
                return;
            case Kind::End:
                ended_ = true;
        }
    }

    void openGroup() {
        endFallback();
        if (groups_.size() > deepest) {
            ++tooDeep_;
        } else {
            groups_.push_back(Group(group()));
            group().optional = false;
        }
    }

    void closeGroup() {
        endFallback();
        if (tooDeep_ > 0) {
            --tooDeep_;
            return;
        }
        flush();
        const Group closed = groups_.back();
        groups_.pop_back();
        ended_ = groups_.size() <= 1;
        if (ended_ || closed.part == group().part) return;
        if (closed.part == RtfPart::Fonts) useFont(defaultFont_);
        if (closed.part == RtfPart::Numbering) group().format.bullet = closed.format.bullet;
        if (closed.part == RtfPart::Label) {
            composer_.label(label_, group().look, group().format);
            label_.clear();
        }
    }

    void endFallback() {
        toSkip_ = 0;
        skippedByte_ = 0;
    }

    /// True for a character that only stands in for the \u before it.
    bool takesFallback() {
        if (toSkip_ == 0) return false;
        --toSkip_;
        return true;
    }

    void readByte(const RtfToken& token) {
        const auto byte = static_cast<unsigned char>(token.number);
        const RtfEncoding encoding = group().encoding;
        const auto first = std::exchange(skippedByte_, static_cast<unsigned char>(0));
        if (takesFallback()) {
            skippedByte_ = RtfBytes::isPair(first, byte, encoding) ? 0 : byte;
        } else if (!encoding.western && RtfBytes::isPair(first, byte, encoding)) {
            // The whole pair was the fallback, whatever was counted.
        } else if (!skipping()) {
            bytes_.add(byte, encoding);
        }
    }

    void readText(std::string_view text) {
        const auto first = std::exchange(skippedByte_, static_cast<unsigned char>(0));
        // A pair that is a fallback ends with its second byte, which may be a plain letter.
        if (first != 0 && !group().encoding.western && toSkip_ == 0 &&
            RtfBytes::isPair(first, static_cast<unsigned char>(text.front()), group().encoding))
            text.remove_prefix(1);
        if (text.empty()) return;
        // The second byte of a pair may be a plain letter.
        if (bytes_.wants(text.front(), group().encoding)) {
            bytes_.add(static_cast<unsigned char>(text.front()), group().encoding);
            text.remove_prefix(1);
        }
        putBytes();
        if (toSkip_ > 0) {
            const std::size_t skipped = std::min(toSkip_, text.size());
            toSkip_ -= std::min(toSkip_, basics::characterCount(text.substr(0, skipped * 4)));
            text.remove_prefix(basics::byteOffset(text, skipped));
        }
        if (text.empty() || skipping()) return;
        if (basics::isUtf8(text)) {
            put(text);
        } else {
            put(basics::cleanUtf8(text));
        }
    }

    void readSymbol(std::string_view symbol) {
        switch (symbol.front()) {
            case '*':
                group().optional = tooDeep_ == 0;
                return;
            case '\r':
            case '\n':
                return endParagraph();
            case '~':
                return putSign("\u00A0");
            case '_':
                return putSign("-");
            case '\\':
            case '{':
            case '}':
                return readText(symbol);
            default:
                return;
        }
    }

    void putSign(std::string_view sign) {
        if (!takesFallback() && !skipping()) put(sign);
    }

    void readWord(const RtfToken& token) {
        const RtfWord* word = rtfWord(token.text);
        const bool optional = std::exchange(group().optional, false);
        if (word != nullptr && word->act == RtfAct::Sign && word->text != "\n" && word->text != "\t") {
            return putSign(word->text);
        }
        endFallback();
        if (word == nullptr || skipping()) {
            if (optional) group().part = RtfPart::Skipped;
            return;
        }
        if (word->act == RtfAct::Part) {
            if (word->text == "shown") keepsAll_ = keepsAll_ && group().part != RtfPart::Body;
            enterPart(static_cast<RtfPart>(word->value));
        } else if (!documentWord(word->act, token)) {
            partWord(*word, token);
        }
    }

    void enterPart(RtfPart part) {
        const RtfPart present = group().part;
        if (part == RtfPart::Inner) {
            if (present == RtfPart::Outer) group().part = RtfPart::Body;
        } else if (present == RtfPart::Body || part == RtfPart::Skipped) {
            group().part = part;
            if (part == RtfPart::Numbering) group().format.bullet = false;
        }
    }

    /// The words that mean the same in every part.
    bool documentWord(RtfAct act, const RtfToken& token) {
        switch (act) {
            case RtfAct::Character:
                if (token.numbered) readUnit(token.number);
                return true;
            case RtfAct::FallbackLength:
                group().fallback = std::clamp(token.number, 0, INT16_MAX);
                return true;
            case RtfAct::DocumentPage:
                tables_.setDocumentPage(token.number);
                group().encoding = tables_.plainEncoding();
                return true;
            case RtfAct::DefaultFont:
                defaultFont_ = token.number;
                group().look.font = defaultFont_;
                return true;
            default:
                return false;
        }
    }

    void partWord(const RtfWord& word, const RtfToken& token) {
        switch (group().part) {
            case RtfPart::Body:
            case RtfPart::Label:
                if (word.act == RtfAct::Sign) put(word.text);
                if (word.act == RtfAct::EndParagraph) endParagraph();
                lookWord(word, token);
                formatWord(word, token.number);
                return;
            case RtfPart::Numbering:
                if (word.act == RtfAct::Bullet) group().format.bullet = true;
                return;
            default:
                tables_.word(group().part, word, token.number, group().encoding);
        }
    }

    void lookWord(const RtfWord& word, const RtfToken& token) {
        Look& look = group().look;
        const bool on = word.value != 0 && (!token.numbered || token.number != 0);
        switch (word.act) {
            case RtfAct::Bold:
                look.bold = on;
                return;
            case RtfAct::Italic:
                look.italic = on;
                return;
            case RtfAct::Underline:
                look.underline = on;
                return;
            case RtfAct::Strike:
                look.strike = on;
                return;
            case RtfAct::Hidden:
                look.hidden = on;
                return;
            case RtfAct::Font:
                return useFont(token.number);
            case RtfAct::Size:
                if (token.number > 0) look.halfPoints = std::min(token.number, largestHalfPoints);
                return;
            case RtfAct::ColourIndex:
                look.colour = token.number;
                return;
            case RtfAct::GroundIndex:
                look.ground = token.number;
                return;
            case RtfAct::Unkept:
                keepsAll_ = keepsAll_ && !on;
                return;
            case RtfAct::PlainCharacters:
                look = Look{};
                return useFont(defaultFont_);
            default:
                return;
        }
    }

    void formatWord(const RtfWord& word, int number) {
        Format& format = group().format;
        switch (word.act) {
            case RtfAct::Align:
                format.alignment = static_cast<Alignment>(word.value);
                return;
            case RtfAct::LeftIndent:
                format.left = std::clamp(number, -farthest, farthest);
                return;
            case RtfAct::FirstIndent:
                format.first = std::clamp(number, -farthest, farthest);
                return;
            case RtfAct::ListNumber:
                format.list = number;
                return;
            case RtfAct::PlainParagraph:
                format = Format{};
                return;
            default:
                return;
        }
    }

    void useFont(int font) {
        group().look.font = font;
        group().encoding = tables_.encoding(font);
    }

    void readUnit(int number) {
        if (number < 0) number += 0x10000;
        const auto unit = static_cast<char32_t>(number < 0 || number > 0x10FFFF ? 0xFFFD : number);
        if (isLowSurrogate(unit) && surrogate_ != 0) {
            const char32_t high = std::exchange(surrogate_, U'\0');
            put(basics::toUtf8(0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00)));
        } else if (isHighSurrogate(unit)) {
            flush();
            surrogate_ = unit;
        } else if (unit == 0x2028) {
            put("\n");
        } else if (unit >= U' ' || unit == U'\t') {
            put(basics::toUtf8(unit));
        }
        toSkip_ = static_cast<std::size_t>(group().fallback);
    }

    void endParagraph() {
        if (skipping() || group().part != RtfPart::Body) return;
        flush();
        composer_.endParagraph(group().format);
    }

    /// The bytes that have gathered, as text of the group that they stand in.
    void putBytes() {
        if (!bytes_.empty()) put(bytes_.take());
    }

    /// What waits for more of itself and gets none.
    void flush() {
        putBytes();
        if (std::exchange(surrogate_, U'\0') != 0) put("\uFFFD");
    }

    void put(std::string_view text) {
        if (std::exchange(surrogate_, U'\0') != 0) put("\uFFFD");
        switch (group().part) {
            case RtfPart::Body:
                if (!group().look.hidden) composer_.append(text, group().look, group().format);
                return;
            case RtfPart::Label:
                if (label_.size() + text.size() <= longestLabel) label_ += text;
                return;
            default:
                tables_.text(group().part, text);
        }
    }

    RtfTokens tokens_;
    RtfTables tables_;
    RtfBytes bytes_;
    Composer composer_{tables_};
    std::vector<Group> groups_{Group{}};
    std::string label_;
    std::size_t tooDeep_ = 0, toSkip_ = 0;
    int defaultFont_ = 0;
    char32_t surrogate_ = 0;
    unsigned char skippedByte_ = 0;
    bool ended_ = false, keepsAll_ = true;
};

/// What may stand before an RTF content: a byte order mark, blanks and line ends.
std::string_view withoutLead(std::string_view text) {
    constexpr std::string_view mark = "\xef\xbb\xbf";
    if (text.starts_with(mark)) text.remove_prefix(mark.size());
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    return text;
}

}  // namespace

bool looksLikeRtf(std::string_view text) {
    return withoutLead(text).starts_with("{\\rtf");
}

RichText readRtf(std::string_view rtf, const CodePages& pages) {
    return looksLikeRtf(rtf) ? Reader(withoutLead(rtf), pages).read() : tidied(richText(rtf));
}

bool keepsAll(std::string_view rtf) {
    if (!looksLikeRtf(rtf)) return true;
    const CodePages none;
    Reader reader(withoutLead(rtf), none);
    static_cast<void>(reader.read());
    return reader.keepsAll();
}

}  // namespace zelvo::screen
