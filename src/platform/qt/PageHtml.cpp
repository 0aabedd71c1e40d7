#include "platform/qt/PageHtml.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <vector>

#include "basics/Numbers.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "platform/qt/PageRoom.h"
#include "platform/qt/PageStyle.h"
#include "platform/qt/PageTree.h"

namespace zelvo::qt {

namespace {

constexpr std::size_t longestWord = 500;  ///< characters without a blank; a line break comes then
constexpr std::size_t deepest = 60;       ///< elements within each other
constexpr const char* cutWord =
    "<p>… (공지사항이 너무 길어 여기까지만 표시합니다. 전체는 인터넷 브라우저로 여십시오.)</p>";

using Names = std::string_view;  ///< " name name "

constexpr Names blocks =
    " address blockquote body center dd div dl dt h1 h2 h3 h4 h5 h6 hr li ol p pre table tbody td tfoot th "
    "thead tr ul ";
constexpr Names inlines =
    " a abbr b big br cite code del dfn em font i img kbd s samp small span strike strong sub sup tt u var ";
/// Parts of a page that are blocks of no look of their own.
constexpr Names divisions =
    " article aside figure figcaption footer form header main nav noscript section summary details caption ";
constexpr Names voids = " br hr img ";
/// What stands between their tags is not for reading.
constexpr Names unread = " script style title template svg select textarea iframe object head frameset ";
constexpr Names keptAttributes =
    " align alt border cellpadding cellspacing colspan face height href id name rowspan size src start title "
    "type valign width ";

bool isIn(Names names, std::string_view name) {
    if (name.empty()) return false;
    for (auto at = names.find(name); at != Names::npos; at = names.find(name, at + 1)) {
        const std::size_t end = at + name.size();
        if (at > 0 && names[at - 1] == ' ' && end < names.size() && names[end] == ' ') return true;
    }
    return false;
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

/// A measure within its bound; "" for what is no measure.
std::string boundedMeasure(std::string_view value, int most) {
    const std::string_view sign = value.starts_with('+') || value.starts_with('-') ? value.substr(0, 1) : "";
    int number = 0;
    const char* const end = value.data() + value.size();
    const auto read = std::from_chars(value.data() + sign.size(), end, number);
    if (read.ec == std::errc::result_out_of_range) number = most;
    if (read.ec == std::errc::invalid_argument) return {};
    const bool percent = read.ptr != end && *read.ptr == '%';
    return std::string(sign) + std::to_string(std::min(number, percent ? 100 : most)) + (percent ? "%" : "");
}

std::string escaped(std::string_view text) {
    std::string safe;
    for (const char byte : text) {
        const std::string_view name = byte == '<'   ? "&lt;"
                                      : byte == '>' ? "&gt;"
                                      : byte == '&' ? "&amp;"
                                      : byte == '"' ? "&quot;"
                                                    : std::string_view();
        if (name.empty()) {
            safe += byte;
        } else {
            safe += name;
        }
    }
    return safe;
}

/// Latin letters and Hangul are in every font here.
bool isPlain(char32_t character) {
    return character < 0x300 || (character >= 0x3000 && character < 0xD7A4);
}

/// Writes down what stays of a tree.
class Writer {
public:
    std::string write(const GumboNode& body);
    bool shown() const { return shown_; }
    void text(std::string_view text, int pixels);
    std::string take() { return std::move(out_); }

private:
    /// An element whose children are being written.
    struct Open {
        const GumboNode* node = nullptr;
        std::string name;  ///< as it was written, "" where it was left out
        PageLook look;
        unsigned next = 0;  ///< child
    };
    void enter(const GumboNode& node, const PageLook& look);
    bool isWanted(const GumboNode& node, std::string_view name);
    void leave();
    std::string attributesOf(const GumboNode& node) const;

    std::string out_;
    std::vector<Open> open_;
    PageStyle style_;
    PageRoom room_;
    std::size_t written_ = 0, word_ = 0;
    bool shown_ = false, cut_ = false;
};

std::string Writer::write(const GumboNode& body) {
    enter(body, {});
    while (!open_.empty()) {
        Open& last = open_.back();
        const GumboVector& children = last.node->v.element.children;
        if (cut_ || last.next == children.length) {
            leave();
            continue;
        }
        const auto& child = *static_cast<const GumboNode*>(children.data[last.next++]);
        if (child.type == GUMBO_NODE_ELEMENT) {
            const PageLook look = last.look;
            enter(child, look);
        } else if (child.type == GUMBO_NODE_TEXT || child.type == GUMBO_NODE_WHITESPACE ||
                   child.type == GUMBO_NODE_CDATA) {
            text(child.v.text.text, last.look.pixels);
        }
    }
    return take();
}

void Writer::enter(const GumboNode& node, const PageLook& outer) {
    const bool foreign = node.v.element.tag_namespace != GUMBO_NAMESPACE_HTML;
    std::string name = gumbo_normalized_tagname(node.v.element.tag);
    if (foreign || isIn(unread, name)) return;
    if (isIn(divisions, name)) name = "div";
    const bool block = isIn(blocks, name), known = block || isIn(inlines, name);
    Open open{&node, {}, outer};
    if (known && written_ < deepest && isWanted(node, name)) {
        const std::string style = style_.lookOf(node, block, open.look);
        out_ += "<" + name + attributesOf(node) + (style.empty() ? "" : " style=\"" + escaped(style) + "\"") +
                ">";
        if (name == "br" || block) word_ = 0;
        if (name == "img") shown_ = true;
        if (isIn(voids, name)) return;
        open.name = name;
        ++written_;
    }
    open_.push_back(std::move(open));
}

/// What stands in a table or a row that was left out is left out with it, all but its texts.
bool Writer::isWanted(const GumboNode& node, std::string_view name) {
    if (cut_) return false;
    const auto inside = [this](Names names) {
        const auto holder = std::find_if(open_.rbegin(), open_.rend(), [&](const Open& open) {
            return isIn(names, gumbo_normalized_tagname(open.node->v.element.tag));
        });
        return holder != open_.rend() && !holder->name.empty();
    };
    const auto span = [&](const char* attribute) {
        const std::string measure = boundedMeasure(PageTree::attribute(node, attribute), largest(attribute));
        return static_cast<std::size_t>(std::max(basics::numberFromStart(measure), 1.0));
    };
    if (name == "img") return room_.takesPicture();
    if (name == "li") return room_.takesItem();
    if (name == "table") return room_.opensTable();
    if (name == "tr") return inside(" table ") && room_.takesRow();
    if (name == "td" || name == "th")
        return inside(" tr table ") && room_.takesCell(span("colspan"), span("rowspan"));
    if (isIn(" tbody thead tfoot ", name)) return inside(" table ");
    return room_.takesElement() || (cut_ = true, false);
}

void Writer::leave() {
    const Open& last = open_.back();
    if (!last.name.empty()) {
        if (last.name == "body" && cut_) out_ += cutWord;
        out_ += "</" + last.name + ">";
        --written_;
        if (last.name == "table") room_.closesTable();
    }
    open_.pop_back();
}

std::string Writer::attributesOf(const GumboNode& node) const {
    std::string written;
    const GumboVector& attributes = node.v.element.attributes;
    for (unsigned i = 0; i < attributes.length; ++i) {
        const auto& attribute = *static_cast<const GumboAttribute*>(attributes.data[i]);
        if (!isIn(keptAttributes, attribute.name)) continue;
        std::string value = attribute.value;
        if (const int most = largest(attribute.name); most > 0) value = boundedMeasure(value, most);
        if (!value.empty()) written += std::string(" ") + attribute.name + "=\"" + escaped(value) + "\"";
    }
    return written;
}

void Writer::text(std::string_view text, int pixels) {
    std::size_t plain = 0, rare = 0, from = 0;
    for (std::size_t at = 0; at < text.size() && !cut_;) {
        const char32_t character = basics::characterAt(text, at);
        const bool blank = character <= U' ';
        ++(isPlain(character) ? plain : rare);
        shown_ = shown_ || !blank;
        word_ = blank ? 0 : word_ + 1;
        if (word_ > longestWord) {
            out_ += escaped(text.substr(from, at - from)) + "<br>";
            from = at;
            word_ = 1;
        }
        at += basics::byteOffset(text.substr(at, 4), 1);
        constexpr std::size_t stretch = 1000;
        if (plain + rare < stretch && at < text.size()) continue;
        cut_ = !room_.takesText(plain, rare, pixels);
        plain = rare = 0;
        if (cut_) text = text.substr(0, at);
    }
    out_ += escaped(text.substr(from));
}

/// "0; url=next.html": the address of one that comes at once.
std::string forwardOf(std::string_view content) {
    constexpr double soon = 5;
    const auto separator = content.find_first_of(";,");
    if (separator == std::string_view::npos || basics::numberFromStart(content.substr(0, separator)) > soon)
        return {};
    std::string address = basics::trim(content.substr(separator + 1));
    if (basics::foldCase(address.substr(0, 3)) == "url")
        address = basics::trim(address.substr(std::min(address.find('=') + 1, address.size())));
    std::erase_if(address, [](char byte) { return byte == '"' || byte == '\''; });
    return address;
}

/// What a page's head says of where it stands and where it goes.
void readHead(const GumboNode& head, ReadablePage& page) {
    const GumboVector& children = head.v.element.children;
    for (unsigned i = 0; i < children.length; ++i) {
        const auto& child = *static_cast<const GumboNode*>(children.data[i]);
        if (child.type != GUMBO_NODE_ELEMENT) continue;
        if (child.v.element.tag == GUMBO_TAG_BASE && page.base.empty())
            page.base = PageTree::attribute(child, "href");
        if (child.v.element.tag == GUMBO_TAG_META &&
            basics::foldCase(PageTree::attribute(child, "http-equiv")) == "refresh")
            page.forward = forwardOf(PageTree::attribute(child, "content"));
    }
}

}  // namespace

ReadablePage readablePage(std::string_view html) {
    ReadablePage page;
    const PageTree tree(html);
    if (!tree.root()) return page;
    if (const GumboNode* head = PageTree::child(*tree.root(), GUMBO_TAG_HEAD)) readHead(*head, page);
    if (const GumboNode* body = PageTree::child(*tree.root(), GUMBO_TAG_BODY)) {
        Writer writer;
        page.html = writer.write(*body);
        page.shown = writer.shown();
    }
    return page;
}

ReadablePage readableText(std::string_view text) {
    Writer writer;
    writer.text(text, PageLook().pixels);
    return {"<div style=\"white-space:pre-wrap\">" + writer.take() + "</div>", {}, {}, writer.shown()};
}

}  // namespace zelvo::qt
