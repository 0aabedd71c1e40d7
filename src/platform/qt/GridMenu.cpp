#include "platform/qt/GridMenu.h"

#include <QtWidgets/QMenu>

#include "platform/qt/Owned.h"
#include "platform/qt/Texts.h"
#include "screen/Grid.h"

namespace zelvo::qt {

QMenu& GridMenu::made(const char* name) const {
    QMenu& menu = owned<QMenu>(QString::fromUtf8(name), &table_);
    menu.setAccessibleName(menu.title());
    menu.setFont(table_.font());
    return menu;
}

/// The keys stand beside the text; they are the table's own.
void GridMenu::add(QMenu& menu, const char* text, const char* keys, const std::function<void()>& act) const {
    const QString beside = *keys ? u'\t' + QString::fromLatin1(keys) : QString();
    QAction* const action = menu.addAction(QString::fromUtf8(text) + beside);
    QObject::connect(action, &QAction::triggered, &table_, [tell = tell_, act] { tell(act); });
}

void GridMenu::openRows(const QPoint& at) const {
    QMenu& menu = made("행 메뉴");
    menu.setAttribute(Qt::WA_DeleteOnClose);
    screen::Grid& grid = grid_;
    if (grid.rowCount() > 0) {
        const screen::Grid::Rows rows = grid.markedRows();
        if (rows.first >= 0) {
            add(menu, rows.first == rows.last ? "행 복사" : "선택한 행 복사", "Ctrl+C",
                [&grid] { grid.userCopy(); });
            add(menu, "칸 복사", "Ctrl+Shift+C", [&grid] { grid.userCopyCell(); });
        }
        add(menu, "모든 행 선택", "Ctrl+A", [&grid] { grid.userMarkAll(); });
        menu.addSeparator();
    }
    QMenu& columns = *menu.addMenu(QStringLiteral("열"));
    columns.setAccessibleName(columns.title());
    columns.setFont(table_.font());
    addColumns(columns);
    menu.popup(at);
}

void GridMenu::openColumns(const QPoint& at) const {
    QMenu& menu = made("열 메뉴");
    menu.setAttribute(Qt::WA_DeleteOnClose);
    addColumns(menu);
    menu.popup(at);
}

void GridMenu::addColumns(QMenu& menu) const {
    screen::Grid& grid = grid_;
    for (int i = 0; i < grid.columnCount(); ++i) {
        if (!grid.column(i).shown) continue;
        QAction* const action = menu.addAction(qtText(grid.column(i).caption).trimmed());
        action->setCheckable(true);
        action->setChecked(grid.onGlass(i));
        action->setEnabled(grid.mayHide(i));
        QObject::connect(action, &QAction::toggled, &table_, [tell = tell_, &grid, i](bool on) {
            tell([&grid, i, on] { static_cast<void>(grid.userHide(i, !on)); });
        });
    }
    menu.addSeparator();
    add(menu, "열 너비를 처음대로", "", [&grid] { grid.userWidths({}); });
}

}  // namespace zelvo::qt
