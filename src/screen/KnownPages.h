#pragma once

#include <algorithm>
#include <array>

namespace zelvo::screen {

/// A code page of Windows that old documents and pages are written in.
struct KnownPage {
    int number = 0;
    int charset = -1;    ///< its number in an RTF font table; -1 for none
    bool pairs = false;  ///< whether two bytes may be one character
};

inline constexpr int westernPage = 1252, utf8Page = 65001;
inline constexpr std::array knownPages{
    KnownPage{874, -1},        KnownPage{932, 128, true}, KnownPage{936, 134, true},
    KnownPage{949, 129, true}, KnownPage{950, 136, true}, KnownPage{1250, 238},
    KnownPage{1251, 204},      KnownPage{westernPage},    KnownPage{1253, 161},
    KnownPage{1254, 162},      KnownPage{1255, 177},      KnownPage{1256, 178},
    KnownPage{1257, 186},      KnownPage{1258, 163},      KnownPage{1361, 130, true},
    KnownPage{utf8Page}};

/// nullptr for a page that this system doesn't read.
constexpr const KnownPage* knownPage(int number) {
    const auto* const found = std::find_if(knownPages.begin(), knownPages.end(),
                                           [=](const KnownPage& page) { return page.number == number; });
    return found == knownPages.end() ? nullptr : found;
}

}  // namespace zelvo::screen
