#pragma once

#include <QtGui/QColor>

namespace zelvo::qt {

/// A colour between two: `share` of the first (0 to 1), the rest of the second.
QColor blended(const QColor& first, const QColor& second, double share);
/// The colour itself where it can be read on this ground (4.5:1), else the nearest one of its kind that can.
QColor readableOn(const QColor& ground, const QColor& color);

}  // namespace zelvo::qt
