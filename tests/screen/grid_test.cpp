#include "screen/Grid.h"

#include <gtest/gtest.h>

#include "screen/Fields.h"
#include "screen/TextField.h"
#include "support/TestDesktop.h"
#include "tables/XArrayDB.h"

namespace zelvo::screen {
namespace {

using Rows = std::vector<std::vector<std::string>>;
using Pairs = std::vector<std::pair<int, int>>;

/// Rows with named columns, as a result set has them; it can refuse what a database refuses.
class NamedRows : public tables::GridSource {
public:
    std::vector<std::string> fields;
    Rows rows;
    std::uint64_t made = 1;
    bool refuses = false;
    int written = 0;

    std::size_t rowCount() const override { return rows.size(); }
    int columnCount() const override { return static_cast<int>(fields.size()); }
    int columnOf(std::string_view field) const override {
        const auto found = std::find(fields.begin(), fields.end(), field);
        return found == fields.end() ? -1 : static_cast<int>(found - fields.begin());
    }
    std::string cellText(std::size_t row, int column) const override {
        return rows.at(row).at(static_cast<std::size_t>(column));
    }
    bool setCellText(std::size_t row, int column, std::string_view text) override {
        if (!refuses) rows.at(row).at(static_cast<std::size_t>(column)) = text;
        return !refuses;
    }
    bool removeRow(std::size_t row) override {
        if (!refuses) rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(row));
        return !refuses;
    }
    bool writeRow(std::size_t) override { return !refuses && ++written > 0; }
    std::uint64_t generation() const override { return made; }
};

/// The herb table in small: a hidden column before the name, one that is passed over, grams, price, a note.
std::vector<GridColumn> herbColumns() {
    return {{.caption = ".", .shown = false},
            {.caption = "약재명", .editable = true},
            {.caption = "한약국약재", .stops = false},
            {.caption = "용량(g)", .editable = true, .maxLength = 4},
            {.caption = "단가", .stops = false, .format = basics::NumberPicture::SeparatedZero},
            {.caption = "비고", .editable = true, .button = true}};
}

class GridTest : public ::testing::Test {
protected:
    GridTest() {
        grid.onRowChange.add([this](int row, int column) { changes.emplace_back(row, column); });
        grid.onCellAccepted.add([this](int column) { accepted.push_back(column); });
        grid.onEditBegin.add([this](int column) { begun.push_back(column); });
    }
    void fill(const Rows& rows) {
        herbs.reDim(static_cast<int>(rows.size()) - 1, 5);
        for (std::size_t row = 0; row < rows.size(); ++row) {
            for (std::size_t column = 0; column < rows[row].size(); ++column)
                herbs.set(static_cast<int>(row), static_cast<int>(column), rows[row][column]);
        }
        grid.bind(&herbs);
        changes.clear();
    }
    void keys(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            form.userKey(Key::named(name).value());
            desktop.deliverKeys();
        }
    }
    std::string cellName() const {
        return std::to_string(grid.currentRow()) + ":" + std::to_string(grid.currentColumn());
    }

    testing::TestDesktop desktop;
    Window form{desktop, "frmTest", 9000, 6000};
    TabControl tabs{form, "c1tPages", {"front", "back"}};
    Grid grid{form, "tdbDGL", {}, herbColumns()};
    Grid behind{form, "tdbBehind", tabs.page(1), herbColumns()};
    TextField txtNext{form, "txtNext"};
    tables::XArrayDB herbs;
    Pairs changes;
    std::vector<int> accepted, begun;
};

TEST_F(GridTest, RefreshKeepsAFittingCurrentRowAndTellsOfIt) {
    struct Case {
        const char* name;
        int rowsBefore, current, rowsAfter;
        bool replaced;
        int row;
        Pairs changes;
    };
    const Case cases[] = {
        {"rows come where none were", 0, -1, 3, false, 0, {{-1, -1}}},
        {"rows come behind the current one", 3, 1, 9, false, 1, {}},
        {"all rows are replaced", 3, 2, 3, true, 0, {{-1, -1}}},
        {"all rows are replaced on the first row", 3, 0, 3, true, 0, {{-1, -1}}},
        {"the current row went", 5, 4, 3, false, 2, {{4, 0}}},
        {"rows behind the current one went", 5, 1, 3, false, 1, {}},
        {"all rows went", 2, 1, 0, false, -1, {{1, 0}}},
        {"still no rows", 0, -1, 0, true, -1, {}},
        {"from the end of a walk", 3, 3, 3, false, 2, {{3, 0}}},
    };
    desktop.show(form, [&] {
        for (const Case& c : cases) {
            NamedRows rows;
            rows.rows.resize(static_cast<std::size_t>(c.rowsBefore));
            grid.bind(nullptr);
            grid.bind(&rows);
            grid.setCurrentRow(c.current);
            if (c.current == c.rowsBefore) grid.moveNext();
            rows.rows.resize(static_cast<std::size_t>(c.rowsAfter));
            if (c.replaced) ++rows.made;
            EXPECT_EQ(grid.rowCount(), c.rowsBefore) << c.name << ": before the refresh";
            changes.clear();
            grid.refresh();
            EXPECT_EQ(grid.currentRow(), c.row) << c.name;
            EXPECT_EQ(grid.rowCount(), c.rowsAfter) << c.name;
            EXPECT_EQ(changes, c.changes) << c.name;
            grid.bind(nullptr);
        }
    });
}

TEST_F(GridTest, TheRowEventWaitsUntilTheGridIsSeen) {
    Pairs seen;
    std::vector<int> countAtEvent;
    behind.onRowChange.add([&](int row, int column) {
        seen.emplace_back(row, column);
        countAtEvent.push_back(behind.rowCount());
    });
    fill({{"", "당귀"}, {"", "작약"}});
    behind.bind(&herbs);
    herbs.insertRows(2);
    behind.refresh();
    EXPECT_TRUE(changes.empty()) << "the window is not shown";
    desktop.show(form, [&] {
        EXPECT_EQ(changes, (Pairs{{-1, -1}})) << "the grid in front, once the window is shown";
        EXPECT_TRUE(seen.empty()) << "the grid on the page behind";
        tabs.userClick(1);
        tabs.userClick(0);
        tabs.userClick(1);
        EXPECT_EQ(seen, (Pairs{{-1, -1}}));
        EXPECT_EQ(countAtEvent, std::vector<int>{3});
        tabs.userClick(0);
        herbs.reDim(-1, 5);
        behind.refresh();
        tabs.userClick(1);
        EXPECT_EQ(seen.size(), 1U) << "no row is left to tell of";
    });
}

TEST_F(GridTest, KeysEditAndMove) {
    struct Case {
        const char* name;
        int column;
        std::vector<std::string> keys;
        const char* grams;  ///< of row 0 afterwards
        std::vector<int> accepted, begun;
        const char* cursor;
    };
    const Case cases[] = {
        {"typing replaces, Enter goes on", 3, {"1", "2", "Enter"}, "12", {3}, {3}, "0:5"},
        {"the same text again is no change", 3, {"4", "0", "Enter"}, "40", {}, {3}, "0:5"},
        {"backspace keeps the rest", 3, {"Backspace", "7", "Down"}, "47", {3}, {3}, "1:3"},
        {"delete empties", 3, {"Delete", "Left"}, "", {3}, {3}, "0:1"},
        {"Esc cancels", 3, {"9", "Esc", "Right"}, "40", {}, {3}, "0:5"},
        {"no more than the column takes", 3, {"1", "2", "3", "4", "5", "Right"}, "1234", {3}, {3}, "0:5"},
        {"a dot is no Delete", 3, {"1", ".", "5", "Home"}, "1.5", {3}, {3}, "0:1"},
        {"the step jumps over columns", 1, {"Enter"}, "40", {}, {}, "0:3"},
        {"nothing behind the last column", 5, {"Enter", "Right"}, "40", {}, {}, "0:5"},
        {"a hidden column leads into the first", 0, {"Enter"}, "40", {}, {}, "0:1"},
        {"typing lands where the cursor can be", 0, {"x", "Esc"}, "40", {}, {1}, "0:1"},
        {"the ends of the rows hold", 3, {"Up", "Down", "Down", "Down"}, "40", {}, {}, "1:3"},
        {"a Tab leaves the grid and ends the edit", 3, {"8", "Tab"}, "8", {3}, {3}, "0:3"},
    };
    desktop.show(form, [&] {
        for (const Case& c : cases) {
            fill({{"", "당귀", "당귀(중국)", "40", "1000"}, {"", "작약", "", "6"}});
            grid.setFocus();
            grid.setCurrentColumn(c.column);
            accepted.clear();
            begun.clear();
            keys(c.keys);
            EXPECT_EQ(herbs.text(0, 3), c.grams) << c.name;
            EXPECT_EQ(accepted, c.accepted) << c.name;
            EXPECT_EQ(begun, c.begun) << c.name;
            EXPECT_EQ(cellName(), c.cursor) << c.name;
        }
    });
}

TEST_F(GridTest, TypingOverACellObeysColumnsListenersAndTheSource) {
    NamedRows rows;
    rows.fields = {"a", "b", "c", "d", "e", "f"};
    rows.rows = {{"", "당귀", "당귀(중국)", "4", "1000", ""}};
    desktop.show(form, [&] {
        grid.bind(&rows);
        EXPECT_FALSE(grid.userType(0, "1")) << "hidden";
        EXPECT_FALSE(grid.userType(2, "1")) << "passed over";
        grid.allowsUpdate = false;
        EXPECT_FALSE(grid.userType(3, "1")) << "the grid takes no changes";
        grid.allowsUpdate = true;
        EXPECT_TRUE(grid.userType(3, "7"));
        EXPECT_EQ(rows.rows[0][3], "7");
        EXPECT_TRUE(grid.userType(3, ""));
        EXPECT_EQ(rows.rows[0][3], "");
        EXPECT_EQ(accepted, (std::vector<int>{3, 3}));

        grid.onKeyPress.add([](char32_t& key) { key = key >= U'0' && key <= U'9' ? key : 0; });
        EXPECT_TRUE(grid.userType(3, "1a2"));
        EXPECT_EQ(rows.rows[0][3], "12") << "a listener refuses letters";
        EXPECT_TRUE(grid.userType(3, "abc"));
        EXPECT_EQ(rows.rows[0][3], "12") << "nothing was typed";
        EXPECT_EQ(accepted.size(), 3U);

        rows.refuses = true;
        EXPECT_TRUE(grid.userType(3, "99"));
        EXPECT_EQ(accepted.size(), 3U) << "what is not stored is not accepted";
        EXPECT_EQ(grid.value(3), "12");
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
        fill({{"", "당귀"}, {"", "작약"}});
        grid.setFocus();
        grid.setCurrentColumn(1);
        keys({"x", "Down"});
        EXPECT_EQ(accepted, std::vector<int>{1});
        EXPECT_EQ(herbs.text(0, 1), "x");
        EXPECT_EQ(grid.rowCount(), 1);
        EXPECT_EQ(grid.currentRow(), 0) << "the row that the cursor was on its way to is gone";
    });
}

TEST_F(GridTest, EnterAfterAListenerMadeANewRowLandsInItsFirstCell) {
    grid.onKeyDown.add([&](int& code) {
        if (code != keys::enter || grid.currentRow() != herbs.upperRow()) return;
        herbs.insertRows(herbs.upperRow() + 1);
        grid.refresh();
        grid.setCurrentRow(herbs.upperRow());
        grid.setCurrentColumn(0);
    });
    desktop.show(form, [&] {
        fill({});
        grid.setFocus();
        keys({"Enter"});
        EXPECT_EQ(cellName(), "0:1");
        keys({"x", "Right", "Right", "Enter"});
        EXPECT_EQ(cellName(), "1:1");
        EXPECT_EQ(herbs.text(0, 1), "x");
    });
}

TEST_F(GridTest, RowsAreWalkedWrittenAndDeleted) {
    NamedRows rows;
    rows.fields = {"STK_Date", "STK_Money"};
    rows.rows = {{"2024-05-06", "1000"}, {"2024-05-07", "2500"}, {"2024-05-08", "300"}};
    Grid stock(form, "tdbInStock", {},
               {{.caption = "금액(원)",
                 .field = "STK_Money",
                 .editable = true,
                 .format = basics::NumberPicture::SeparatedZero},
                {.caption = "없음", .field = "STK_None"}});
    int deleted = 0;
    stock.onRowDeleted.add([&] { ++deleted; });
    stock.onCellShow.add([](int, int column, std::string& text) {
        if (column == 0) text += "원";
    });
    desktop.show(form, [&] {
        EXPECT_FALSE(stock.deleteCurrentRow() || stock.writeCurrentRow()) << "no source";
        stock.bind(&rows);
        std::string walked;
        for (stock.moveFirst(); !stock.atEnd(); stock.moveNext()) walked += stock.value("금액(원)") + " ";
        EXPECT_EQ(walked, "1000 2500 300 ");
        EXPECT_EQ(stock.value(0), "") << "behind the last row";
        stock.moveFirst();
        EXPECT_EQ(stock.shownText(1, 0), "2,500원");
        EXPECT_EQ(stock.shownText(9, 0) + stock.valueAt(1, 1) + stock.value("anything"), "");

        stock.setCurrentRow(1);
        stock.setValue("금액(원)", "2600");
        EXPECT_EQ(rows.rows[1][1], "2600");
        EXPECT_TRUE(stock.writeCurrentRow());
        EXPECT_TRUE(stock.deleteCurrentRow());
        EXPECT_EQ(stock.value(0), "300") << "the next row has moved up";
        EXPECT_TRUE(stock.deleteCurrentRow());
        EXPECT_EQ(stock.currentRow(), 0) << "the new last row";
        rows.refuses = true;
        EXPECT_FALSE(stock.deleteCurrentRow());
        EXPECT_FALSE(stock.writeCurrentRow());
        EXPECT_EQ(deleted, 2);
        EXPECT_EQ(stock.rowCount(), 1);
    });
}

TEST_F(GridTest, ClicksMoveTheCursorAndPressWhatIsThere) {
    std::vector<int> pressed, heads;
    grid.onCellButton.add([&](int column) { pressed.push_back(column); });
    grid.onHeadClick.add([&](int column) { heads.push_back(column); });
    desktop.show(form, [&] {
        fill({});
        EXPECT_FALSE(grid.userCellButton(5)) << "no row, no button";
        fill({{"", "당귀"}, {"", "작약"}});
        txtNext.setFocus();
        grid.userRow(1);
        EXPECT_EQ(changes, (Pairs{{0, 0}})) << "one event for row and column";
        EXPECT_EQ(cellName(), "1:1");
        EXPECT_TRUE(grid.hasFocus());
        EXPECT_FALSE(grid.userCellButton(1));
        EXPECT_TRUE(grid.userCellButton(5));
        EXPECT_EQ(pressed, std::vector<int>{5});
        EXPECT_EQ(cellName(), "1:5");
        grid.userHead(2);
        EXPECT_EQ(heads, std::vector<int>{2});
        grid.setEnabled(false);
        grid.userRow(0);
        EXPECT_EQ(grid.currentRow(), 1) << "a grid that can't be reached takes no click";
    });
}

}  // namespace
}  // namespace zelvo::screen
