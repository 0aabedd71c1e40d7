#include "platform/qt/PageStyle.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "basics/Text.h"
#include "basics/Utf8.h"
#include "platform/qt/Contrast.h"
#include "platform/qt/PageTree.h"
#include "platform/qt/Texts.h"

namespace zelvo::qt {

namespace {

constexpr double smallestPixels = 6, largestPixels = 96, pixelsPerPoint = 96.0 / 72;
constexpr std::size_t mostFamilies = 3, longestValue = 200;

/// The number that a text begins with, and what stands behind it.
std::optional<double> numberAt(std::string_view& text) {
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
    return std::clamp(number, -1e6, 1e6);
}

/// Every size is a font that has to be loaded: they come in steps.
int stepped(double pixels) {
    constexpr std::array steps{6, 8, 9, 10, 11, 12, 13, 14, 15, 16, 18, 20, 22, 24, 28, 32, 40, 48, 64, 96};
    const double bounded = std::clamp(pixels, smallestPixels, largestPixels);
    const auto* nearest = std::min_element(steps.begin(), steps.end(), [&](int one, int other) {
        return std::abs(one - bounded) < std::abs(other - bounded);
    });
    return *nearest;
}

std::optional<double> pixelsOf(std::string_view value, int inherited) {
    const auto number = numberAt(value);
    if (!number || *number < 0) return std::nullopt;
    if (value == "px") return *number;
    if (value == "pt") return *number * pixelsPerPoint;
    if (value == "em") return *number * inherited;
    if (value == "rem") return *number * PageLook().pixels;
    if (value == "%") return *number * inherited / 100;
    return std::nullopt;
}

/// "rgb(1, 2, 3)", "rgba(1 2 3 / 50%)".
std::optional<QColor> partsColour(std::string_view text) {
    std::array<double, 4> parts{0, 0, 0, 1};
    std::size_t count = 0;
    for (text = text.substr(text.find('(') + 1); count < parts.size() && !text.empty();) {
        if (text.front() == ' ' || text.front() == ',' || text.front() == '/') {
            text.remove_prefix(1);
            continue;
        }
        const auto number = numberAt(text);
        if (!number) break;
        const bool percent = text.starts_with('%');
        if (percent) text.remove_prefix(1);
        const double whole = count < 3 ? 255 : 1;
        parts[count++] = std::clamp((percent ? *number * whole / 100 : *number) / whole, 0.0, 1.0);
    }
    if (count < 3) return std::nullopt;
    const auto part = [&](std::size_t i) { return static_cast<float>(count > i || i < 3 ? parts[i] : 1); };
    return QColor::fromRgbF(part(0), part(1), part(2), part(3));
}

/// "#36c", "#3366cc", "#3366cc80", "navy"; old pages leave the sign out.
std::optional<QColor> namedColour(std::string_view text) {
    const QString name = qtText(text);
    QColor color;
    if (text.starts_with('#') && text.size() == 9) {
        color = QColor(QLatin1Char('#') + name.mid(7, 2) + name.mid(1, 6));
    } else if (text.size() < 30) {
        color = QColor(name);
        if (!color.isValid() && text.size() == 6) color = QColor(QLatin1Char('#') + name);
    }
    if (!color.isValid()) return std::nullopt;
    return color;
}

/// The declarations of a style attribute, the last of a property.
std::string declared(std::string_view declarations, std::string_view property) {
    std::string found;
    for (const std::string& declaration : basics::split(declarations, ";")) {
        const auto colon = declaration.find(':');
        if (colon == std::string::npos || basics::trim(declaration.substr(0, colon)) != property) continue;
        const std::string value = basics::trim(declaration.substr(colon + 1));
        if (value.size() <= longestValue) found = value.substr(0, value.find('!'));
    }
    return basics::trim(found);
}

/// The colour among the words of a "background".
std::optional<QColor> groundOf(std::string_view value, const QColor& under) {
    if (const auto whole = pageColour(value, under)) return whole;
    if (const auto at = value.find("rgb"); at != std::string_view::npos)
        return pageColour(value.substr(at, value.find(')', at) - at + 1), under);
    for (const std::string& word : basics::split(value, " ")) {
        if (const auto color = pageColour(word, under)) return color;
    }
    return std::nullopt;
}

/// The properties that take one of a few words.
std::string plainStyle(std::string_view declarations) {
    struct Property {
        std::string_view name, values;  ///< " value value "
    };
    constexpr std::array properties{Property{"font-style", " normal italic oblique "},
                                    Property{"font-weight", " normal bold bolder 500 600 700 800 900 "},
                                    Property{"text-align", " left center right justify "},
                                    Property{"text-decoration", " none underline line-through overline "}};
    std::string style;
    for (const Property& property : properties) {
        const std::string value = declared(declarations, property.name);
        const bool oneWord = !value.empty() && value.find(' ') == std::string::npos;
        if (oneWord && property.values.find(" " + value + " ") != std::string_view::npos)
            style.append(property.name).append(":").append(value).append(";");
    }
    return style;
}

std::string hexName(const QColor& color) {
    return utf8(color.name());
}

bool paints(GumboTag tag) {
    return tag == GUMBO_TAG_BODY || tag == GUMBO_TAG_TABLE || tag == GUMBO_TAG_TD || tag == GUMBO_TAG_TH;
}

}  // namespace

std::optional<QColor> pageColour(std::string_view text, const QColor& under) {
    const auto color = text.starts_with("rgb") ? partsColour(text) : namedColour(text);
    if (!color || color->alpha() == 0) return std::nullopt;
    QColor opaque = *color;
    opaque.setAlpha(255);
    return blended(opaque, under, color->alphaF());
}

std::string PageStyle::lookOf(const GumboNode& element, bool block, PageLook& look) {
    const GumboTag tag = element.v.element.tag;
    const std::string declarations = basics::foldCase(PageTree::attribute(element, "style"));
    std::optional<QColor> own = pageColour(declared(declarations, "background-color"), look.ground);
    if (!own) own = groundOf(declared(declarations, "background"), look.ground);
    if (!own) own = pageColour(basics::foldCase(PageTree::attribute(element, "bgcolor")), look.ground);
    if (own) look.ground = *own;

    std::optional<QColor> colour = pageColour(declared(declarations, "color"), look.ground);
    const char* const attribute = tag == GUMBO_TAG_BODY ? "text" : "color";
    if (!colour) colour = pageColour(basics::foldCase(PageTree::attribute(element, attribute)), look.ground);
    const bool link = tag == GUMBO_TAG_A && !PageTree::attribute(element, "href").empty();
    if (!colour && link) colour = QColor(paperLink);
    if (colour) look.wanted = *colour;

    std::string style = plainStyle(declarations) + fontOf(declarations, look);
    const QColor shown = readableOn(look.ground, look.wanted);
    if (shown != look.shown || link) style += "color:" + hexName(shown) + ";";
    look.shown = shown;
    if ((block && look.ground != look.painted) || (!block && own))
        style += "background-color:" + hexName(look.ground) + ";";
    if (paints(tag)) look.painted = look.ground;
    return style;
}

std::string PageStyle::fontOf(std::string_view declarations, PageLook& look) {
    std::string style;
    if (const auto pixels = pixelsOf(declared(declarations, "font-size"), look.pixels)) {
        look.pixels = stepped(*pixels);
        style = "font-size:" + std::to_string(look.pixels) + "px;";
    }
    return style + familyOf(declared(declarations, "font-family"));
}

std::string PageStyle::familyOf(std::string value) {
    value = basics::trim(value.substr(0, value.find(',')));
    std::erase_if(value,
                  [](char byte) { return byte == '"' || byte == '\'' || byte == ';' || byte == '\\'; });
    if (value.empty() || value.size() > 60) return {};
    if (!families_.contains(value) && families_.size() >= mostFamilies) return {};
    families_.insert(value);
    return "font-family:'" + value + "';";
}

}  // namespace zelvo::qt
