#pragma once

#include <QtCore/QPoint>
#include <functional>

class QMenu;
class QWidget;

namespace zelvo::screen {
class Grid;
}

namespace zelvo::qt {

/// The two menus of a table: what is done with its rows, and which columns it shows.
class GridMenu {
public:
    /// Tells the grid something that the user did.
    using Tell = std::function<void(const std::function<void()>&)>;
    GridMenu(QWidget& table, screen::Grid& grid, Tell tell)
        : table_(table), grid_(grid), tell_(std::move(tell)) {}

    void openRows(const QPoint& at) const;
    void openColumns(const QPoint& at) const;

private:
    QMenu& made(const char* name) const;
    void add(QMenu& menu, const char* text, const char* keys, const std::function<void()>& act) const;
    void addColumns(QMenu& menu) const;

    QWidget& table_;
    screen::Grid& grid_;
    Tell tell_;
};

}  // namespace zelvo::qt
