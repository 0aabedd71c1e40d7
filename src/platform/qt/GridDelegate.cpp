#include "platform/qt/GridDelegate.h"

#include <QtCore/QModelIndex>
#include <QtGui/QHelpEvent>
#include <QtGui/QPainter>
#include <QtGui/QPolygonF>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QToolTip>
#include <algorithm>
#include <string_view>

#include "platform/qt/Contrast.h"
#include "platform/qt/GridModel.h"
#include "platform/qt/Texts.h"
#include "screen/Grid.h"

namespace zelvo::qt {

namespace {

constexpr int choiceSize = 15, buttonWidth = 26, buttonHeight = 18;
/// A text in less room than this only hints at itself; the button beside it then says that there is one.
constexpr int leastTextRoom = 40;

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
    if (column.flag) return Qt::AlignCenter;
    return static_cast<int>((column.alignRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

QRect centred(const QSize& size, const QRect& cell) {
    return {cell.center() - QPoint(size.width() / 2 - 1, size.height() / 2 - 1), size};
}

}  // namespace

/// The colours of a cell and what its row says.
struct GridDelegate::Look {
    QColor ground, text, accent, onAccent, line;
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
    look.onAccent = option.palette.color(group, QPalette::HighlightedText);
    look.currentRow = index.row() == grid_.currentRow();
    look.currentCell = look.currentRow && focused && index.column() == grid_.currentColumn();
    look.ground = index.row() % 2 == 0 ? base : blended(plain, base, 0.025);
    if (look.currentRow || (grid_.marks() && grid_.markedRows().hold(index.row())))
        look.ground = blended(look.accent, base, focused ? 0.18 : 0.1);
    look.line = blended(plain, look.ground, 0.35);
    look.text = plain;
    const std::string style = grid_.rowStyle(index.row());
    if (!enabled || style.empty()) return look;
    look.mark = markOf(style);
    // Black is what text is in plain; on a dark screen that is white.
    if (const screen::Color* color = grid_.style(style); color && *color != screen::Color{})
        look.text = readableOn(look.ground, QColor(color->red, color->green, color->blue));
    return look;
}

int GridDelegate::firstShown() const {
    int column = 0;
    while (column < grid_.columnCount() && !grid_.onGlass(column)) ++column;
    return column;
}

/// Whether the row's mark stands in this column; a choice says it by its own mark.
bool GridDelegate::marksRow(int column) const {
    return column == firstShown() && !holdsChoice(grid_, column);
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const int column = index.column();
    const Look look = lookOf(option, index);
    const QRect& cell = option.rect;
    painter->fillRect(cell, look.ground);
    if (look.currentRow && column == firstShown())
        painter->fillRect(QRect(cell.topLeft(), QSize(3, cell.height())), look.accent);
    if (marksRow(column)) paintMark(*painter, look, cell);
    if (holdsChoice(grid_, column)) {
        paintChoice(*painter, look, cell, index);
    } else {
        painter->setFont(option.font);
        paintText(*painter, look, cell, index);
    }
    if (!look.currentCell) return;
    painter->setPen(QPen(look.accent, 2));
    painter->drawRect(cell.adjusted(1, 1, -1, -1));
}

void GridDelegate::paintText(QPainter& painter, const Look& look, const QRect& cell,
                             const QModelIndex& index) const {
    const screen::GridColumn& column = grid_.column(index.column());
    const QRect room = textRoom(cell, index.row(), index.column());
    const QString text = qtText(grid_.glassText(index.row(), index.column()));
    const QFontMetrics metrics = painter.fontMetrics();
    if (!column.button || room.width() >= leastTextRoom) {
        painter.setPen(look.text);
        painter.drawText(room, alignmentOf(column) | Qt::TextSingleLine,
                         metrics.horizontalAdvance(text) > room.width()
                             ? metrics.elidedText(text, Qt::ElideRight, room.width())
                             : text);
    }
    if (!column.button) return;
    const QRect target = pressTarget(cell, index.row(), index.column());
    paintButton(painter, look, target, index, column.editable && !text.isEmpty());
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

void GridDelegate::paintChoice(QPainter& painter, const Look& look, const QRect& cell,
                               const QModelIndex& index) const {
    const int size = std::min(zoomed(choiceSize), cell.height() - 4);
    const QRectF mark = QRectF(centred({size, size}, cell)).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool chosen = grid_.says(index.row(), index.column());
    const double corner = takesOne(grid_) ? size / 2.0 : 3;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(chosen || index == hot ? look.accent : look.line, 1.2));
    painter.setBrush(chosen ? look.accent : blended(look.accent, look.ground, index == held ? 0.35 : 0));
    painter.drawRoundedRect(mark, corner, corner);
    if (chosen && takesOne(grid_)) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(look.onAccent);
        painter.drawEllipse(mark.center(), size * 0.2, size * 0.2);
    } else if (chosen) {
        painter.setPen(QPen(look.onAccent, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const auto at = [&](double x, double y) { return mark.topLeft() + QPointF(x, y) * mark.width(); };
        painter.drawPolyline(QPolygonF({at(0.23, 0.52), at(0.43, 0.71), at(0.77, 0.31)}));
    }
    painter.restore();
}

/// A flat button: lines where there is a text behind it, three dots where there is more to read or to write.
void GridDelegate::paintButton(QPainter& painter, const Look& look, const QRect& target,
                               const QModelIndex& index, bool filled) const {
    const QSize size(std::min(zoomed(buttonWidth), target.width() - 4),
                     std::min(zoomed(buttonHeight), target.height() - 4));
    const QRectF button = QRectF(centred(size, target)).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool down = index == held, over = index == hot;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(over || down || filled ? look.accent : look.line);
    painter.setBrush(blended(look.accent, look.ground, down ? 0.35 : over ? 0.12 : 0.0));
    painter.drawRoundedRect(button, 3, 3);
    const QColor ink = filled ? look.accent : blended(look.text, look.ground, 0.75);
    painter.setPen(filled ? QPen(ink, 1.4) : QPen(Qt::NoPen));
    painter.setBrush(ink);
    for (const int part : {-1, 0, 1}) {
        if (filled) {
            const QPointF middle = button.center() + QPointF(0, part * 3.5);
            painter.drawLine(middle - QPointF(6, 0), middle + QPointF(part > 0 ? 2 : 6, 0));
        } else {
            painter.drawEllipse(button.center() + QPointF(part * 5, 0), 1.4, 1.4);
        }
    }
    painter.restore();
}

QRect GridDelegate::pressTarget(const QRect& cell, int row, int column) const {
    const screen::GridColumn& shown = grid_.column(column);
    if (!shown.button) return {};
    if (holdsChoice(grid_, column)) return cell;
    const int width = std::min(zoomed(buttonWidth) + 6, cell.width());
    const bool beside = shown.editable || !grid_.glassText(row, column).empty();
    const int left = beside ? cell.right() + 1 - width : cell.center().x() - width / 2;
    return {left, cell.top(), width, cell.height()};
}

QRect GridDelegate::textRoom(const QRect& cell, int row, int column) const {
    QRect room = cell.adjusted(marksRow(column) ? firstEdge : edge, 0, -edge, 0);
    if (grid_.column(column).button) room.setRight(pressTarget(cell, row, column).left() - 2);
    return room;
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QString text = qtText(grid_.glassText(index.row(), index.column()));
    const int button = grid_.column(index.column()).button ? zoomed(buttonWidth) + 6 : 0;
    return {firstEdge + option.fontMetrics.horizontalAdvance(text) + button + edge, option.rect.height()};
}

bool GridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (!index.isValid() || holdsChoice(grid_, index.column())) return false;
    const QString text = qtText(grid_.glassText(index.row(), index.column()));
    const int room = textRoom(option.rect, index.row(), index.column()).width();
    if (option.fontMetrics.horizontalAdvance(text) <= room) return false;
    QToolTip::showText(event->globalPos(), text.toHtmlEscaped(), view);
    return true;
}

}  // namespace zelvo::qt
