#include "platform/qt/SheetPaper.h"

#include <QtCore/QFile>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrinter>
#include <QtWidgets/QFileDialog>

#include "platform/qt/BoxDialog.h"
#include "platform/qt/Texts.h"

namespace zelvo::qt {

namespace {

constexpr double headSize = 16, phoneSize = 10, margin = 20;

void addHead(QTextCursor& cursor, const QString& text, double points, bool bold) {
    if (text.isEmpty()) return;
    QTextBlockFormat middle;
    middle.setAlignment(Qt::AlignHCenter);
    QTextCharFormat form;
    form.setFontPointSize(points);
    form.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    cursor.setBlockFormat(middle);
    cursor.insertText(text, form);
    cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
}

}  // namespace

SheetPaper::SheetPaper(const QTextDocument& sheet, const QString& hospitalName, const QString& phoneNo)
    : page_(sheet.clone()) {
    QTextCursor cursor(page_.get());
    const QTextBlockFormat first = page_->firstBlock().blockFormat();
    // The head stands in blocks of its own, before the sheet's first.
    cursor.insertBlock(first);
    cursor.movePosition(QTextCursor::Start);
    addHead(cursor, hospitalName, headSize, true);
    addHead(cursor, phoneNo.isEmpty() ? QString() : QStringLiteral("☎ ") + phoneNo, phoneSize, false);
}

SheetPaper::~SheetPaper() = default;

void SheetPaper::print(QPrinter& printer) const {
    printer.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
    page_->print(&printer);
}

bool SheetPaper::writePdf(const QString& path) const {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    file.close();
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    print(printer);
    return printer.printerState() != QPrinter::Error && QFile(path).size() > 0;
}

void previewSheet(QWidget& over, const SheetPaper& paper) {
    QPrinter printer(QPrinter::HighResolution);
    QPrintPreviewDialog preview(&printer, &over);
    preview.setWindowTitle(QStringLiteral("복용법 미리보기"));
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&paper](QPrinter* shown) { paper.print(*shown); });
    preview.exec();
}

void printSheet(QWidget& over, const SheetPaper& paper) {
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, &over);
    dialog.setWindowTitle(QStringLiteral("복용법 인쇄"));
    if (dialog.exec() == QDialog::Accepted) paper.print(printer);
}

void saveSheet(QWidget& over, const SheetPaper& paper) {
    const QString path =
        QFileDialog::getSaveFileName(&over, QStringLiteral("PDF 파일로 저장"), QStringLiteral("복용법.pdf"),
                                     QStringLiteral("PDF (*.pdf)"));
    if (path.isEmpty() || paper.writePdf(path)) return;
    BoxDialog({"파일을 저장하지 못하였습니다.\r\n" + utf8(path), "PDF 파일로 저장", screen::BoxIcon::Critical,
               screen::BoxButtons::Ok, screen::Answer::Ok},
              &over)
        .exec();
}

}  // namespace zelvo::qt
