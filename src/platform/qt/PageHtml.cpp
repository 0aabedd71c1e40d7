#include "platform/qt/PageHtml.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <vector>

#include "basics/Numbers.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "platform/qt/TableRoom.h"

namespace zelvo::qt {

namespace {

constexpr std::size_t mostElements = 20'000;
constexpr std::size_t mostText = 1'000'000;  ///< bytes
constexpr std::size_t longestWord = 2'000;   ///< bytes without a blank; a line break comes then
constexpr std::size_t deepest = 60;          ///< elements within each other
constexpr std::size_t deepestTables = 8;     ///< each level doubles the layout's work
constexpr std::size_t mostRemembered = 80;   ///< open elements, those that are left out included
constexpr std::size_t mostPictures = 200;
constexpr std::size_t mostTags = 100'000;  ///< that are looked at

using Names = std::string_view;  ///< " name name "

constexpr Names blocks =
    " address blockquote center dd div dl dt h1 h2 h3 h4 h5 h6 hr li ol p pre table tbody td tfoot th thead "
    "tr ul ";
constexpr Names inlines =
    " a abbr b big br cite code del dfn em font i img kbd s samp small span strike strong sub sup tt u var ";
/// Parts of a page that are blocks of no look of their own.
constexpr Names divisions = " article aside figure figcaption footer form header main nav section ";
constexpr Names voids = " br hr img ";
/// What stands between their tags is not for reading.
constexpr Names unread = " script style title template svg select textarea iframe object noscript ";
constexpr Names tableParts = " tbody td tfoot th thead tr ";
constexpr Names keptAttributes =
    " align alt bgcolor border cellpadding cellspacing color colspan face height href id name rowspan size "
    "src start style title type valign width ";
constexpr Names keptStyles =
    " background-color color font-family font-size font-style font-weight text-align text-decoration ";

bool isIn(Names names, std::string_view name) {
    for (auto at = names.find(name); at != Names::npos; at = names.find(name, at + 1)) {
        const std::size_t end = at + name.size();
        if (at > 0 && names[at - 1] == ' ' && end < names.size() && names[end] == ' ') return true;
    }
    return false;
}

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// The largest measure of an attribute; 0 for one that is none.
int largest(std::string_view attribute) {
    struct Bound {
        std::string_view attribute;
        int most;
    };
    constexpr std::array bounds{Bound{"width", 4000},
                                Bound{"height", 4000},
                                Bound{"border", 20},
                                Bound{"cellpadding", 100},
                                Bound{"cellspacing", 100},
                                Bound{"colspan", 20},
                                Bound{"rowspan", TableRoom::longestSpan},
                                Bound{"size", 7},
                                Bound{"start", 100'000}};
    const auto* const found = std::find_if(bounds.begin(), bounds.end(),
                                           [&](const Bound& bound) { return bound.attribute == attribute; });
    return found == bounds.end() ? 0 : found->most;
}

/// A measure within its bound; nothing for what is no measure.
std::optional<std::string> boundedMeasure(std::string_view value, int most) {
    const std::string_view sign = value.starts_with('+') || value.starts_with('-') ? value.substr(0, 1) : "";
    int number = 0;
    const char* const end = value.data() + value.size();
    const auto read = std::from_chars(value.data() + sign.size(), end, number);
    if (read.ec == std::errc::result_out_of_range) number = most;
    if (read.ec == std::errc::invalid_argument) return std::nullopt;
    const bool percent = read.ptr != end && *read.ptr == '%';
    return std::string(sign) + std::to_string(std::min(number, percent ? 100 : most)) + (percent ? "%" : "");
}

/// What a measure within its bound says as a span.
std::size_t spanOf(const std::string& measure) {
    return static_cast<std::size_t>(std::max(basics::numberFromStart(measure), 1.0));
}

/// A declaration's value with sizes of at most three digits and nothing that is fetched.
bool isModest(std::string_view value) {
    std::size_t digits = 0;
    for (const char c : value) {
        digits = c >= '0' && c <= '9' ? digits + 1 : 0;
        if (digits > 3) return false;
    }
    return value.size() <= 60 && value.find("url") == std::string_view::npos;
}

std::string modestStyle(std::string_view style) {
    std::string kept;
    for (const std::string& declaration : basics::split(basics::foldCase(style), ";")) {
        const auto colon = declaration.find(':');
        if (colon == std::string::npos) continue;
        const std::string property = basics::trim(declaration.substr(0, colon));
        const std::string value = basics::trim(declaration.substr(colon + 1));
        const bool colour = property.ends_with("color") && value.size() <= 30;
        if (isIn(keptStyles, property) && (colour || isModest(value)))
            kept.append(property).append(":").append(value).append(";");
    }
    return kept;
}

struct Tag {
    std::string name;
    bool closes = false;                ///< "</name>"
    std::string attributes;             ///< as they are written out, each behind a blank
    std::size_t columns = 1, rows = 1;  ///< that a cell spans
    std::size_t end = 0;                ///< behind the '>'
};

/// Reads tags and writes down those that stay.
class Reader {
public:
    explicit Reader(std::string_view html) : html_(html) {}
    std::string read();

private:
    struct Open {
        std::string name;
        bool written = false;
    };
    std::optional<std::size_t> notAnElement(std::size_t at) const;
    std::optional<Tag> tagAt(std::size_t at) const;
    void readAttribute(std::size_t& at, Tag& tag) const;
    void passUnread(const std::string& name, std::size_t& at) const;
    void text(std::string_view piece);
    void opens(const Tag& tag);
    void closes(std::string_view name);
    bool isWanted(const Tag& tag);
    void makeRoomFor(std::string_view name);
    void closeUpTo(Names names, Names barriers);
    void pop();

    std::string_view html_;
    std::string out_;
    std::vector<Open> open_;
    TableRoom tables_;
    std::size_t depth_ = 0, elements_ = 0, tags_ = 0, pictures_ = 0, text_ = 0, word_ = 0;
};

std::string Reader::read() {
    for (std::size_t at = 0; at < html_.size() && text_ < mostText;) {
        const std::size_t bracket = std::min(html_.find('<', at), html_.size());
        text(html_.substr(at, bracket - at));
        at = bracket;
        if (at == html_.size()) break;
        if (const auto behind = notAnElement(at)) {
            at = *behind;
            continue;
        }
        const auto tag = tagAt(at);
        if (!tag) {
            text(html_.substr(at++, 1));
            continue;
        }
        at = tag->end;
        if (!tag->closes && isIn(unread, tag->name)) {
            passUnread(tag->name, at);
        } else if (++tags_ <= mostTags) {
            tag->closes ? closes(tag->name) : opens(*tag);
        }
    }
    while (!open_.empty()) pop();
    return std::move(out_);
}

/// Behind a comment or a declaration, if one begins here.
std::optional<std::size_t> Reader::notAnElement(std::size_t at) const {
    const std::string_view rest = html_.substr(at);
    const bool comment = rest.starts_with("<!--");
    if (!comment && !rest.starts_with("<!") && !rest.starts_with("<?")) return std::nullopt;
    const std::string_view mark = comment ? "-->" : ">";
    const auto end = html_.find(mark, at + (comment ? 4 : 2));
    return end == std::string_view::npos ? html_.size() : end + mark.size();
}

std::optional<Tag> Reader::tagAt(std::size_t at) const {
    Tag tag;
    ++at;
    if (at < html_.size() && html_[at] == '/') {
        tag.closes = true;
        ++at;
    }
    const std::size_t start = at;
    while (at < html_.size() && (isLetter(html_[at]) || (at > start && html_[at] >= '0' && html_[at] <= '9')))
        ++at;
    if (at == start) return std::nullopt;
    tag.name = basics::foldCase(html_.substr(start, at - start));
    if (isIn(divisions, tag.name)) tag.name = "div";
    while (at < html_.size() && html_[at] != '>') readAttribute(at, tag);
    tag.end = std::min(at + 1, html_.size());
    return tag;
}

/// One attribute, or one character that belongs to none.
void Reader::readAttribute(std::size_t& at, Tag& tag) const {
    const auto isNamePart = [](char c) { return isLetter(c) || c == '-'; };
    const auto skipBlanks = [&] {
        while (at < html_.size() && isBlank(html_[at])) ++at;
    };
    const std::size_t start = at;
    while (at < html_.size() && isNamePart(html_[at])) ++at;
    if (at == start) {
        ++at;
        return;
    }
    const std::string name = basics::foldCase(html_.substr(start, at - start));
    skipBlanks();
    if (at >= html_.size() || html_[at] != '=') return;
    ++at;
    skipBlanks();
    if (at >= html_.size()) return;
    const char quote = html_[at] == '"' || html_[at] == '\'' ? html_[at++] : '\0';
    const std::size_t from = at;
    if (quote != '\0') {
        at = std::min(html_.find(quote, at), html_.size());
    } else {
        while (at < html_.size() && !isBlank(html_[at]) && html_[at] != '>') ++at;
    }
    std::string value(html_.substr(from, at - from));
    if (quote != '\0' && at < html_.size()) ++at;
    if (!isIn(keptAttributes, name)) return;
    if (const int most = largest(name); most > 0) value = boundedMeasure(value, most).value_or("");
    if (name == "colspan") tag.columns = spanOf(value);
    if (name == "rowspan") tag.rows = spanOf(value);
    if (name == "style") value = modestStyle(value);
    if (value.empty()) return;
    value = basics::replaceAll(basics::replaceAll(value, "\"", "&quot;"), "<", "&lt;");
    tag.attributes += " " + name + "=\"" + value + "\"";
}

void Reader::passUnread(const std::string& name, std::size_t& at) const {
    for (;;) {
        const auto mark = html_.find("</", at);
        if (mark == std::string_view::npos) break;
        at = mark + 2;
        if (basics::foldCase(html_.substr(at, name.size())) != name) continue;
        at = html_.find('>', at);
        if (at != std::string_view::npos) {
            ++at;
            return;
        }
        break;
    }
    at = html_.size();
}

void Reader::text(std::string_view piece) {
    for (const char c : piece) {
        word_ = isBlank(c) ? 0 : word_ + 1;
        const bool characterStarts = (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
        if (word_ > longestWord && characterStarts) {
            out_ += "<br>";
            word_ = 0;
        }
        if (c == '<') {
            out_ += "&lt;";
        } else {
            out_ += c;
        }
    }
    text_ += piece.size();
}

void Reader::opens(const Tag& tag) {
    if (!isIn(blocks, tag.name) && !isIn(inlines, tag.name)) return;
    makeRoomFor(tag.name);
    const bool isVoid = isIn(voids, tag.name);
    if (!isVoid && open_.size() >= mostRemembered) return;
    const bool stays = isWanted(tag);
    if (stays) {
        ++elements_;
        out_ += "<" + tag.name + tag.attributes + ">";
        if (tag.name == "br" || isIn(blocks, tag.name)) word_ = 0;
    }
    if (isVoid) return;
    open_.push_back({tag.name, stays});
    depth_ += stays ? 1U : 0U;
    if (stays && tag.name == "table") tables_.open();
}

/// What stands in a table or a row that was left out is left out with it, all but its texts.
bool Reader::isWanted(const Tag& tag) {
    if (elements_ >= mostElements || depth_ >= deepest) return false;
    if (tag.name == "img") return ++pictures_ <= mostPictures;
    if (tag.name == "table") return tables_.depth() < deepestTables;
    if (!isIn(tableParts, tag.name)) return true;
    const auto holder = std::find_if(open_.rbegin(), open_.rend(),
                                     [](const Open& open) { return isIn(" table tr ", open.name); });
    if (holder == open_.rend() || !holder->written) return false;
    if (tag.name == "tr") return tables_.takesRow();
    return isIn(" td th ", tag.name) ? tables_.takesCell(tag.columns, tag.rows) : true;
}

/// Ends what a new element ends by itself: a row the row before it, a block the paragraph before it.
void Reader::makeRoomFor(std::string_view name) {
    if (name == "li") {
        closeUpTo(" li ", " ul ol table td th ");
    } else if (name == "dt" || name == "dd") {
        closeUpTo(" dt dd ", " dl table td th ");
    } else if (name == "td" || name == "th") {
        closeUpTo(" td th ", " table tbody thead tfoot tr ");
    } else if (name == "tr") {
        closeUpTo(" tr ", " table tbody thead tfoot ");
    } else if (name == "tbody" || name == "thead" || name == "tfoot") {
        closeUpTo(" tbody thead tfoot ", " table ");
    } else if (isIn(blocks, name)) {
        closeUpTo(" p ", blocks);
    }
}

/// Closes the innermost element of these names, if no barrier stands before it.
void Reader::closeUpTo(Names names, Names barriers) {
    const auto found = std::find_if(open_.rbegin(), open_.rend(), [&](const Open& open) {
        return isIn(names, open.name) || isIn(barriers, open.name);
    });
    if (found == open_.rend() || !isIn(names, found->name)) return;
    for (auto count = found - open_.rbegin(); count >= 0; --count) pop();
}

/// What ends in a table's cell ends nothing around it.
void Reader::closes(std::string_view name) {
    const Names barriers = name == "table" ? " " : isIn(tableParts, name) ? " table " : " table td th ";
    closeUpTo(" " + std::string(name) + " ", barriers);
}

void Reader::pop() {
    const Open& last = open_.back();
    if (last.written) {
        out_ += "</" + last.name + ">";
        --depth_;
        if (last.name == "table") tables_.close();
    }
    open_.pop_back();
}

}  // namespace

std::string readablePage(std::string_view html) {
    return Reader(html).read();
}

}  // namespace zelvo::qt
