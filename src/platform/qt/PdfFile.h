#pragma once

#include <QtCore/QString>

class QWidget;

namespace zelvo::qt {

/// Asks, over a window, which file a PDF is to be written to; `proposed` is a name to begin with. Empty when
/// the user names none.
QString askForPdfFile(QWidget& over, const QString& title, const QString& proposed);

}  // namespace zelvo::qt
