#include "platform/qt/GridView.h"

#include <gtest/gtest.h>

#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <set>

#include "platform/qt/GridColumns.h"
#include "screen/Grid.h"
#include "screen/Window.h"
#include "support/TestDesktop.h"
#include "tables/XArrayDB.h"

namespace zelvo::qt {
namespace {

constexpr int name = 1, pharmacyName = 2, grams = 3, note = 4, choice = 5;

/// The herb table in small, with a choice beside it.
std::vector<screen::GridColumn> columns() {
    return {{.caption = ".", .shown = false},
            {.caption = "약재명", .editable = true, .width = 2000},
            {.caption = "한약국약재", .stops = false, .width = 3000},
            {.caption = "용량(g)", .editable = true, .alignRight = true, .width = 1500, .maxLength = 5},
            {.caption = "비고", .editable = true, .button = true, .width = 1500},
            {.caption = "선택", .button = true, .width = 1000}};
}

struct GridViewTest : ::testing::Test {
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
    void key(int code, const QString& text = {}, Qt::KeyboardModifiers held = {}) {
        QKeyEvent event(QEvent::KeyPress, code, held, text);
        QApplication::sendEvent(&view, &event);
    }
    /// Characters and, as signs, < (left), \b, \r and \x1b.
    void type(const QString& keys) {
        const QHash<QChar, int> named{{u'<', Qt::Key_Left},
                                      {u'\b', Qt::Key_Backspace},
                                      {u'\r', Qt::Key_Return},
                                      {u'\x1b', Qt::Key_Escape}};
        for (const QChar sign : keys)
            key(named.value(sign, sign.toUpper().unicode()), named.contains(sign) ? QString() : sign);
    }
    void compose(const QString& preedit, const QString& commit = {}) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(&view, &event);
    }
    void mouse(QEvent::Type type, const QPoint& point) {
        const QPointF global = view.viewport()->mapToGlobal(QPointF(point));
        QMouseEvent event(type, point, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
    }
    QRect rect(int row, int column) const { return view.visualRect(view.model()->index(row, column)); }

    testing::TestDesktop desktop;
    screen::Window window{desktop, "frmTest", 9000, 9000};
    screen::Grid grid{window, "tdbTest", {}, columns()};
    tables::XArrayDB herbs;
    std::set<int> asked;
    std::vector<std::pair<int, int>> pressed;
    GridView view;
    QLineEdit& editor = *view.findChild<QLineEdit*>();
};

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
    EXPECT_FALSE(view.currentIndex().isValid());
    type("\r");
    paint();
}

TEST_F(GridViewTest, TheGlassStaysWhereItIsUntilTheCursorMovesOrAllRowsAreNew) {
    fill(1000);
    cell(500, name);
    EXPECT_TRUE(paint().contains(500));
    view.verticalScrollBar()->setValue(100);
    herbs.insertRows(1000);
    grid.refresh();
    view.showGrid();
    EXPECT_EQ(grid.topRow, 100);
    EXPECT_EQ(view.currentIndex().row(), 500);
    grid.setCurrentRow(1000);
    view.showGrid();
    EXPECT_TRUE(paint().contains(1000));
    fill(1000);
    view.showGrid();
    EXPECT_EQ(grid.topRow, grid.currentRow()) << "a new result stands at its first row";
}

TEST_F(GridViewTest, TypingInACell) {
    struct Case {
        const char* what;
        int column;
        const char *keys, *stored;
    };
    for (const auto& c : {Case{"typing replaces, Enter stores", grams, "12\r", "12"},
                          Case{"Esc restores", grams, "12\x1b", "40"},
                          Case{"a listener swallows, at the end", grams, "1a2\r", "12"},
                          Case{"a listener swallows, in the middle", grams, "12<a3\r", "132"},
                          Case{"the limit, at the end", grams, "1234567\r", "12345"},
                          Case{"the limit, in the middle", grams, "12345<9\r", "12345"},
                          Case{"Backspace begins with what stands there", grams, "\b\b7\r", "7"},
                          Case{"the caret goes through the line, not the cells", name, "ab<<c\b\r", "ab"}}) {
        SCOPED_TRACE(c.what);
        herbs.set(0, grams, "40");
        cell(0, c.column);
        type(c.keys);
        EXPECT_EQ(herbs.text(0, c.column), c.stored);
        EXPECT_FALSE(editor.isVisible());
        EXPECT_TRUE(view.hasFocus());
    }
    cell(0, grams);
    type("99");
    EXPECT_TRUE(editor.isVisible());
    cell(1, grams);
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(herbs.text(0, grams), "99") << "another row stores";
    key(Qt::Key_F2);
    EXPECT_EQ(editor.text(), "40");
}

TEST_F(GridViewTest, AWordBeingComposedIsNeverCut) {
    cell(0, name);
    compose("ㄱ");
    EXPECT_TRUE(editor.isVisible());
    EXPECT_FALSE(grid.editing()) << "nothing is written yet";
    view.showGrid();
    compose("가");
    compose("나", "가");
    view.showGrid();
    EXPECT_EQ(grid.editText(), "가");
    EXPECT_TRUE(editor.isVisible());
    compose({}, "나");
    EXPECT_EQ(editor.text(), "가나");
    type("<");
    compose("다");
    compose({}, "다");
    type("\r");
    EXPECT_EQ(herbs.text(0, name), "가다나");
    cell(1, name);
    compose("ㄱ");
    compose("");
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(herbs.text(1, name), "당귀") << "given up";
    cell(1, grams);
    compose("ㄱ");
    compose({}, "ㄱ");
    EXPECT_FALSE(grid.editing() || editor.isVisible()) << "swallowed by the listener";
}

TEST_F(GridViewTest, Buttons) {
    using Presses = std::vector<std::pair<int, int>>;
    const auto press = [&](int row, int column, bool atRight, bool letGoThere = true) {
        pressed.clear();
        const QRect place = rect(row, column);
        const QPoint point = atRight ? QPoint(place.right() - 8, place.center().y()) : place.center();
        mouse(QEvent::MouseButtonPress, point);
        mouse(QEvent::MouseButtonRelease, letGoThere ? point : QPoint(2, 2));
        return pressed;
    };
    EXPECT_EQ(press(2, note, true), Presses({{2, note}}));
    EXPECT_EQ(press(3, note, true, false), Presses());
    EXPECT_EQ(press(3, note, false), Presses()) << "the text beside it";
    EXPECT_EQ(grid.currentColumn(), note);
    EXPECT_EQ(press(4, choice, false), Presses({{4, choice}}));
    EXPECT_EQ(press(5, pharmacyName, false), Presses());
    EXPECT_EQ(grid.currentRow(), 5) << "where the cursor doesn't stop, a click takes the row";

    const auto keyed = [&](int column, int code, Qt::KeyboardModifiers held = {}) {
        cell(0, column);
        pressed.clear();
        key(code, code == Qt::Key_Space ? " " : "", held);
        return pressed;
    };
    EXPECT_EQ(keyed(note, Qt::Key_F4), Presses({{0, note}}));
    EXPECT_EQ(keyed(choice, Qt::Key_Down, Qt::AltModifier), Presses({{0, choice}}));
    EXPECT_EQ(keyed(note, Qt::Key_Return, Qt::ControlModifier), Presses({{0, note}}));
    EXPECT_EQ(keyed(name, Qt::Key_F4), Presses()) << "two buttons in the row";
    EXPECT_EQ(keyed(choice, Qt::Key_Space), Presses({{0, choice}}));
    EXPECT_EQ(keyed(note, Qt::Key_Space), Presses()) << "a blank is written here";
    EXPECT_EQ(grid.editText(), " ");
}

TEST_F(GridViewTest, ColumnsKeepTheirProportions) {
    const auto width = [&](int column) { return view.columnWidth(column); };
    const auto sum = [&] {
        return width(name) + width(pharmacyName) + width(grams) + width(note) + width(choice);
    };
    EXPECT_EQ(sum(), view.viewport()->width());
    EXPECT_NEAR(width(pharmacyName), width(note) * 2, 3);
    EXPECT_DOUBLE_EQ(grid.columnLeft(grams) - grid.columnLeft(pharmacyName),
                     width(pharmacyName) * 1440.0 / view.logicalDpiX());
    const int before = width(pharmacyName);
    view.horizontalHeader()->resizeSection(name, width(name) + 100);
    EXPECT_EQ(width(pharmacyName), before - 100) << "the wide text column gives way";
    const double share = static_cast<double>(width(name)) / sum();
    view.resize(1600, 400);
    EXPECT_EQ(sum(), view.viewport()->width());
    EXPECT_NEAR(static_cast<double>(width(name)) / sum(), share, 0.01) << "as dragged";
    view.horizontalHeader()->resizeSection(note, 3);
    EXPECT_GT(width(note), 20) << "the head can still be read";
    grid.setColumnShown(note, false);
    view.showGrid();
    EXPECT_TRUE(view.isColumnHidden(note));
    EXPECT_EQ(sum(), view.viewport()->width());
    view.resize(60, 400);
    EXPECT_GT(sum(), view.viewport()->width()) << "too narrow: it scrolls";
}

}  // namespace
}  // namespace zelvo::qt
