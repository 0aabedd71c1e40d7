#pragma once

#include <string>
#include <string_view>

namespace zelvo::qt {

/// A web page's HTML as a text document can bear it.
struct ReadablePage {
    std::string html;     ///< known elements in good order, with the attributes that it has words for
    std::string base;     ///< what its addresses stand on, "" for the page's own address
    std::string forward;  ///< where it sends its readers at once, "" for nowhere
    bool shown = false;   ///< whether it has a text or a picture
};

/// Scripts, sheets of style and forms go, texts stay. However a page is built, a document lays out what comes
/// out in less than a second; what goes beyond is left out with a word. Can be called on any thread.
ReadablePage readablePage(std::string_view html);
/// A plain text as such a page, its blanks and lines as they stand.
ReadablePage readableText(std::string_view text);

}  // namespace zelvo::qt
