#pragma once

#include <QtWidgets/QWidget>

namespace zelvo::qt {

/// Gives a window of this system its look: font, colours, style, focus ring. To be called once all its
/// widgets stand in it; the host's own windows keep theirs.
void dress(QWidget& topLevel);

/// Whether the machine has any font with Hangul.
bool koreanFontInstalled();

}  // namespace zelvo::qt
