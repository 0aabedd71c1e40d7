#pragma once

#include <string>
#include <vector>

#include "platform/console/Expectations.h"

// The forms of `expect`: each reads the rest of its command and throws ExpectationError when it does not
// hold.
namespace zelvo::console::looks {

/// One `expect` command being read.
struct Look {
    ConsoleDesktop& desktop;
    WordReader& words;

    screen::Field& field() { return desktop.user().find(words.word("FIELD")); }

    /// A field of one kind; another kind has nothing of what is expected.
    template <class Kind>
    Kind& as(const char* kind) {
        screen::Field& found = field();
        auto* asKind = dynamic_cast<Kind*>(&found);
        if (!asKind) throw ExpectationError(found.name() + " to be a " + kind, "another kind of field");
        return *asKind;
    }

    std::string lastText() {
        std::string text = words.word("TEXT");
        words.end();
        return text;
    }
    int lastNumber() {
        const int number = words.number("N");
        words.end();
        return number;
    }
    bool lastEither(const char* first, const char* second) {
        const bool is = words.either(first, second);
        words.end();
        return is;
    }
};

/// Throw ExpectationError when the two differ.
void compare(const std::string& what, const std::string& expected, const std::string& found);
void compare(const std::string& what, int expected, int found);
void compare(const std::string& what, const std::vector<std::string>& expected,
             const std::vector<std::string>& found);

// Fields.
void text(Look& look, const std::string& field);
void caption(Look& look);
void shown(Look& look);
void hidden(Look& look);
void enabled(Look& look);
void disabled(Look& look);
void focus(Look& look);
void tab(Look& look);
void selectable(Look& look);
void entries(Look& look);
void selected(Look& look);
void item(Look& look);
void panel(Look& look);
void textColor(Look& look);
void backColor(Look& look);
void plain(Look& look);

// Grids.
void rows(Look& look);
void current(Look& look);
void cell(Look& look);
void value(Look& look);
void style(Look& look);
void glass(Look& look);
void columns(Look& look);
void hint(Look& look);

// What happened, and what stands on the screen.
void message(Look& look);
void noMessage(Look& look);
void events(Look& look);
void event(Look& look);
void pointer(Look& look);
void window(Look& look);
void copied(Look& look);

}  // namespace zelvo::console::looks
