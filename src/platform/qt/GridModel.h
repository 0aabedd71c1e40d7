#pragma once

#include <QtCore/QAbstractTableModel>

namespace zelvo::screen {
class Grid;
}

namespace zelvo::qt {

/// The rows of a grid as the toolkit asks for them, live: nothing is copied. It has the rows that the grid
/// had when the view last followed it.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit GridModel(screen::Grid& grid) : grid_(grid) {}
    /// Tells the views of rows that have come or gone. What stands in the rows is read when it is painted.
    void follow();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QString spokenText(const QModelIndex& index) const;

    screen::Grid& grid_;
    int rows_ = 0;
};

/// Whether a column holds the marks of a choice.
bool holdsChoice(const screen::Grid& grid, int column);
}  // namespace zelvo::qt
