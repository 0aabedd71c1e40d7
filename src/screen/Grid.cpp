#include "screen/Grid.h"

#include <algorithm>
#include <climits>

#include "basics/Utf8.h"
#include "screen/Window.h"

namespace zelvo::screen {

Grid::Grid(Window& window, std::string name, Place place, std::vector<GridColumn> columns)
    : Field(window, std::move(name), FieldKind::Grid, place), columns_(std::move(columns)) {}

void Grid::bind(tables::GridSource* source) {
    rebound_ = rebound_ || source != source_;
    source_ = source;
    refresh();
}

void Grid::refresh() {
    const std::size_t there = source_ ? source_->rowCount() : 0;
    const std::uint64_t generation = source_ ? source_->generation() : 0;
    const bool replaced = std::exchange(rebound_, false) || generation != generation_;
    const int before = row_;
    generation_ = generation;
    rows_ = static_cast<int>(std::min<std::size_t>(there, INT_MAX));
    if (edit_ && (replaced || edit_->row >= rows_)) cancelEdit();

    const bool fresh = rows_ > 0 && (replaced || before < 0);
    row_ = fresh ? 0 : std::min(before, rows_ - 1);
    marked_.reset();
    touch();
    if (fresh) {
        announce(-1, -1);
    } else if (row_ != before) {
        announce(before, column_);
    }
}

/// Tells the listeners of a row that a refresh made current, or keeps that for the moment when the grid can
/// be seen.
void Grid::announce(int previousRow, int previousColumn) {
    if (inView()) {
        held_ = false;
        onRowChange(previousRow, previousColumn);
        return;
    }
    if (held_) return;
    held_ = true;
    whenTouched_ = window().onTouched.listen([this](Field*) { releaseHeldEvent(); });
}

void Grid::releaseHeldEvent() {
    if (!held_ || !inView()) return;
    held_ = false;
    whenTouched_.end();
    if (onRow()) onRowChange(-1, -1);
}

bool Grid::inView() const {
    return window().onGlass() && shown();
}

void Grid::refreshRow(int) {
    touch();
}

void Grid::setCaption(std::string_view caption) {
    if (caption == caption_) return;
    caption_ = caption;
    touch();
}

void Grid::setColumnShown(int index, bool shown) {
    columns_.at(static_cast<std::size_t>(index)).shown = shown;
    touch();
}

void Grid::setColumnWidth(int index, double twips) {
    columns_.at(static_cast<std::size_t>(index)).width = twips;
    touch();
}

void Grid::markSorted(int column, bool descending) {
    sortedColumn_ = column;
    sortedDescending_ = descending;
    touch();
}

int Grid::columnOf(std::string_view caption) const {
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [&](const GridColumn& column) { return column.caption == caption; });
    return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

void Grid::setCurrentRow(int row) {
    moveTo(row, column_);
}

void Grid::setCurrentColumn(int column) {
    moveTo(row_, column);
}

void Grid::moveFirst() {
    moveTo(rows_ > 0 ? 0 : -1, column_);
}

void Grid::moveNext() {
    commitEdit();
    if (!atEnd()) place(row_ + 1, column_);
}

/// Commits first; what the reaction to that has left of the rows is what counts.
void Grid::moveTo(int row, int column) {
    commitEdit();
    place(std::min(row, rows_ - 1), column);
}

/// The one way of the cursor.
void Grid::place(int row, int column) {
    row = std::max(row, -1);
    column = std::clamp(column, 0, std::max(0, columnCount() - 1));
    if (row == row_ && column == column_) return;
    const int previousRow = std::exchange(row_, row);
    const int previousColumn = std::exchange(column_, column);
    held_ = false;
    marked_.reset();
    touch();
    if (!passing_) onRowChange(previousRow, previousColumn);
}

void Grid::setPassing(bool passing) {
    if (!std::exchange(passing_, passing)) passedFrom_ = row_;
    if (!passing && onRow() && row_ != passedFrom_) onRowChange(passedFrom_, column_);
}

int Grid::visibleRow() const {
    return onRow() ? row_ - topRow : -1;
}

int Grid::sourceColumn(int column) const {
    if (column < 0 || column >= columnCount()) return -1;
    const std::string& field = columns_[static_cast<std::size_t>(column)].field;
    return field.empty() ? column : source_->columnOf(field);
}

std::string Grid::value(int column) const {
    return valueAt(row_, column);
}

std::string Grid::value(std::string_view caption) const {
    return valueAt(row_, columnOf(caption));
}

std::string Grid::valueAt(int row, int column) const {
    if (!source_ || row < 0 || row >= rows_) return {};
    const int from = sourceColumn(column);
    return from < 0 ? std::string() : source_->cellText(static_cast<std::size_t>(row), from);
}

void Grid::setValue(int column, std::string_view text) {
    if (!source_ || !onRow()) return;
    const int to = sourceColumn(column);
    if (to >= 0 && source_->setCellText(static_cast<std::size_t>(row_), to, text)) touch();
}

void Grid::setValue(std::string_view caption, std::string_view text) {
    setValue(columnOf(caption), text);
}

std::string Grid::shownText(int row, int column) {
    if (row < 0 || row >= rows_ || column < 0 || column >= columnCount()) return {};
    if (edit_ && edit_->row == row && edit_->column == column) return edit_->text;
    std::string text = valueAt(row, column);
    const auto& format = columns_[static_cast<std::size_t>(column)].format;
    if (format) text = basics::formatText(text, *format);
    onCellShow(row, column, text);
    return text;
}

std::string Grid::rowStyle(int row) {
    std::string style;
    if (row >= 0 && row < rows_) onRowStyle(row, style);
    return style;
}

void Grid::addStyle(std::string name, Color textColor) {
    styles_.push_back({std::move(name), textColor});
}

void Grid::dropStyles() {
    styles_.clear();
}

const Color* Grid::style(std::string_view name) const {
    const auto found =
        std::find_if(styles_.begin(), styles_.end(), [&](const Style& style) { return style.name == name; });
    return found == styles_.end() ? nullptr : &found->textColor;
}

double Grid::columnLeft(int column) const {
    const auto index = static_cast<std::size_t>(column);
    return column >= 0 && index < columnLefts.size() ? columnLefts[index] : 0;
}

bool Grid::writeCurrentRow() {
    commitEdit();
    return source_ && onRow() && source_->writeRow(static_cast<std::size_t>(row_));
}

bool Grid::deleteCurrentRow() {
    if (!source_ || !onRow()) return false;
    cancelEdit();
    if (!source_->removeRow(static_cast<std::size_t>(row_))) return false;
    rows_ = static_cast<int>(std::min<std::size_t>(source_->rowCount(), INT_MAX));
    row_ = std::min(row_, rows_ - 1);
    touch();
    onRowDeleted();
    return true;
}

}  // namespace zelvo::screen
