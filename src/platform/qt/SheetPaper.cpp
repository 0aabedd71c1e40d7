#include "platform/qt/SheetPaper.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrinter>
#include <QtWidgets/QFileDialog>
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/qt/BoxDialog.h"
#include "platform/qt/RichDocument.h"
#include "platform/qt/Texts.h"

namespace zelvo::qt {

namespace {

constexpr double headSize = 16, phoneSize = 10, margin = 20;
/// A document is laid out in dots of the screen.
constexpr double screenDots = 96, pointsPerInch = 72;

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

/// A PDF file ends with its mark.
bool isWholePdf(const QString& path) {
    constexpr qint64 tail = 32;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    file.seek(std::max<qint64>(0, file.size() - tail));
    return file.readAll().trimmed().endsWith("%%EOF");
}

void tellFailure(QWidget& over, const std::string& text, const char* caption) {
    BoxDialog({text, caption, screen::BoxIcon::Critical, screen::BoxButtons::Ok, screen::Answer::Ok}, &over)
        .exec();
}

}  // namespace

SheetPaper::SheetPaper(const screen::RichText& sheet, const QString& hospitalName, const QString& phoneNo)
    : page_(std::make_unique<QTextDocument>()) {
    fillDocument(*page_, sheet);
    if (hospitalName.isEmpty() && phoneNo.isEmpty()) return;
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
    // A page of its own size: the toolkit gives one without it margins and a page number of its own.
    const std::unique_ptr<QTextDocument> sheet(page_->clone());
    sheet->setDocumentMargin(0);
    sheet->setPageSize(printer.pageLayout().paintRect(QPageLayout::Point).size() * screenDots /
                       pointsPerInch);
    sheet->print(&printer);
}

bool SheetPaper::writePdf(const QString& path) const {
    // The printer says nothing of a disk that is full: what it wrote has to be looked at.
    const QTemporaryDir folder(QFileInfo(path).absolutePath() + QLatin1String("/.zelvo-XXXXXX"));
    if (!folder.isValid()) return false;
    const QString written = folder.filePath(QStringLiteral("sheet.pdf"));
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(written);
    print(printer);
    if (printer.printerState() == QPrinter::Error || !isWholePdf(written)) return false;
    std::error_code failed;
    std::filesystem::rename(QFileInfo(written).filesystemFilePath(), QFileInfo(path).filesystemFilePath(),
                            failed);
    return !failed;
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
    if (dialog.exec() != QDialog::Accepted) return;
    paper.print(printer);
    if (printer.printerState() == QPrinter::Error) tellFailure(over, "인쇄하지 못하였습니다.", "복용법 인쇄");
}

void saveSheet(QWidget& over, const SheetPaper& paper) {
    QFileDialog dialog(&over, QStringLiteral("PDF 파일로 저장"), {}, QStringLiteral("PDF (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.selectFile(QStringLiteral("복용법.pdf"));
    if (dialog.exec() != QDialog::Accepted) return;
    const QString path = dialog.selectedFiles().constFirst();
    if (!paper.writePdf(path))
        tellFailure(over, "파일을 저장하지 못하였습니다.\r\n" + utf8(path), "PDF 파일로 저장");
}

}  // namespace zelvo::qt
