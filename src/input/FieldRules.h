#pragma once

#include <string_view>

#include "screen/TextField.h"
#include "screen/Window.h"

namespace zelvo::input {

/// The small rules that the text fields of the main window obey, so that the whole form can be worked from
/// the keyboard: what entering a field selects, which keys it takes, and how Enter moves on. Made when the
/// window's fields are there; finds them by name. Lives as long as the window.
class FieldRules {
public:
    explicit FieldRules(screen::Window& form);
    FieldRules(const FieldRules&) = delete;
    FieldRules& operator=(const FieldRules&) = delete;

    /// Selects the whole text, so that typing replaces it.
    static void SelectFieldText(screen::TextField& field);
    /// Enter (13) is swallowed and moves on like Tab; any other key passes.
    void EnterToTab(int& key);
    void EnterToTab(char32_t& key);

private:
    enum class Entering { Nothing, SelectAll, CaretToEnd };
    enum class Typing { Anything, Telephone, NoSpaces, EnterMovesOn, DigitsOnly, Decimal, SearchOnEnter };
    struct Rule;

    void bind(screen::TextField& field, const Rule& rule);
    void bindTyping(screen::TextField& field, const Rule& rule);
    void pressOnEnter(std::string_view button, char32_t& key);

    screen::Window& form_;
};

}  // namespace zelvo::input
