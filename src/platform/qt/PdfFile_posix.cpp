#include <QtWidgets/QFileDialog>

#include "platform/qt/PdfFile.h"

namespace zelvo::qt {

QString askForPdfFile(QWidget& over, const QString& title, const QString& proposed) {
    QFileDialog dialog(&over, title, {}, QStringLiteral("PDF (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.selectFile(proposed);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}

}  // namespace zelvo::qt
