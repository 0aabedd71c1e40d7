#include <algorithm>
#include <utility>

#include "basics/Text.h"
#include "screen/Grid.h"
#include "screen/Window.h"

// What the user makes of a grid for the eye: columns and their widths, rows that are marked and copied.
namespace zelvo::screen {

namespace {

constexpr const char* yesMark = "✓";

/// A cell within a line of cells: its breaks and tabs would part what belongs together.
std::string inLine(const std::string& text) {
    std::string line;
    for (const char c : basics::trim(text)) {
        const bool parts = c == '\t' || c == '\n' || c == '\r';
        if (!parts || !line.ends_with(' ')) line += parts ? ' ' : c;
    }
    return line;
}

}  // namespace

bool Grid::onGlass(int column) const {
    if (column < 0 || column >= columnCount()) return false;
    const auto index = static_cast<std::size_t>(column);
    return columns_[index].shown && !choices_.hidden(index);
}

double Grid::widthOnGlass(int column) const {
    if (!onGlass(column)) return 0;
    const auto index = static_cast<std::size_t>(column);
    const double chosen = choices_.width(index);
    return chosen > 0 ? chosen : std::max(columns_[index].width, 1.0);
}

bool Grid::mayHide(int column) const {
    if (column < 0 || column >= columnCount()) return false;
    const GridColumn& asked = this->column(column);
    if (!asked.shown || asked.editable || asked.button) return false;
    for (int i = 0; i < columnCount(); ++i)
        if (i != column && onGlass(i) && !this->column(i).button) return true;
    return false;
}

bool Grid::userHide(int column, bool hidden) {
    if (!mayHide(column)) return false;
    window().userInput([this, column, hidden] {
        choices_.hide(static_cast<std::size_t>(column), hidden);
        keepColumns();
    });
    return true;
}

void Grid::userWidths(const std::vector<double>& widths) {
    double designed = 0, given = 0;
    for (int i = 0; i < columnCount(); ++i) {
        if (!onGlass(i) || static_cast<std::size_t>(i) >= widths.size()) continue;
        designed += column(i).width;
        given += widths[static_cast<std::size_t>(i)];
    }
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (widths.empty()) {
            choices_.setWidth(i, 0);
        } else if (onGlass(static_cast<int>(i)) && i < widths.size() && given > 0) {
            choices_.setWidth(i, widths[i] * designed / given);
        }
    }
    keepColumns();
}

void Grid::keepColumns() {
    window().desktop().remembered().keep(window().rememberedName(name()), choices_.text(columns_));
    touch();
}

/// A column that is worked in is never away, whatever was left.
void Grid::recall() {
    const ColumnChoices kept =
        ColumnChoices::read(window().desktop().remembered().text(window().rememberedName(name())), columns_);
    choices_ = {};
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        choices_.setWidth(i, kept.width(i));
        if (kept.hidden(i) && mayHide(static_cast<int>(i))) choices_.hide(i, true);
    }
    touch();
}

bool Grid::says(int row, int column) const {
    const std::string value = valueAt(row, column);
    return !value.empty() && value != "0" && value != "False";
}

std::string Grid::glassText(int row, int column) {
    if (column < 0 || column >= columnCount() || !this->column(column).flag) return shownText(row, column);
    return says(row, column) ? yesMark : "";
}

Grid::Rows Grid::markedRows() const {
    if (marked_) return *marked_;
    return onRow() ? Rows{row_, row_} : Rows{};
}

void Grid::userMark(int row) {
    userClicks([this, row] {
        commitEdit();
        if (!onRow() || row < 0 || row >= rows_) return;
        marked_ = Rows{std::min(row, row_), std::max(row, row_)};
        touch();
    });
}

void Grid::userMarkAll() {
    userClicks([this] {
        commitEdit();
        if (rows_ == 0) return;
        marked_ = Rows{0, rows_ - 1};
        touch();
    });
}

void Grid::userCopy() {
    const Rows rows = markedRows();
    if (rows.first < 0) return;
    std::string lines;
    const auto addLine = [&](const auto& cell) {
        bool first = true;
        for (int i = 0; i < columnCount(); ++i) {
            if (!onGlass(i)) continue;
            if (!std::exchange(first, false)) lines += '\t';
            lines += inLine(cell(i));
        }
        lines += '\n';
    };
    addLine([&](int i) { return column(i).caption; });
    for (int row = rows.first; row <= rows.last; ++row) addLine([&](int i) { return glassText(row, i); });
    window().desktop().toClipboard(lines);
}

void Grid::userCopyCell() {
    if (onRow() && onGlass(column_)) window().desktop().toClipboard(glassText(row_, column_));
}

}  // namespace zelvo::screen
