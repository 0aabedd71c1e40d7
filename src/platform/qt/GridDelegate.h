#pragma once

#include <QtWidgets/QAbstractItemDelegate>

namespace zelvo::screen {
class Grid;
}

namespace zelvo::qt {

/// Paints the cells of a grid: text in its row's style, the mark of the style, the marks of a choice,
/// buttons.
class GridDelegate : public QAbstractItemDelegate {
    Q_OBJECT

public:
    /// Pixels between a cell's edge and its text; the first column has room for the row's mark.
    static constexpr int edge = 7, firstEdge = 16;

    GridDelegate(screen::Grid& grid, QObject* parent) : QAbstractItemDelegate(parent), grid_(grid) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Tells the whole text of a cell that is too narrow for it.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    /// Where a cell is pressed; empty for a cell without a button.
    QRect pressTarget(const QRect& cell, int row, int column) const;
    /// Where a cell's text stands.
    QRect textRoom(const QRect& cell, int row, int column) const;

    void setZoom(double factor) { zoom_ = factor; }

    /// The button below the pointer, and the one that is held down.
    QModelIndex hot, held;

private:
    struct Look;
    Look lookOf(const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintMark(QPainter& painter, const Look& look, const QRect& cell) const;
    void paintText(QPainter& painter, const Look& look, const QRect& cell, const QModelIndex& index) const;
    void paintChoice(QPainter& painter, const Look& look, const QRect& cell, const QModelIndex& index) const;
    void paintButton(QPainter& painter, const Look& look, const QRect& target, const QModelIndex& index,
                     bool filled) const;
    int firstShown() const;
    bool marksRow(int column) const;

    int zoomed(int pixels) const { return static_cast<int>(pixels * zoom_); }

    screen::Grid& grid_;
    double zoom_ = 1;
};

}  // namespace zelvo::qt
