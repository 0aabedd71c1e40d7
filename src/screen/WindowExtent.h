#pragma once

#include <string>
#include <string_view>

namespace zelvo::screen {

/// A window's size in twips, and whether it fills the screen besides.
struct WindowExtent {
    double width = 0, height = 0;
    bool maximized = false;
    bool operator==(const WindowExtent&) const = default;
};

WindowExtent times(const WindowExtent& extent, double factor);
/// A line for the next session.
std::string textOf(const WindowExtent& extent);

/// How a window opens: as such a line says, whatever stands in it, else as designed. Never larger than the
/// room that today's screen has, and where that has it never smaller than half of the design.
WindowExtent openingExtent(std::string_view left, const WindowExtent& design, const WindowExtent& room);

}  // namespace zelvo::screen
