#include "platform/qt/GridHeader.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <algorithm>
#include <array>

#include "platform/qt/Contrast.h"
#include "platform/qt/GridDelegate.h"
#include "platform/qt/GridModel.h"
#include "platform/qt/Readers.h"
#include "platform/qt/Texts.h"
#include "platform/qt/ZoomedForm.h"
#include "screen/Grid.h"

namespace zelvo::qt {

GridHeader::GridHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(true);
    setHighlightSections(false);
    setSectionResizeMode(QHeaderView::Interactive);
    setMinimumSectionSize(1);
    setResizeContentsPrecision(0);
}

void GridHeader::setCaption(const QString& caption) {
    if (caption == caption_) return;
    const int before = captionHeight();
    caption_ = caption;
    if (captionHeight() != before) emit geometriesChanged();
    if (isVisible()) speak(*this, caption_);
    viewport()->update();
}

void GridHeader::showSorting() {
    if (grid_->sortedColumn() == sortedColumn_ && grid_->sortedDescending() == descending_) return;
    sortedColumn_ = grid_->sortedColumn();
    descending_ = grid_->sortedDescending();
    viewport()->update();
}

int GridHeader::captionHeight() const {
    return caption_.isEmpty() ? 0 : headHeight();
}

int GridHeader::headHeight() const {
    return std::max(zoomed(*this, 26), fontMetrics().height() + 8);
}

QSize GridHeader::sizeHint() const {
    return {QHeaderView::sizeHint().width(), captionHeight() + headHeight()};
}

int GridHeader::firstShown() const {
    int column = 0;
    while (column < count() && isSectionHidden(column)) ++column;
    return column;
}

int GridHeader::leastWidth(int column, const QString& sample) const {
    const int text = std::max(fontMetrics().horizontalAdvance(qtText(grid_->column(column).caption)),
                              fontMetrics().horizontalAdvance(sample));
    const int edge = column == firstShown() ? GridDelegate::firstEdge : GridDelegate::edge;
    return edge + text + GridDelegate::edge + 1;
}

int GridHeader::alignment(int column) const {
    const screen::GridColumn& shown = grid_->column(column);
    if (shown.flag || (shown.button && !shown.editable)) return Qt::AlignCenter;
    return static_cast<int>((shown.alignRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

void GridHeader::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        painter.fillRect(event->rect(), blended(palette().color(QPalette::WindowText),
                                                palette().color(QPalette::Window), 0.04));
    }
    QHeaderView::paintEvent(event);
    QPainter painter(viewport());
    const QColor line =
        blended(palette().color(QPalette::WindowText), palette().color(QPalette::Window), 0.2);
    painter.fillRect(0, height() - 1, width(), 1, line);
    if (caption_.isEmpty()) return;
    const QRect band(0, 0, width(), captionHeight());
    painter.fillRect(band, palette().color(QPalette::Window));
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(palette().color(QPalette::WindowText));
    const QRect room = band.adjusted(GridDelegate::edge, 0, -GridDelegate::edge, 0);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(caption_, Qt::ElideRight, room.width()));
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int column) const {
    if (!grid_ || !rect.isValid()) return;
    const QColor text = palette().color(QPalette::WindowText), ground = palette().color(QPalette::Window);
    const QRect head = rect.adjusted(0, captionHeight(), 0, -1);
    painter->fillRect(head, blended(text, ground, 0.04));
    if (rect.right() < viewport()->width() - 1) {
        painter->fillRect(QRect(head.right(), head.top() + 6, 1, head.height() - 12),
                          blended(text, ground, 0.2));
    }
    const int edge = column == firstShown() ? GridDelegate::firstEdge : GridDelegate::edge;
    const int place = alignment(column);
    const QRect room = place == Qt::AlignCenter ? head : head.adjusted(edge, 0, -GridDelegate::edge, 0);
    painter->setPen(blended(text, ground, 0.8));
    const QString caption = qtText(grid_->column(column).caption).trimmed();
    QRect written;
    painter->drawText(room, place, painter->fontMetrics().elidedText(caption, Qt::ElideRight, room.width()),
                      &written);
    if (column == sortedColumn_) drawSortMark(*painter, head, written);
}

/// An arrowhead beside the head's text, within the head.
void GridHeader::drawSortMark(QPainter& painter, const QRect& head, const QRect& written) const {
    const bool behind = head.right() - written.right() >= written.left() - head.left();
    const double beside = behind ? written.right() + 9.0 : written.left() - 9.0;
    const QPointF middle(std::clamp(beside, head.left() + 6.0, head.right() - 6.0),
                         QRectF(head).center().y());
    const double rise = descending_ ? -2 : 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(readableOn(palette().color(QPalette::Window), palette().color(QPalette::Highlight)),
                        1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const std::array<QPointF, 3> points{middle + QPointF(-4, rise), middle + QPointF(0, -rise),
                                        middle + QPointF(4, rise)};
    painter.drawPolyline(points.data(), static_cast<int>(points.size()));
    painter.restore();
}

/// The caption is no head.
void GridHeader::mousePressEvent(QMouseEvent* event) {
    if (event->position().y() >= captionHeight()) QHeaderView::mousePressEvent(event);
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event) {
    QHeaderView::mouseReleaseEvent(event);
    emit letGo();
}

void GridHeader::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->position().y() >= captionHeight()) QHeaderView::mouseDoubleClickEvent(event);
}

}  // namespace zelvo::qt
