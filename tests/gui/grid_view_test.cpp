#include "gui/GridViewTest.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>

namespace zelvo::qt {
namespace {

TEST_F(GridViewTest, AMillionRowsAreAskedForWhereTheyAreSeen) {
    fill(1'000'000);
    view.showGrid();
    EXPECT_LT(paint().size(), 20U);
    key(Qt::Key_End, {}, Qt::ControlModifier);
    EXPECT_LT(paint().size(), 20U);
    EXPECT_TRUE(asked.contains(999'999));
    EXPECT_EQ(grid.currentRow(), 999'999);
    EXPECT_TRUE(asked.contains(grid.topRow));
    key(Qt::Key_PageUp);
    EXPECT_LT(grid.currentRow(), 999'990);
}

TEST_F(GridViewTest, AHeldKeyTellsTheRowThatItRestsOn) {
    fill(100);
    view.showGrid();
    std::string told;
    grid.onRowChange.add(
        [&](int last, int) { told += std::to_string(last) + ">" + std::to_string(grid.currentRow()) + " "; });
    key(Qt::Key_Down);
    for (int i = 0; i < 5; ++i) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(&view, &held);
    }
    EXPECT_EQ(view.currentIndex().row(), 6);
    EXPECT_EQ(told, "0>1 ");
    QEventLoop rest;
    QTimer::singleShot(300, &rest, &QEventLoop::quit);
    rest.exec();
    EXPECT_EQ(told, "0>1 1>6 ");
}

TEST_F(GridViewTest, RowsGoAwayUnderTheView) {
    fill(1000);
    grid.setCurrentRow(999);
    view.showGrid();
    herbs.reDim(1, choice);
    paint();
    EXPECT_EQ(view.model()->rowCount(), 1000) << "as of the last refresh";
    EXPECT_EQ(view.model()->index(999, name).data().toString(), "");
    grid.refresh();
    view.showGrid();
    EXPECT_EQ(view.model()->rowCount(), 2);
    EXPECT_EQ(view.currentIndex().row(), grid.currentRow());
    fill(0);
    view.showGrid();
    type("\r");
    paint();
    fill(5000);
    grid.setCurrentRow(3);
    view.showGrid();
    EXPECT_EQ(view.currentIndex().row(), 3) << "a whole list that comes at once";
    view.verticalScrollBar()->setValue(100);
    herbs.insertRows(5000);
    grid.refresh();
    view.showGrid();
    EXPECT_EQ(grid.topRow, 100) << "it stays where it is";
    desktop.show(window, [this] { fill(1000); });
    view.showGrid();
    EXPECT_EQ(grid.topRow, 0) << "a new result stands at its first row";
}

TEST_F(GridViewTest, ColumnsAndRowsForTheEye) {
    QHeaderView& heads = *view.horizontalHeader();
    const QPoint edge(heads.sectionViewportPosition(pharmacyName), heads.height() - 5);
    const auto drag = [&](QEvent::Type type, int by) {
        send(*heads.viewport(), QMouseEvent(type, edge + QPointF(by, 0), edge + QPointF(by, 0),
                                            Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    };
    const auto kept = [this] { return desktop.remembered().text("frmTest tdbTest"); };
    const int before = heads.sectionSize(name);
    drag(QEvent::MouseButtonPress, 0);
    drag(QEvent::MouseMove, 30);
    drag(QEvent::MouseMove, 60);
    EXPECT_EQ(kept(), "") << "not for each pixel";
    drag(QEvent::MouseButtonRelease, 60);
    EXPECT_EQ(heads.sectionSize(name), before + 60);
    EXPECT_TRUE(kept().starts_with("약재명\t25")) << kept();

    key(Qt::Key_Menu);
    key(Qt::Key_F10, {}, Qt::ShiftModifier);
    const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu && !menu->accessibleName().isEmpty());
    const QList<QAction*> columns = menu->actions().constLast()->menu()->actions();
    EXPECT_FALSE(columns[0]->isEnabled() || columns[2]->isEnabled()) << "these are worked in";
    columns[1]->trigger();
    EXPECT_TRUE(heads.isSectionHidden(pharmacyName));
    EXPECT_EQ(heads.length(), view.viewport()->width()) << "the others take its room";
    QApplication::activePopupWidget()->close();

    key(Qt::Key_Down, {}, Qt::ShiftModifier);
    herbs.set(0, choice, true);
    herbs.set(1, note, "두\t줄\n입니다");
    key(Qt::Key_C, {}, Qt::ControlModifier);
    EXPECT_EQ(desktop.copied(), "약재명\t용량(g)\t비고\t선택\n당귀\t40\t\t✓\n당귀\t40\t두 줄 입니다\t\n");
    cell(0, grams);
    type("12");
    key(Qt::Key_A, {}, Qt::ControlModifier);
    key(Qt::Key_C, {}, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "12") << "an open cell keeps its own";
}

TEST_F(GridViewTest, TypingInACell) {
    struct Case {
        const char* what;
        int column;
        const char *keys, *stored;
    };
    for (const auto& c : {Case{"typing replaces, Enter stores", grams, "12\r", "12"},
                          Case{"Esc restores", grams, "12\x1b", "40"},
                          Case{"a listener swallows, in the middle", grams, "12<a3\r", "132"},
                          Case{"the limit, in the middle", grams, "12345<9\r", "12345"},
                          Case{"Backspace begins with what stands there", grams, "\b\b7\r", "7"},
                          Case{"the caret goes through the line, not the cells", name, "ab<<c\b\r", "ab"}}) {
        SCOPED_TRACE(c.what);
        herbs.set(0, grams, "40");
        cell(0, c.column);
        type(c.keys);
        EXPECT_EQ(herbs.text(0, c.column), c.stored);
        EXPECT_FALSE(editor.isVisible());
        EXPECT_EQ(view.window()->focusWidget(), &view);
    }
    cell(0, grams);
    type("99");
    EXPECT_TRUE(editor.isVisible());
    cell(1, grams);
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(herbs.text(0, grams), "99") << "another row stores";
    QApplication::clipboard()->setText("1234567\n8");
    key(Qt::Key_V, {}, Qt::ControlModifier);
    EXPECT_EQ(editor.text(), "12345") << "pasting opens the cell";
    type("\x1b");
    EXPECT_EQ(herbs.text(1, grams), "40");
}

TEST_F(GridViewTest, AWordBeingComposedIsNeverCut) {
    cell(0, name);
    compose("ㄱ");
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(grid.editText(), "") << "nothing is written yet";
    view.showGrid();
    compose("가");
    compose("나", "가");
    view.showGrid();
    EXPECT_EQ(grid.editText(), "가");
    EXPECT_TRUE(editor.isVisible());
    compose({}, "나");
    EXPECT_EQ(editor.text(), "가나");
    compose("라");
    grid.userEdit("마");
    view.showGrid();
    EXPECT_EQ(editor.text(), "가나") << "the line is let alone meanwhile";
    compose("");
    EXPECT_EQ(editor.text(), "마");
    type("<");
    compose("다");
    compose({}, "다");
    type("\r");
    EXPECT_EQ(herbs.text(0, name), "다마");
    cell(1, name);
    compose("ㄱ");
    compose("");
    EXPECT_TRUE(editor.isVisible()) << "as after a key: the syllable may yet come";
    type("\x1b");
    EXPECT_EQ(herbs.text(1, name), "당귀") << "given up";
    cell(1, grams);
    compose("ㄱ");
    compose({}, "ㄱ");
    EXPECT_FALSE(grid.editing() || editor.isVisible()) << "swallowed by the listener";
}

TEST_F(GridViewTest, ButtonsByThePointer) {
    struct Case {
        const char* what;
        int row, column;
        bool atRight, letGoThere, presses;
    };
    for (const auto& c :
         {Case{"the button", 2, note, true, true, true},
          Case{"let go elsewhere", 2, note, true, false, false},
          Case{"the text beside it", 3, note, false, true, false},
          Case{"a choice, anywhere in its cell", 4, choice, false, true, true},
          Case{"no button, and the cursor doesn't stop", 5, pharmacyName, false, true, false}}) {
        SCOPED_TRACE(c.what);
        pressed.clear();
        const QRect place = view.visualRect(view.model()->index(c.row, c.column));
        const QPoint point = c.atRight ? QPoint(place.right() - 8, place.center().y()) : place.center();
        mouse(QEvent::MouseButtonPress, point);
        mouse(QEvent::MouseButtonRelease, c.letGoThere ? point : QPoint(2, 2));
        EXPECT_EQ(pressed, c.presses ? Presses({{c.row, c.column}}) : Presses());
        EXPECT_EQ(grid.currentRow(), c.row);
    }
}

TEST_F(GridViewTest, ButtonsByTheKeyboard) {
    struct Case {
        const char* what;
        int column, key;
        Qt::KeyboardModifiers held;
        bool presses;
    };
    for (const auto& c : {Case{"F4", note, Qt::Key_F4, {}, true},
                          Case{"Alt+Down", choice, Qt::Key_Down, Qt::AltModifier, true},
                          Case{"two buttons in the row", name, Qt::Key_F4, {}, false},
                          Case{"a blank takes the choice", choice, Qt::Key_Space, {}, true},
                          Case{"a blank is written", note, Qt::Key_Space, {}, false}}) {
        SCOPED_TRACE(c.what);
        cell(0, c.column);
        pressed.clear();
        key(c.key, c.key == Qt::Key_Space ? " " : "", c.held);
        EXPECT_EQ(pressed, c.presses ? Presses({{0, c.column}}) : Presses());
    }
    EXPECT_EQ(grid.editText(), " ");
}

}  // namespace
}  // namespace zelvo::qt
