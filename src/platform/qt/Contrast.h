#pragma once

#include <QtGui/QColor>
#include <QtGui/QPalette>

namespace zelvo::qt {

/// A colour between two: `share` of the first (0 to 1), the rest of the second.
QColor blended(const QColor& first, const QColor& second, double share);
/// The colour itself where it can be read on this ground (4.5:1), else the nearest one of its kind that can.
QColor readableOn(const QColor& ground, const QColor& color);
/// What is written for paper stands black on white, whatever the desktop's colours are.
QPalette paper(QPalette palette);
/// The links of such a page.
inline constexpr QRgb paperLink = 0xff003cb4;

}  // namespace zelvo::qt
