#include "screen/WindowExtent.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "basics/Numbers.h"
#include "basics/Text.h"

namespace zelvo::screen {

namespace {

constexpr std::string_view maximizedSign = "maximized";

std::string whole(double twips) {
    return basics::decimalText(std::int64_t{std::llround(twips)});
}

/// A side that is no length is the design's.
double side(const std::vector<std::string>& words, std::size_t index, double design, double room) {
    const bool told = index < words.size() && basics::IsNumeric(words[index]);
    const double twips = told ? basics::toNumber(words[index]) : 0;
    return std::min(twips > 0 ? std::max(twips, design / 2) : design, room);
}

}  // namespace

WindowExtent times(const WindowExtent& extent, double factor) {
    return {extent.width * factor, extent.height * factor, extent.maximized};
}

std::string textOf(const WindowExtent& extent) {
    std::string text = whole(extent.width) + " " + whole(extent.height);
    if (extent.maximized) text += " " + std::string(maximizedSign);
    return text;
}

WindowExtent openingExtent(std::string_view left, const WindowExtent& design, const WindowExtent& room) {
    const std::vector<std::string> words = basics::split(left, " ");
    return {side(words, 0, design.width, room.width), side(words, 1, design.height, room.height),
            words.size() == 3 && words[2] == maximizedSign};
}

}  // namespace zelvo::screen
