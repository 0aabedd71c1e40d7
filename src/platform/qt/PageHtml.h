#pragma once

#include <string>
#include <string_view>

namespace zelvo::qt {

/// A web page's HTML as a text document can bear it: known elements in good order, with the attributes that
/// it has words for. Scripts, sheets of style and forms go, texts stay. However a page is built, what comes
/// out is nested a few tables deep, has a bounded number of elements, and sizes that fit on a screen: a
/// document's layout takes its time by those, on the window's thread.
std::string readablePage(std::string_view html);

}  // namespace zelvo::qt
