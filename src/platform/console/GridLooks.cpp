#include "platform/console/Looks.h"
#include "platform/console/Texts.h"

namespace zelvo::console::looks {

using screen::Grid;

void rows(Look& look) {
    const auto& grid = look.as<Grid>("grid");
    compare("rows of " + grid.name(), look.lastNumber(), grid.rowCount());
}

void current(Look& look) {
    const auto& grid = look.as<Grid>("grid");
    compare("current row of " + grid.name(), look.lastNumber(), grid.onRow() ? grid.currentRow() : -1);
}

namespace {

struct Cell {
    Grid& grid;
    int row, column;
    std::string expected, what;
};

Cell cellOf(Look& look) {
    auto& grid = look.as<Grid>("grid");
    const int row = look.words.number("ROW");
    const std::string column = look.words.word("COLUMN");
    std::string expected = look.lastText();
    std::string what = "row " + std::to_string(row) + ", column " + column + " of " + grid.name();
    if (row < 0 || row >= grid.rowCount()) {
        throw ExpectationError(what + " " + inQuotes(expected), std::to_string(grid.rowCount()) + " rows");
    }
    return {grid, row, UserActions::columnIn(grid, column), std::move(expected), std::move(what)};
}

}  // namespace

void cell(Look& look) {
    const Cell cell = cellOf(look);
    compare(cell.what, cell.expected, cell.grid.shownText(cell.row, cell.column));
}

void value(Look& look) {
    const Cell cell = cellOf(look);
    compare("value of " + cell.what, cell.expected, cell.grid.valueAt(cell.row, cell.column));
}

void glass(Look& look) {
    const Cell cell = cellOf(look);
    compare("glass of " + cell.what, cell.expected, cell.grid.glassText(cell.row, cell.column));
}

void columns(Look& look) {
    auto& grid = look.as<Grid>("grid");
    std::vector<std::string> captions;
    for (int i = 0; i < grid.columnCount(); ++i)
        if (grid.onGlass(i)) captions.push_back(grid.column(i).caption);
    compare("columns of " + grid.name(), look.words.allWords(), captions);
}

void hint(Look& look) {
    const auto& grid = look.as<Grid>("grid");
    compare("hint of " + grid.name(), look.lastText(), grid.rowCount() > 0 ? "" : grid.emptyHint);
}

void style(Look& look) {
    auto& grid = look.as<Grid>("grid");
    const int row = look.words.number("ROW");
    const std::string expected = look.lastText();
    const std::string what = "style of row " + std::to_string(row) + " of " + grid.name();
    if (row < 0 || row >= grid.rowCount()) {
        throw ExpectationError(what + " " + inQuotes(expected), std::to_string(grid.rowCount()) + " rows");
    }
    compare(what, expected, grid.rowStyle(row));
}

}  // namespace zelvo::console::looks
