#include "platform/console/UserActions.h"

#include <charconv>

#include "basics/Utf8.h"
#include "screen/Fields.h"
#include "screen/TextField.h"

namespace zelvo::console {

using screen::Field;
using screen::Grid;
using screen::Key;
using screen::Window;

namespace {

/// Why the user can't reach a field that is not reachable.
std::string obstacle(const Field& field) {
    for (const Field* at = &field; at; at = at->place().holder) {
        const std::string who = at == &field ? at->name() + " " : field.name() + ": " + at->name() + " ";
        if (!at->visible()) return who + "is hidden";
        if (!at->enabled()) return who + "is not enabled";
        const auto* tabs = dynamic_cast<const screen::TabControl*>(at->place().holder);
        if (tabs && tabs->current() != at->place().page) {
            return who + "stands on page " + std::to_string(at->place().page) + " of " + tabs->name() +
                   ", which is not in front";
        }
    }
    return field.name() + " can't be reached";
}

Key keyNamed(const std::string& name) {
    const auto key = Key::named(name);
    if (!key) throw UnreadableError("there is no key " + name);
    return *key;
}

/// The keys that type a text; a line break in it is the Enter key.
std::vector<Key> keysOf(const std::string& text) {
    std::vector<Key> typed;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = basics::characterAt(text, at);
        at += basics::toUtf8(character).size();
        if (character == U'\r' && at < text.size() && text[at] == '\n') ++at;
        const bool lineEnd = character == U'\r' || character == U'\n';
        typed.push_back(lineEnd ? keyNamed("Enter") : Key::typed(character));
    }
    return typed;
}

void needRow(const Grid& grid) {
    if (!grid.onRow()) throw ActionError(grid.name() + " has no current row");
}

void needStop(const Grid& grid, int column) {
    const screen::GridColumn& there = grid.column(column);
    if (!grid.onGlass(column) || !there.stops) {
        throw ActionError("the cursor of " + grid.name() + " does not stop in column " +
                          std::to_string(column) + " \"" + there.caption + "\"");
    }
}

}  // namespace

Window& UserActions::front() const {
    Window* window = desktop_.front();
    if (!window) throw ActionError("no window is in front");
    return *window;
}

Field& UserActions::find(const std::string& field) const {
    Window& window = front();
    Field* found = window.field(field);
    if (!found) throw UnreadableError(window.name() + " has no field " + field);
    return *found;
}

Field& UserActions::reach(const std::string& field) const {
    Field& found = find(field);
    if (!found.reachable()) throw ActionError(obstacle(found));
    return found;
}

int UserActions::columnIn(const Grid& grid, const std::string& column) {
    int number = -1;
    const char* end = column.data() + column.size();
    const auto read = std::from_chars(column.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end) number = grid.columnOf(column);
    if (number < 0 || number >= grid.columnCount())
        throw ActionError(grid.name() + " has no column " + column);
    return number;
}

void UserActions::run(const std::function<void()>& event) {
    event();
    desktop_.deliverKeys();
}

bool UserActions::stillIn(const Window& window) const {
    return desktop_.front() == &window && !window.leaving();
}

/// Gives the field the focus unless it has it. False when the focus ended up elsewhere.
bool UserActions::enter(Field& field) {
    Window& window = field.window();
    if (!field.takesFocus()) throw ActionError(field.name() + " does not take the focus");
    if (!field.hasFocus()) run([&] { window.userFocus(field); });
    return stillIn(window) && field.hasFocus();
}

void UserActions::type(const std::string& field, const std::string& text) {
    Field& target = reach(field);
    Window& window = target.window();
    if (!enter(target)) return;
    for (const Key& key : keysOf(text)) {
        if (!stillIn(window) || !target.hasFocus()) return;
        run([&] { window.userKey(key); });
    }
}

void UserActions::key(const std::string& field, const std::vector<std::string>& names) {
    std::vector<Key> pressed;
    pressed.reserve(names.size());
    for (const std::string& name : names) pressed.push_back(keyNamed(name));
    Field& target = reach(field);
    Window& window = target.window();
    if (!enter(target)) return;
    for (const Key& next : pressed) {
        if (!stillIn(window)) return;
        run([&] { window.userKey(next); });
    }
}

void UserActions::paste(const std::string& field, const std::string& text) {
    auto& target = reachAs<screen::EditField>(field, "text field");
    if (!enter(target)) return;
    run([&] { target.userInsert(text); });
}

void UserActions::focus(const std::string& field) {
    enter(reach(field));
}

void UserActions::choose(const std::string& field, const std::string& entry) {
    Field& target = reach(field);
    if (auto* combo = dynamic_cast<screen::ComboList*>(&target)) {
        for (int i = 0; i < combo->entryCount(); ++i) {
            if (combo->entry(i) == entry) return run([&] { combo->userSelect(i); });
        }
    } else if (auto* list = dynamic_cast<screen::ItemList*>(&target)) {
        for (int i = 0; i < list->itemCount(); ++i) {
            if (list->item(i) == entry) return run([&] { list->userClick(i); });
        }
    } else {
        throw ActionError(field + " is no combo and no list");
    }
    throw ActionError(field + " has no entry \"" + entry + "\"");
}

void UserActions::check(const std::string& field, bool on) {
    Field& target = reach(field);
    const auto clickUntil = [&](auto& button) {
        for (int clicks = 0; clicks < 2 && button.value() != on; ++clicks) {
            run([&] { button.userClick(); });
        }
        if (button.value() != on)
            throw ActionError(field + (on ? " stays off" : " stays on") + " when it is clicked");
    };
    if (auto* checkButton = dynamic_cast<screen::CheckButton*>(&target)) {
        clickUntil(*checkButton);
    } else if (auto* option = dynamic_cast<screen::OptionButton*>(&target)) {
        clickUntil(*option);
    } else {
        throw ActionError(field + " is no check button and no option button");
    }
}

void UserActions::press(const std::string& field) {
    Field& target = reach(field);
    if (auto* button = dynamic_cast<screen::Button*>(&target)) {
        run([&] { button->userPress(); });
    } else if (auto* twoState = dynamic_cast<screen::TwoStateButton*>(&target)) {
        run([&] { twoState->userPress(); });
    } else {
        throw ActionError(field + " is no button");
    }
}

void UserActions::tab(const std::string& field, int page) {
    auto& tabs = reachAs<screen::TabControl>(field, "tab control");
    if (page < 0 || page >= tabs.pageCount())
        throw ActionError(field + " has no page " + std::to_string(page));
    bool clicked = false;
    run([&] { clicked = tabs.userClick(page); });
    if (!clicked) throw ActionError("page " + std::to_string(page) + " of " + field + " is not selectable");
}

void UserActions::date(const std::string& field, const std::string& yyyymmdd) {
    const auto day = basics::parseDate(yyyymmdd);
    if (!day) throw UnreadableError(yyyymmdd + " is no day");
    auto& target = reachAs<screen::DateField>(field, "date field");
    run([&] { target.userSetValue(*day); });
}

void UserActions::row(const std::string& grid, int row) {
    auto& target = reachAs<Grid>(grid, "grid");
    if (row < 0 || row >= target.rowCount()) {
        throw ActionError(grid + " has no row " + std::to_string(row) + ", only " +
                          std::to_string(target.rowCount()));
    }
    run([&] { target.userRow(row); });
}

void UserActions::cell(const std::string& grid, const std::string& column, const std::string& text) {
    auto& target = reachAs<Grid>(grid, "grid");
    const int number = columnIn(target, column);
    needRow(target);
    needStop(target, number);
    bool changed = false;
    run([&] { changed = target.userType(number, text); });
    if (!changed) throw ActionError(grid + " does not let column " + column + " be changed");
}

void UserActions::cellKey(const std::string& grid, const std::string& column, const std::string& key) {
    const Key pressed = keyNamed(key);
    auto& target = reachAs<Grid>(grid, "grid");
    Window& window = target.window();
    const int number = columnIn(target, column);
    needStop(target, number);
    run([&] { target.userCell(target.currentRow(), number); });
    if (!stillIn(window) || !target.hasFocus()) return;
    run([&] { window.userKey(pressed); });
}

void UserActions::cellButton(const std::string& grid, const std::string& column) {
    auto& target = reachAs<Grid>(grid, "grid");
    const int number = columnIn(target, column);
    needRow(target);
    bool pressed = false;
    run([&] { pressed = target.userCellButton(number); });
    if (!pressed) throw ActionError(grid + " has no button in column " + column);
}

void UserActions::shortcut(const std::string& keys) {
    Window& window = front();
    bool done = false;
    run([&] { done = window.userShortcut(keys); });
    if (!done) throw ActionError(keys + " does nothing in " + window.name() + " now");
}

void UserActions::head(const std::string& grid, const std::string& column) {
    auto& target = reachAs<Grid>(grid, "grid");
    const int number = columnIn(target, column);
    if (!target.onGlass(number)) throw ActionError("column " + column + " of " + grid + " is hidden");
    run([&] { target.userHead(number); });
}

void UserActions::column(const std::string& grid, const std::string& column, bool shown) {
    auto& target = reachAs<Grid>(grid, "grid");
    bool done = false;
    run([&] { done = target.userHide(columnIn(target, column), !shown); });
    if (!done)
        throw ActionError("column " + column + " of " + grid + " can't be shown or hidden by its user");
}

void UserActions::widths(const std::string& grid, const std::vector<double>& widths) {
    auto& target = reachAs<Grid>(grid, "grid");
    std::vector<double> all;
    std::size_t next = 0;
    for (int i = 0; i < target.columnCount() && next < widths.size(); ++i)
        all.push_back(target.onGlass(i) ? widths[next++] : 0);
    run([&] { target.userWidths(all); });
}

void UserActions::mark(const std::string& grid, std::optional<int> row) {
    auto& target = reachAs<Grid>(grid, "grid");
    run([&] { row ? target.userMark(*row) : target.userMarkAll(); });
}

void UserActions::copy(const std::string& grid) {
    auto& target = reachAs<Grid>(grid, "grid");
    run([&] { target.userCopy(); });
}

void UserActions::resize() {
    Window& window = front();
    run([&] { window.userResize(window.width(), window.height()); });
}

void UserActions::close() {
    Window& window = front();
    run([&] { window.userClose(); });
}

}  // namespace zelvo::console
