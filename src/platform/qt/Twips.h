#pragma once

#include <QtWidgets/QWidget>
#include <cmath>

namespace zelvo::qt {

/// Twips of a logical pixel where a widget stands: 1440 to the inch.
inline double twipsPerPixel(const QWidget& widget) {
    return 1440.0 / widget.logicalDpiX();
}
inline double twips(const QWidget& widget, int pixels) {
    return pixels * twipsPerPixel(widget);
}
inline int pixels(const QWidget& widget, double twips) {
    return static_cast<int>(std::lround(twips / twipsPerPixel(widget)));
}

}  // namespace zelvo::qt
