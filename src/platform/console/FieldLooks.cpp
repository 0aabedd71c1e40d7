#include "platform/console/Looks.h"
#include "platform/console/Texts.h"
#include "screen/TextField.h"

namespace zelvo::console::looks {

using screen::Field;

namespace {

void compareState(const Field& field, bool holds, const char* expected, const char* found) {
    if (!holds) throw ExpectationError(field.name() + " " + expected, found);
}

}  // namespace

void caption(Look& look) {
    const std::string name = look.words.word("FIELD");
    const std::string expected = look.lastText();
    for (const screen::Window* window : look.desktop.openWindows()) {
        if (window->name() == name) return compare("caption of " + name, expected, window->caption());
    }
    const auto found = captionOf(look.desktop.user().find(name));
    if (!found)
        throw ExpectationError("caption of " + name + " " + inQuotes(expected), "a field without one");
    compare("caption of " + name, expected, *found);
}

namespace {

void visibility(Look& look, bool visible) {
    const Field& field = look.field();
    look.words.end();
    compareState(field, field.visible() == visible, visible ? "shown" : "hidden",
                 visible ? "it hidden" : "it shown");
}

void ability(Look& look, bool enabled) {
    const Field& field = look.field();
    look.words.end();
    compareState(field, field.enabled() == enabled, enabled ? "enabled" : "disabled",
                 enabled ? "it disabled" : "it enabled");
}

}  // namespace

void shown(Look& look) {
    visibility(look, true);
}
void hidden(Look& look) {
    visibility(look, false);
}
void enabled(Look& look) {
    ability(look, true);
}
void disabled(Look& look) {
    ability(look, false);
}

void focus(Look& look) {
    const Field& field = look.field();
    look.words.end();
    const Field* found = field.window().focus();
    if (found != &field) {
        throw ExpectationError("the focus in " + field.name(),
                               found ? "it in " + found->name() : "it nowhere");
    }
}

void tab(Look& look) {
    const auto& tabs = look.as<screen::TabControl>("tab control");
    compare("page of " + tabs.name(), look.lastNumber(), tabs.current());
}

void selectable(Look& look) {
    const auto& tabs = look.as<screen::TabControl>("tab control");
    const int page = look.words.number("N");
    const bool expected = look.lastEither("yes", "no");
    const std::string what = "page " + std::to_string(page) + " of " + tabs.name();
    if (page < 0 || page >= tabs.pageCount()) throw ExpectationError(what, "no such page");
    if (tabs.selectable(page) != expected) {
        throw ExpectationError(what + (expected ? " selectable" : " not selectable"),
                               expected ? "it not selectable" : "it selectable");
    }
}

namespace {

/// The entries of a combo or list, or what a grid offers beneath its open cell, and which is selected.
struct Entries {
    std::string name;
    std::vector<std::string> all;
    int selected = -1;
};

Entries entriesOf(const Field& field) {
    Entries entries{field.name(), {}, -1};
    if (const auto* combo = dynamic_cast<const screen::ComboList*>(&field)) {
        for (int i = 0; i < combo->entryCount(); ++i) entries.all.push_back(combo->entry(i));
        entries.selected = combo->selectedIndex();
    } else if (const auto* list = dynamic_cast<const screen::ItemList*>(&field)) {
        for (int i = 0; i < list->itemCount(); ++i) entries.all.push_back(list->item(i));
        entries.selected = list->selectedIndex();
    } else if (const auto* grid = dynamic_cast<const screen::Grid*>(&field)) {
        entries.all = grid->suggestions();
        entries.selected = grid->suggested();
    } else {
        throw ExpectationError(field.name() + " to be a combo, a list or a grid", "another kind of field");
    }
    return entries;
}

}  // namespace

void entries(Look& look) {
    const Entries found = entriesOf(look.field());
    compare("entries of " + found.name, look.words.allWords(), found.all);
}

void selected(Look& look) {
    const Entries found = entriesOf(look.field());
    compare("selected entry of " + found.name, look.lastNumber(), found.selected);
}

void item(Look& look) {
    const auto& list = look.as<screen::ItemList>("list");
    const int number = look.words.number("N");
    const bool expected = look.lastEither("on", "off");
    const std::string what = "item " + std::to_string(number) + " of " + list.name();
    if (number < 0 || number >= list.itemCount()) throw ExpectationError(what, "no such item");
    compare(what, expected ? "on" : "off", list.itemChecked(number) ? "on" : "off");
}

void panel(Look& look) {
    const auto& bar = look.as<screen::StatusBar>("status bar");
    const int number = look.words.number("N");
    const std::string expected = look.lastText();
    const std::string what = "panel " + std::to_string(number) + " of " + bar.name();
    if (number < 1 || number > 3) throw ExpectationError(what, "no such panel");
    compare(what, expected, bar.panel(number));
}

namespace {

std::string colorText(const screen::Color& color) {
    return std::to_string(color.red) + "," + std::to_string(color.green) + "," + std::to_string(color.blue);
}

}  // namespace

void textColor(Look& look) {
    const auto& button = look.as<screen::Button>("button");
    compare("text colour of " + button.name(), look.lastText(), colorText(button.textColor()));
}

void backColor(Look& look) {
    const auto& there = look.as<screen::Panel>("panel");
    compare("back colour of " + there.name(), look.lastText(), colorText(there.backColor()));
}

void plain(Look& look) {
    const auto& rich = look.as<screen::RichTextField>("rich text field");
    compare("plain text of " + rich.name(), look.lastText(), rich.text());
}

/// What a field says of itself.
void text(Look& look, const std::string& field) {
    const std::string expected = look.words.lastWord("TEXT");
    const Field& there = look.desktop.user().find(field);
    const auto found = textOf(there);
    if (found && isMasked(there)) {
        if (*found != expected) throw ExpectationError(field + " as it was said", "another text");
        return;
    }
    if (!found) throw ExpectationError(field + " " + inQuotes(expected), "a field that has no text");
    compare(field, expected, *found);
}

}  // namespace zelvo::console::looks
