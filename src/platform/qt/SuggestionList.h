#pragma once

#include <QtWidgets/QListWidget>

namespace zelvo::screen {
class Grid;
}

namespace zelvo::qt {

/// The lines that a grid offers beneath its open cell. It takes no focus, so that typing goes on; a click
/// takes a line.
class SuggestionList : public QListWidget {
    Q_OBJECT

public:
    /// Stands over the window of the table.
    SuggestionList(QWidget& table, screen::Grid& grid);
    /// Shows what the grid offers below (or, where there is no room, above) the cell, a rectangle of the
    /// table's viewport; hides where it offers nothing.
    void follow(const QWidget& viewport, const QRect& cell);

private:
    void place(const QWidget& viewport, const QRect& cell);

    screen::Grid& grid_;
};

}  // namespace zelvo::qt
