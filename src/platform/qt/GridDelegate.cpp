#include "platform/qt/GridDelegate.h"

#include <QtCore/QModelIndex>
#include <QtGui/QHelpEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolTip>
#include <algorithm>
#include <string_view>

#include "platform/qt/Contrast.h"
#include "platform/qt/GridModel.h"
#include "platform/qt/Texts.h"
#include "screen/Grid.h"

namespace zelvo::qt {

namespace {

constexpr int choiceSize = 16, buttonWidth = 26, buttonHeight = 18;

/// What the row's style says, without its colour.
QChar markOf(std::string_view style) {
    if (style.ends_with("Red")) return u'!';
    if (style.ends_with("Green")) return u'+';
    if (style.ends_with("select")) return QChar(0x2713);
    return {};
}

/// Choices of which one at most is taken.
bool takesOne(const screen::Grid& grid) {
    return grid.name() == "tdbJobList" || grid.name() == "tdbTJML";
}

int alignmentOf(const screen::GridColumn& column) {
    return (column.alignRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

QRect centred(const QSize& size, const QRect& cell) {
    return {cell.center() - QPoint(size.width() / 2 - 1, size.height() / 2 - 1), size};
}

}  // namespace

/// The colours of a cell and what its row says.
struct GridDelegate::Look {
    QColor ground, text, accent, line;
    QChar mark;
    bool currentRow = false, currentCell = false;
};

GridDelegate::Look GridDelegate::lookOf(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const auto group = enabled ? QPalette::Active : QPalette::Disabled;
    const QColor base = option.palette.color(group, QPalette::Base);
    const QColor plain = option.palette.color(group, QPalette::Text);
    const bool focused = option.widget && option.widget->hasFocus();
    Look look;
    look.accent = option.palette.color(group, QPalette::Highlight);
    look.currentRow = index.row() == grid_.currentRow();
    look.currentCell = look.currentRow && focused && index.column() == grid_.currentColumn();
    look.ground = index.row() % 2 == 0 ? base : blended(plain, base, 0.025);
    if (look.currentRow) look.ground = blended(look.accent, base, focused ? 0.18 : 0.1);
    look.line = blended(plain, look.ground, 0.35);
    look.text = plain;
    const std::string style = grid_.rowStyle(index.row());
    if (!enabled || style.empty()) return look;
    look.mark = markOf(style);
    if (const screen::Color* color = grid_.style(style))
        look.text = readableOn(look.ground, QColor(color->red, color->green, color->blue));
    return look;
}

int GridDelegate::firstShown() const {
    int column = 0;
    while (column < grid_.columnCount() && !grid_.column(column).shown) ++column;
    return column;
}

/// Whether the row's mark stands in this column; a choice says it by its own mark.
bool GridDelegate::marksRow(int column) const {
    return column == firstShown() && !holdsChoice(grid_, column);
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const int row = index.row(), column = index.column();
    const Look look = lookOf(option, index);
    const QRect& cell = option.rect;
    painter->fillRect(cell, look.ground);
    if (look.currentRow && column == firstShown())
        painter->fillRect(QRect(cell.topLeft(), QSize(3, cell.height())), look.accent);
    if (marksRow(column)) paintMark(*painter, look, cell);
    if (holdsChoice(grid_, column)) {
        paintChoice(*painter, option, index);
    } else {
        const QRect room = textRoom(cell, row, column);
        QString text = qtText(grid_.shownText(row, column));
        if (option.fontMetrics.horizontalAdvance(text) > room.width())
            text = option.fontMetrics.elidedText(text, Qt::ElideRight, room.width());
        painter->setFont(option.font);
        painter->setPen(look.text);
        painter->drawText(room, alignmentOf(grid_.column(column)) | Qt::TextSingleLine, text);
        if (grid_.column(column).button) paintButton(*painter, look, pressTarget(cell, row, column), index);
    }
    if (!look.currentCell) return;
    painter->setPen(QPen(look.accent, 2));
    painter->drawRect(cell.adjusted(1, 1, -1, -1));
}

void GridDelegate::paintMark(QPainter& painter, const Look& look, const QRect& cell) const {
    // The current row of a table without a choice is seen as it is.
    if (look.mark.isNull() || (look.currentRow && look.mark == QChar(0x2713))) return;
    QFont bold = painter.font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(look.text);
    painter.drawText(QRect(cell.left() + 3, cell.top(), firstEdge - 4, cell.height()), Qt::AlignCenter,
                     look.mark);
}

void GridDelegate::paintChoice(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    QStyleOptionButton mark;
    const int size = std::min(choiceSize, option.rect.height() - 2);
    mark.rect = centred({size, size}, option.rect);
    mark.palette = option.palette;
    mark.state = option.state & QStyle::State_Enabled;
    mark.state |= isChosen(grid_, index.row(), index.column()) ? QStyle::State_On : QStyle::State_Off;
    if (index == hot) mark.state |= QStyle::State_MouseOver;
    if (index == held) mark.state |= QStyle::State_Sunken;
    painter.save();
    option.widget->style()->drawPrimitive(
        takesOne(grid_) ? QStyle::PE_IndicatorRadioButton : QStyle::PE_IndicatorCheckBox, &mark, &painter,
        option.widget);
    painter.restore();
}

/// A flat button with three dots: there is more to read, or to write.
void GridDelegate::paintButton(QPainter& painter, const Look& look, const QRect& target,
                               const QModelIndex& index) const {
    const QSize size(std::min(buttonWidth, target.width() - 4), std::min(buttonHeight, target.height() - 4));
    const QRectF button = QRectF(centred(size, target)).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool down = index == held, over = index == hot;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(over || down ? look.accent : look.line);
    painter.setBrush(blended(look.accent, look.ground, down ? 0.35 : over ? 0.12 : 0.0));
    painter.drawRoundedRect(button, 3, 3);
    painter.setPen(Qt::NoPen);
    painter.setBrush(blended(look.text, look.ground, 0.75));
    for (const int dot : {-1, 0, 1}) painter.drawEllipse(button.center() + QPointF(dot * 5, 0), 1.4, 1.4);
    painter.restore();
}

QRect GridDelegate::pressTarget(const QRect& cell, int row, int column) const {
    const screen::GridColumn& shown = grid_.column(column);
    if (!shown.button) return {};
    if (holdsChoice(grid_, column)) return cell;
    const int width = std::min(buttonWidth + 6, cell.width());
    const bool beside = shown.editable || !grid_.shownText(row, column).empty();
    const int left = beside ? cell.right() + 1 - width : cell.center().x() - width / 2;
    return {left, cell.top(), width, cell.height()};
}

QRect GridDelegate::textRoom(const QRect& cell, int row, int column) const {
    QRect room = cell.adjusted(marksRow(column) ? firstEdge : edge, 0, -edge, 0);
    if (grid_.column(column).button) room.setRight(pressTarget(cell, row, column).left() - 2);
    return room;
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QString text = qtText(grid_.shownText(index.row(), index.column()));
    const int button = grid_.column(index.column()).button ? buttonWidth + 6 : 0;
    return {firstEdge + option.fontMetrics.horizontalAdvance(text) + button + edge, option.rect.height()};
}

bool GridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (!index.isValid() || holdsChoice(grid_, index.column())) return false;
    const QString text = qtText(grid_.shownText(index.row(), index.column()));
    const int room = textRoom(option.rect, index.row(), index.column()).width();
    if (option.fontMetrics.horizontalAdvance(text) <= room) return false;
    QToolTip::showText(event->globalPos(), text.toHtmlEscaped(), view);
    return true;
}

}  // namespace zelvo::qt
