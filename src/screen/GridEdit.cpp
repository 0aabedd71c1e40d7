#include <algorithm>

#include "basics/Utf8.h"
#include "screen/Grid.h"
#include "screen/Window.h"

// What the user does to a grid: the cursor, the edit of a cell, keys and clicks.
namespace zelvo::screen {

bool Grid::stopsAt(int column) const {
    return onGlass(column) && columns_[static_cast<std::size_t>(column)].stops;
}

/// The nearest column beyond `from` where the cursor stops; -1 when there is none.
int Grid::nextStop(int from, int direction) const {
    for (int column = from + direction; column >= 0 && column < columnCount(); column += direction) {
        if (stopsAt(column)) return column;
    }
    return -1;
}

bool Grid::canEdit(int column) const {
    return allowsUpdate && source_ && onRow() && stopsAt(column) &&
           columns_[static_cast<std::size_t>(column)].editable;
}

bool Grid::beginEdit(std::string text) {
    if (!canEdit(column_)) return false;
    edit_ = Edit{row_, column_, {}};
    setEditText(std::move(text));
    onEditBegin(column_);
    return true;
}

void Grid::setEditText(std::string text) {
    const std::size_t limit = columns_[static_cast<std::size_t>(edit_->column)].maxLength;
    edit_->text = limit > 0 ? basics::part(text, 0, limit) : std::move(text);
    touch();
    onEditText(edit_->column);
}

void Grid::suggest(std::vector<std::string> lines) {
    if (!edit_) lines.clear();
    if (lines.empty() && suggestions_.empty()) return;
    suggestions_ = std::move(lines);
    suggested_ = -1;
    touch();
}

void Grid::markSuggestion(int line) {
    suggested_ = std::clamp(line, -1, static_cast<int>(suggestions_.size()) - 1);
    touch();
}

void Grid::userSuggestion(int line) {
    window().userInput([this, line] {
        if (line >= 0 && line < static_cast<int>(suggestions_.size())) onSuggestion(line);
    });
}

/// What the cell's editor holds, or would hold when it opened now.
std::string Grid::editedText() const {
    return edit_ ? edit_->text : value(column_);
}

const std::string& Grid::editText() const {
    static const std::string none;
    return edit_ ? edit_->text : none;
}

void Grid::commitEdit() {
    if (!edit_) return;
    const Edit done = *std::exchange(edit_, std::nullopt);
    suggest({});
    touch();
    const int to = source_ ? sourceColumn(done.column) : -1;
    if (to < 0 || done.text == valueAt(done.row, done.column)) return;
    if (source_->setCellText(static_cast<std::size_t>(done.row), to, done.text)) onCellAccepted(done.column);
}

void Grid::cancelEdit() {
    if (!edit_) return;
    edit_.reset();
    suggest({});
    touch();
}

bool Grid::userEdit(std::string_view text) {
    if (!edit_) return beginEdit(std::string(text));
    setEditText(std::string(text));
    return true;
}

void Grid::typeCharacter(char32_t character) {
    if (!edit_) {
        if (!stopsAt(column_)) moveTo(row_, nextStop(-1, 1));
        beginEdit(basics::toUtf8(character));
        return;
    }
    setEditText(edit_->text + basics::toUtf8(character));
}

void Grid::applyKey(const Key& key) {
    if (key.character >= U' ' && key.character != 127) {
        typeCharacter(key.character);
        return;
    }
    applyCode(key.code);
}

void Grid::applyCode(int code) {
    const auto sideways = [this](int column) {
        if (column >= 0) moveTo(row_, column);
    };
    switch (code) {
        case keys::enter:
            commitEdit();
            sideways(nextStop(column_, 1));
            break;
        case keys::right:
            sideways(nextStop(column_, 1));
            break;
        case keys::left:
            sideways(nextStop(column_, -1));
            break;
        case keys::home:
            sideways(nextStop(-1, 1));
            break;
        case keys::end:
            sideways(nextStop(columnCount(), -1));
            break;
        case keys::up:
            if (row_ > 0) moveTo(row_ - 1, column_);
            break;
        case keys::down:
            if (row_ + 1 < rows_) moveTo(row_ + 1, column_);
            break;
        case keys::backspace: {
            const std::string text = editedText();
            const std::size_t length = basics::characterCount(text);
            userEdit(basics::part(text, 0, length > 0 ? length - 1 : 0));
            break;
        }
        case keys::remove:
            if (!edit_) beginEdit({});
            break;
        case keys::escape:
            cancelEdit();
            break;
        default:
            break;
    }
}

void Grid::userRow(int row) {
    userClicks([this, row] {
        if (row == row_) return onRowAgain();
        moveTo(row, stopsAt(column_) ? column_ : std::max(0, nextStop(-1, 1)));
    });
}

bool Grid::userCell(int row, int column) {
    if (!stopsAt(column)) return false;
    userClicks([this, row, column] {
        const bool again = row == row_;
        moveTo(row, column);
        if (again) onRowAgain();
    });
    return true;
}

bool Grid::userType(int column, std::string_view text) {
    if (!canEdit(column) || !userCell(row_, column)) return false;
    const int row = row_;
    const auto stays = [&] { return hasFocus() && row_ == row && column_ == column; };
    if (text.empty() && stays()) window().userKey({keys::remove, 0});
    for (std::size_t at = 0; at < text.size() && stays();) {
        const char32_t character = basics::characterAt(text, at);
        at += basics::toUtf8(character).size();
        window().userKey(Key::typed(character));
        window().desktop().deliverKeys();
    }
    window().userInput([this] { commitEdit(); });
    return true;
}

bool Grid::userCellButton(int column) {
    if (!onRow() || column < 0 || column >= columnCount()) return false;
    const GridColumn& pressed = columns_[static_cast<std::size_t>(column)];
    if (!pressed.button || !pressed.shown) return false;
    userClicks([this, column] {
        moveTo(row_, stopsAt(column) ? column : column_);
        onCellButton(column);
    });
    return true;
}

void Grid::userHead(int column) {
    userClicks([this, column] {
        commitEdit();
        onHeadClick(column);
    });
}

}  // namespace zelvo::screen
