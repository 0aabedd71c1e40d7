#pragma once

#include <QtWidgets/QHeaderView>

namespace zelvo::screen {
class Grid;
}

namespace zelvo::qt {

/// The heads of a table's columns, and above them the table's caption where it has one.
class GridHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit GridHeader(QWidget* parent = nullptr);
    void hangOn(const screen::Grid& grid) { grid_ = &grid; }
    void setCaption(const QString& caption);
    /// Draws the mark of the sorted column anew where it changed.
    void showSorting();
    /// The narrowest width in which a column's head and a sample of its texts can be read.
    int leastWidth(int column, const QString& sample) const;
    QSize sizeHint() const override;

signals:
    /// The pointer that may have dragged a column has let go.
    void letGo();

protected:
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    int captionHeight() const;
    int headHeight() const;
    int alignment(int column) const;
    int firstShown() const;
    void drawSortMark(QPainter& painter, const QRect& head, const QRect& written) const;

    const screen::Grid* grid_ = nullptr;
    QString caption_;
    int sortedColumn_ = -1;
    bool descending_ = false;
};

}  // namespace zelvo::qt
