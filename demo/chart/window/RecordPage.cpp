#include "RecordPage.h"

#include <QtCore/QLocale>
#include <QtCore/QStringList>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>
#include <QtGui/QTextDocument>
#include <QtGui/QTextTable>

namespace chart {

namespace {

constexpr int herbTableWidth = 220;
constexpr qreal margin = 10;
constexpr int paleAlpha = 165;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QTextCharFormat bold() {
    QTextCharFormat format;
    format.setFontWeight(QFont::DemiBold);
    return format;
}

QTextCharFormat pale() {
    QColor color = QGuiApplication::palette().color(QPalette::Text);
    color.setAlpha(paleAlpha);
    QTextCharFormat format;
    format.setForeground(color);
    return format;
}

QTextBlockFormat spaced(qreal above) {
    QTextBlockFormat format;
    format.setTopMargin(above);
    return format;
}

/// What is 0 was not said: powders have no packs, ready-made medicines no packets.
QString quantities(const doctorzelvo::ChartRecord& order) {
    QStringList said;
    if (order.intChupSu > 0) said << QStringLiteral("%1첩").arg(order.intChupSu);
    if (order.intTuyakilsu > 0) said << QStringLiteral("%1일분").arg(order.intTuyakilsu);
    if (order.sglDayTuYak > 0)
        said << QStringLiteral("1일 %1팩").arg(QLocale::c().toString(order.sglDayTuYak, 'g', 6));
    if (order.intPouchAmount > 0) said << QStringLiteral("1팩 %1 ml").arg(order.intPouchAmount);
    if (order.intPouchTotal > 0) said << QStringLiteral("총 %1팩").arg(order.intPouchTotal);
    return said.join(QStringLiteral(" · "));
}

/// One herb a line, its grams for one packet at the right.
void writeHerbs(QTextCursor& at, const QString& list) {
    const QStringList herbs = list.split(QStringLiteral("/$RD$/"), Qt::SkipEmptyParts);
    if (herbs.isEmpty()) return;
    QTextTableFormat format;
    format.setBorder(0);
    format.setCellPadding(1);
    format.setTopMargin(4);
    format.setLeftMargin(12);
    format.setWidth(herbTableWidth);
    QTextTable* const table = at.insertTable(static_cast<int>(herbs.size()), 2, format);
    QTextBlockFormat right;
    right.setAlignment(Qt::AlignRight);
    for (int row = 0; row < table->rows(); ++row) {
        const QString& herb = herbs.at(row);
        table->cellAt(row, 0).firstCursorPosition().insertText(herb.section(QStringLiteral("/$CD$/"), 0, 0));
        QTextCursor grams = table->cellAt(row, 1).firstCursorPosition();
        grams.setBlockFormat(right);
        grams.insertText(herb.section(QStringLiteral("/$CD$/"), 1, 1) + QStringLiteral(" g"));
    }
    at.movePosition(QTextCursor::End);
}

void writeEntry(QTextCursor& at, const RecordEntry& entry) {
    const doctorzelvo::ChartRecord& order = entry.order;
    at.insertText(entry.when.toString(QStringLiteral("yyyy-MM-dd HH:mm")), pale());
    at.insertText(QStringLiteral("   ") + text(order.strJob), bold());
    const QString said = quantities(order);
    if (!said.isEmpty()) {
        at.insertBlock(spaced(4), QTextCharFormat());
        at.insertText(said);
    }
    writeHerbs(at, text(order.strxDrugList));
    if (!order.strMessage.empty()) {
        at.insertBlock(spaced(6), QTextCharFormat());
        at.insertText(QStringLiteral("전달사항  "), pale());
        at.insertText(text(order.strMessage), QTextCharFormat());
    }
    at.insertBlock(spaced(6), QTextCharFormat());
    at.insertText(QStringLiteral("합계  "), pale());
    at.insertText(QLocale(QLocale::Korean).toString(order.lngSumCost) + QStringLiteral("원"), bold());
}

}  // namespace

void writeRecord(QTextDocument& page, const std::vector<RecordEntry>& entries) {
    page.clear();
    page.setDocumentMargin(margin);
    QTextCursor at(&page);
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        if (entry != entries.rbegin()) at.insertBlock(spaced(22), QTextCharFormat());
        writeEntry(at, *entry);
    }
}

}  // namespace chart
