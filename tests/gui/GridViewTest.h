#pragma once

#include <gtest/gtest.h>

#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <set>

#include "platform/qt/GridView.h"
#include "screen/Grid.h"
#include "screen/Window.h"
#include "support/TestDesktop.h"
#include "tables/XArrayDB.h"

namespace zelvo::qt {

/// A table over the herb table in small, with a choice beside it, and what a user does to it.
struct GridViewTest : ::testing::Test {
    using Presses = std::vector<std::pair<int, int>>;
    static constexpr int name = 1, pharmacyName = 2, grams = 3, note = 4, choice = 5;

    GridViewTest() {
        grid.onCellShow.add([this](int row, int, std::string&) { asked.insert(row); });
        grid.onCellButton.add([this](int column) { pressed.emplace_back(grid.currentRow(), column); });
        grid.onKeyPress.add([this](char32_t& key) {
            if (grid.currentColumn() == grams && key >= U' ' && !(key >= U'0' && key <= U'9')) key = 0;
        });
        fill(20);
        view.resize(1000, 400);
        view.hangOn(grid);
        view.show();
        view.activateWindow();
        view.setFocus();
        QApplication::processEvents();
        window.userFocus(grid);
    }
    /// That many new rows.
    void fill(int rows) {
        herbs.reDim(rows - 1, choice);
        for (int row = 0; row < rows; ++row) {
            herbs.set(row, name, "당귀");
            herbs.set(row, grams, "40");
        }
        grid.bind(&herbs);
    }
    void cell(int row, int column) {
        ASSERT_TRUE(grid.userCell(row, column));
        view.showGrid();
    }
    /// Paints and gives the rows that were asked for.
    const std::set<int>& paint() {
        asked.clear();
        view.grab();
        return asked;
    }
    void send(QWidget& to, QEvent&& event) { QApplication::sendEvent(&to, &event); }
    void key(int code, const QString& text = {}, Qt::KeyboardModifiers held = {}) {
        send(view, QKeyEvent(QEvent::KeyPress, code, held, text));
    }
    /// Characters and, as signs, < (left), \b, \r and \x1b.
    void type(const QString& keys) {
        const QString signs = "<\b\r\x1b";
        const int codes[] = {Qt::Key_Left, Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Escape};
        for (const QChar typed : keys) {
            const auto at = signs.indexOf(typed);
            key(at < 0 ? typed.toUpper().unicode() : codes[at], at < 0 ? typed : QString());
        }
    }
    void compose(const QString& preedit, const QString& commit = {}) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        send(view, std::move(event));
    }
    void mouse(QEvent::Type type, const QPoint& point) {
        send(*view.viewport(), QMouseEvent(type, point, view.viewport()->mapToGlobal(QPointF(point)),
                                           Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    }
    static std::vector<screen::GridColumn> columns() {
        return {{.caption = ".", .shown = false},
                {.caption = "약재명", .editable = true, .width = 2000},
                {.caption = "한약국약재", .stops = false, .width = 3000},
                {.caption = "용량(g)", .editable = true, .alignRight = true, .width = 1500, .maxLength = 5},
                {.caption = "비고", .editable = true, .button = true, .width = 1500},
                {.caption = "선택", .button = true, .flag = true, .width = 1000}};
    }

    testing::TestDesktop desktop;
    screen::Window window{desktop, "frmTest", 9000, 9000};
    screen::Grid grid{window, "tdbTest", {}, columns()};
    tables::XArrayDB herbs;
    std::set<int> asked;
    Presses pressed;
    GridView view;
    QLineEdit& editor = *view.findChild<QLineEdit*>();
};

}  // namespace zelvo::qt
