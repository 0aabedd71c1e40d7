#include "platform/qt/SheetPaper.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QPageLayout>
#include <QtGui/QPainter>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrinter>
#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>

#include "platform/qt/BoxDialog.h"
#include "platform/qt/PdfFile.h"
#include "platform/qt/RichDocument.h"
#include "platform/qt/Texts.h"

namespace zelvo::qt {

namespace {

/// Sizes on the paper, in points: what most of a sheet is to be read in (patients are old more often than
/// not), and what stands around it.
constexpr double readableSize = 14, headSize = 18, lineSize = 12, footSize = 10, footRoom = 24, air = 10;
/// In per cent of the letters' own height.
constexpr double lineHeight = 130;
/// A sheet that is written small all over is not blown up without end.
constexpr double mostEnlarged = 2;
constexpr double marginMillimetres = 20;
/// A document is laid out in dots of the screen.
constexpr double screenDots = 96, pointsPerInch = 72;

/// The size that most letters of a sheet have, in points.
double commonSize(const screen::RichText& sheet) {
    std::map<int, std::size_t> letters;
    for (const screen::Paragraph& paragraph : sheet.paragraphs)
        for (const screen::Run& run : paragraph.runs) letters[run.style.halfPoints] += run.text.size();
    const auto most =
        std::max_element(letters.begin(), letters.end(),
                         [](const auto& one, const auto& other) { return one.second < other.second; });
    return (most == letters.end() ? screen::CharacterStyle().halfPoints : most->first) / 2.0;
}

double enlargementFor(const screen::RichText& sheet) {
    return std::clamp(readableSize / commonSize(sheet), 1.0, mostEnlarged);
}

/// Writes the head's lines, in sizes that the enlargement brings to what they are to be.
class HeadWriter {
public:
    HeadWriter(QTextCursor& cursor, double enlargement) : cursor_(cursor), enlargement_(enlargement) {}

    void write(const QString& text, double points, bool bold = false,
               Qt::Alignment alignment = Qt::AlignHCenter) {
        if (text.isEmpty()) return;
        QTextBlockFormat block;
        block.setAlignment(alignment);
        QTextCharFormat form;
        form.setFontPointSize(points / enlargement_);
        form.setFontWeight(bold ? QFont::Bold : QFont::Normal);
        cursor_.setBlockFormat(block);
        cursor_.insertText(text, form);
        cursor_.insertBlock(QTextBlockFormat(), QTextCharFormat());
    }
    /// A line across the page.
    void rule() {
        QTextBlockFormat block;
        block.setBottomMargin(air);
        block.setProperty(QTextFormat::BlockTrailingHorizontalRulerWidth,
                          QTextLength(QTextLength::PercentageLength, 100));
        cursor_.setBlockFormat(block);
    }

private:
    QTextCursor& cursor_;
    double enlargement_;
};

/// Lines that an eye finds the next one of.
void spaceLines(QTextDocument& document) {
    QTextCursor all(&document);
    all.select(QTextCursor::Document);
    QTextBlockFormat spaced;
    spaced.setLineHeight(lineHeight, QTextBlockFormat::ProportionalHeight);
    all.mergeBlockFormat(spaced);
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

/// The sheet laid out for a printer's page or a picture of one.
class SheetPaper::Pages {
public:
    /// `room` is what the margins leave, in points.
    Pages(const SheetPaper& paper, const QSizeF& room)
        : paper_(paper), room_(room), sheet_(paper.page_->clone()) {
        lay(room.height());
        if (sheet_->pageCount() > 1) lay(room.height() - footRoom);
    }

    int count() const { return sheet_->pageCount(); }

    /// Paints one at the upper left corner of its room, in points.
    void paint(QPainter& painter, int page) const {
        painter.save();
        const double scale = pointsPerInch / screenDots * paper_.enlargement_;
        painter.scale(scale, scale);
        const double height = sheet_->pageSize().height();
        painter.translate(0, -page * height);
        QAbstractTextDocumentLayout::PaintContext ink;
        ink.palette = QPalette(Qt::black, Qt::white);
        ink.clip = QRectF(0, page * height, sheet_->pageSize().width(), height);
        painter.setClipRect(ink.clip);
        sheet_->documentLayout()->draw(&painter, ink);
        painter.restore();
        if (count() > 1) paintFoot(painter, page);
    }

private:
    void lay(double height) {
        sheet_->setDocumentMargin(0);
        sheet_->setUseDesignMetrics(true);
        const QSizeF size = QSizeF(room_.width(), height) * screenDots / pointsPerInch / paper_.enlargement_;
        // The date stands at the right edge, behind the patient's name.
        QTextBlockFormat form;
        form.setTabPositions({{size.width(), QTextOption::RightTab}});
        QTextCursor(sheet_->findBlockByNumber(paper_.dateLine_)).mergeBlockFormat(form);
        sheet_->setPageSize(size);
    }

    void paintFoot(QPainter& painter, int page) const {
        QFont font = sheet_->defaultFont();
        font.setPixelSize(static_cast<int>(footSize));
        painter.setFont(font);
        painter.setPen(Qt::black);
        const QRectF line(0, room_.height() - footSize * 1.5, room_.width(), footSize * 1.5);
        painter.drawText(line, Qt::AlignLeft | Qt::AlignBottom, paper_.footName_);
        painter.drawText(line, Qt::AlignHCenter | Qt::AlignBottom,
                         QStringLiteral("%1 / %2").arg(page + 1).arg(count()));
    }

    const SheetPaper& paper_;
    QSizeF room_;
    std::unique_ptr<QTextDocument> sheet_;
};

SheetPaper::SheetPaper(const screen::RichText& sheet, const SheetHead& head)
    : footName_(head.patient), enlargement_(enlargementFor(sheet)), page_(std::make_unique<QTextDocument>()) {
    fillDocument(*page_, sheet);
    spaceLines(*page_);
    QTextCursor cursor(page_.get());
    const QTextBlockFormat first = page_->firstBlock().blockFormat();
    // The head stands in blocks of its own, before the sheet's first.
    cursor.insertBlock(first);
    cursor.movePosition(QTextCursor::Start);
    HeadWriter writer(cursor, enlargement_);
    writer.write(head.clinic, headSize, true);
    writer.write(head.phone.isEmpty() ? QString() : QStringLiteral("☎ ") + head.phone, lineSize);
    dateLine_ = cursor.blockNumber();
    if (!head.patient.isEmpty() || !head.date.isEmpty())
        writer.write(head.patient + QLatin1Char('\t') + head.date, readableSize, true, Qt::AlignLeft);
    writer.rule();
}

SheetPaper::~SheetPaper() = default;

void SheetPaper::print(QPrinter& printer) const {
    printer.setPageMargins(
        QMarginsF(marginMillimetres, marginMillimetres, marginMillimetres, marginMillimetres),
        QPageLayout::Millimeter);
    const Pages pages(*this, printer.pageLayout().paintRect(QPageLayout::Point).size());
    const int from = std::max(printer.fromPage(), 1);
    const int to = printer.toPage() > 0 ? std::min(printer.toPage(), pages.count()) : pages.count();
    if (from > to) return;
    QPainter painter(&printer);
    const double dots = printer.resolution() / pointsPerInch;
    painter.scale(dots, dots);
    for (int page = from; page <= to; ++page) {
        if (page > from) printer.newPage();
        pages.paint(painter, page - 1);
    }
}

std::vector<QImage> SheetPaper::pictures(int dots) const {
    const QPageLayout layout(
        QPageSize(QPageSize::A4), QPageLayout::Portrait,
        QMarginsF(marginMillimetres, marginMillimetres, marginMillimetres, marginMillimetres),
        QPageLayout::Millimeter);
    const Pages pages(*this, layout.paintRect(QPageLayout::Point).size());
    std::vector<QImage> pictures;
    for (int page = 0; page < pages.count(); ++page) {
        QImage picture(layout.fullRectPixels(dots).size(), QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.translate(layout.paintRectPixels(dots).topLeft());
        painter.scale(dots / pointsPerInch, dots / pointsPerInch);
        pages.paint(painter, page);
        painter.end();
        pictures.push_back(std::move(picture));
    }
    return pictures;
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
    const QString path = askForPdfFile(over, QStringLiteral("PDF 파일로 저장"), QStringLiteral("복용법.pdf"));
    if (path.isEmpty()) return;
    if (!paper.writePdf(path))
        tellFailure(over, "파일을 저장하지 못하였습니다.\r\n" + utf8(path), "PDF 파일로 저장");
}

}  // namespace zelvo::qt
