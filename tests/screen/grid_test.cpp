#include "screen/Grid.h"

#include "screen/ScreenTest.h"
#include "screen/WindowExtent.h"
#include "tables/XArrayDB.h"

namespace zelvo::screen {
namespace {

using Columns = std::vector<int>;
using Pairs = std::vector<std::pair<int, int>>;

/// Rows that refuse what a database refuses.
struct Herbs : tables::XArrayDB {
    bool refuses = false;
    bool setCellText(std::size_t row, int column, std::string_view text) override {
        return !refuses && XArrayDB::setCellText(row, column, text);
    }
};

/// The herb table in small: a hidden column before the name, one that is passed over, grams, a note.
std::vector<GridColumn> herbColumns() {
    return {{.caption = ".", .shown = false},
            {.caption = "약재명", .editable = true},
            {.caption = "한약국약재", .stops = false},
            {.caption = "용량(g)", .editable = true},
            {.caption = "비고", .editable = true}};
}

struct GridTest : ScreenTest {
    GridTest() {
        grid.onRowChange.add([this](int row, int column) { changes.emplace_back(row, column); });
        grid.onCellAccepted.add([this](int column) { accepted.push_back(column); });
    }
    /// That many new rows.
    void fill(int rows) {
        herbs.reDim(rows - 1, 4);
        for (int row = 0; row < rows; ++row) {
            herbs.set(row, 1, row == 0 ? "당귀" : "작약");
            herbs.set(row, 3, 40 - row);
        }
        changes.clear();
        accepted.clear();
        grid.bind(&herbs);
    }
    std::string cursor() const {
        return std::to_string(grid.currentRow()) + ":" + std::to_string(grid.currentColumn());
    }

    TabControl tabs{form, "c1tPages", {"front", "back"}};
    Grid grid{form, "tdbDGL", {}, herbColumns()};
    Grid behind{form, "tdbBehind", tabs.page(1), herbColumns()};
    Herbs herbs;
    Pairs changes;
    Columns accepted;
};

TEST_F(GridTest, RefreshKeepsAFittingCurrentRowAndTellsOfIt) {
    struct Case {
        const char* name;
        int rowsBefore, current, rowsAfter, row;
        Pairs changes;
    };
    const Case cases[] = {
        {"rows come where none were", 0, -1, 3, 0, {{-1, -1}}},
        {"rows come behind the current one", 3, 1, 9, 1, {}},
        {"the current row went", 5, 4, 3, 2, {{4, 0}}},
        {"rows behind the current one went", 5, 1, 3, 1, {}},
        {"all rows went", 2, 1, 0, -1, {{1, 0}}},
        {"from the end of a walk", 3, 3, 3, 2, {{3, 0}}},
    };
    desktop.show(form, [&] {
        for (const Case& c : cases) {
            grid.bind(nullptr);
            fill(c.rowsBefore);
            grid.setCurrentRow(c.current);
            if (c.current == c.rowsBefore) grid.moveNext();
            herbs.insertRows(c.rowsBefore, std::max(0, c.rowsAfter - c.rowsBefore));
            herbs.deleteRows(c.rowsAfter, std::max(0, c.rowsBefore - c.rowsAfter));
            changes.clear();
            grid.refresh();
            EXPECT_EQ(grid.currentRow(), c.row) << c.name;
            EXPECT_EQ(changes, c.changes) << c.name;
        }
        for (const int current : {2, 0}) {
            fill(3);
            grid.setCurrentRow(current);
            fill(3);
            EXPECT_EQ(grid.currentRow(), 0) << "all rows are replaced";
            EXPECT_EQ(changes, (Pairs{{-1, -1}}));
        }
    });
}

TEST_F(GridTest, TheRowEventWaitsUntilTheGridIsSeen) {
    behind.onRowChange.add(
        [&](int row, int) { log += std::to_string(row) + " of " + std::to_string(behind.rowCount()) + " "; });
    fill(2);  // the window is not shown yet
    behind.bind(&herbs);
    herbs.insertRows(2);
    behind.refresh();
    desktop.show(form, [&] {
        EXPECT_EQ(changes, (Pairs{{-1, -1}})) << "the grid in front, once the window is shown";
        EXPECT_EQ(take(), "") << "the grid on the page behind";
        for (const int page : {1, 0, 1}) tabs.userClick(page);
        EXPECT_EQ(take(), "-1 of 3 ");
    });
}

TEST_F(GridTest, KeysEditAndMove) {
    struct Case {
        const char* name;
        int column;
        std::vector<std::string> keys;
        const char* grams;  ///< of row 0 afterwards
        Columns accepted;
        const char* cursor;
    };
    const Case cases[] = {
        {"typing replaces, Enter goes on", 3, {"1", "2", "Enter"}, "12", {3}, "0:4"},
        {"the same text again is no change", 3, {"4", "0", "Enter"}, "40", {}, "0:4"},
        {"backspace keeps the rest", 3, {"Backspace", "7", "Down"}, "47", {3}, "1:3"},
        {"delete empties", 3, {"Delete", "Left"}, "", {3}, "0:1"},
        {"Esc cancels", 3, {"9", "Esc", "Right"}, "40", {}, "0:4"},
        {"a dot is no Delete", 3, {"1", ".", "5", "Home"}, "1.5", {3}, "0:1"},
        {"typing lands where the cursor can be", 0, {"x", "Esc"}, "40", {}, "0:1"},
        {"the ends of the rows hold", 3, {"Up", "Down", "Down", "Down"}, "40", {}, "1:3"},
        {"a Tab leaves the grid and ends the edit", 3, {"8", "Tab"}, "8", {3}, "0:3"},
    };
    desktop.show(form, [&] {
        for (const Case& c : cases) {
            fill(2);
            grid.setFocus();
            grid.setCurrentColumn(c.column);
            keys(c.keys);
            EXPECT_EQ(herbs.text(0, 3), c.grams) << c.name;
            EXPECT_EQ(accepted, c.accepted) << c.name;
            EXPECT_EQ(cursor(), c.cursor) << c.name;
        }
    });
}

TEST_F(GridTest, TypingOverACellObeysColumnsListenersAndTheSource) {
    grid.onKeyPress.add([](char32_t& key) { key = key >= U'0' && key <= U'9' ? key : 0; });
    desktop.show(form, [&] {
        fill(1);
        for (const char* typed : {"1a2", "abc", "99"}) {
            herbs.refuses = typed[0] == '9';
            EXPECT_TRUE(grid.userType(3, typed));
            EXPECT_EQ(grid.value(3), "12") << "a listener refuses letters, the source the last";
        }
        EXPECT_EQ(accepted, Columns{3}) << "what is not stored is not accepted";
        grid.allowsUpdate = false;
        EXPECT_FALSE(grid.userType(3, "1")) << "the grid takes no changes";
    });
}

TEST_F(GridTest, AnAcceptedCellIsToldOnceWhateverTheListenerDoes) {
    grid.onCellAccepted.add([&](int) {
        grid.commitEdit();
        grid.refresh();
        herbs.deleteRows(1);
        grid.refresh();
    });
    desktop.show(form, [&] {
        fill(2);
        grid.setFocus();
        grid.setCurrentColumn(1);
        keys({"x", "Down"});
        EXPECT_EQ(accepted, Columns{1});
        EXPECT_EQ(herbs.text(0, 1), "x");
        EXPECT_EQ(cursor(), "0:1") << "the row that the cursor was on its way to is gone";
    });
}

/// What was left comes back where it still means something.
TEST_F(GridTest, ColumnsComeBackAsTheyWereLeft) {
    const std::vector<GridColumn> columns{
        {.caption = "가"}, {.caption = "나", .editable = true}, {.caption = "다"}};
    for (const auto& [kept, shown] : {std::pair{"", "1000 1000 1000"},
                                      {"가\t500\t다\t-700", "500 1000 0"},
                                      {"나\t-300\t가\t-0", "0 300 1000"},
                                      {"가\t-5\t다\t-5\t라\t9", "0 1000 0"},
                                      {"\t\t가\tx\t다\t1e99\t나", "1000 1000 1000"}}) {
        Window window(desktop, "frmKept", 1, 1);
        Grid left(window, "tdbLeft", {}, columns);
        desktop.remembered().keep("frmKept tdbLeft", kept);
        left.recall();
        std::string widths;
        for (int i = 0; i < 3; ++i)
            widths += (i > 0 ? " " : "") + std::to_string(static_cast<int>(left.widthOnGlass(i)));
        EXPECT_EQ(widths, shown) << kept;
    }
    const WindowExtent design{1000, 600}, screen{1500, 1200};
    for (const auto& [kept, opens] : {std::pair{"", WindowExtent{1000, 600}},
                                      {"1200 800 maximized", {1200, 800, true}},
                                      {"99999 3", {1500, 300}},
                                      {"x -5 9", {1000, 600}},
                                      {"1e300 nan", {1000, 600}}})
        EXPECT_EQ(textOf(openingExtent(kept, design, screen)), textOf(opens)) << kept;
}

}  // namespace
}  // namespace zelvo::screen
