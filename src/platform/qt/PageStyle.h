#pragma once

#include <gumbo.h>

#include <QtGui/QColor>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace zelvo::qt {

/// How the text of an element looks, as far as its readers' eyes and a layout's time depend on it.
struct PageLook {
    QColor ground{Qt::white};   ///< that it stands on
    QColor painted{Qt::white};  ///< that a cell or the page has under it already
    QColor wanted{Qt::black};   ///< as the page has it
    QColor shown{Qt::black};    ///< as it can be read
    int pixels = 16;
};

/// Reads the looks of a page's elements from their attributes.
class PageStyle {
public:
    /// The look of an element within another, and the style attribute that gives it that look in a document
    /// ("" for none). Colours that could not be read on their ground are given as ones that can, sizes stay
    /// within 72 points, and a page has a few fonts only.
    std::string lookOf(const GumboNode& element, bool block, PageLook& look);

private:
    std::string fontOf(std::string_view declarations, PageLook& look);
    std::string familyOf(std::string value);

    std::set<std::string> families_;
};

/// A colour as pages write it, on what it would be laid over; nothing for one that is none or lets all
/// through.
std::optional<QColor> pageColour(std::string_view text, const QColor& under);

}  // namespace zelvo::qt
