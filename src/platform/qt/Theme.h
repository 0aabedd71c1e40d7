#pragma once

#include <QtWidgets/QWidget>

namespace zelvo::qt {

/// Font and colours of a window of this system, on a widget before its own are made in it: given to hundreds
/// that stand there already, they cost as much as the making.
void giveColours(QWidget& widget);
/// The rest of the look: style, marks of single widgets, focus ring. To be called once all its widgets stand
/// in it; the host's own windows keep theirs.
void dress(QWidget& topLevel);

/// Whether the machine has any font with Hangul.
bool koreanFontInstalled();

}  // namespace zelvo::qt
