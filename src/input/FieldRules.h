#pragma once

#include <string_view>
#include <vector>

#include "screen/TextField.h"
#include "screen/Window.h"

namespace zelvo::input {

enum class Entering { Nothing, SelectAll, CaretToEnd };
enum class Typing { Anything, Telephone, NoSpaces, EnterMovesOn, DigitsOnly, Decimal, SearchOnEnter };

/// What the fields of one row of the table have in common.
struct FieldRule {
    Entering entering = Entering::Nothing;
    Typing typing = Typing::Anything;
    /// Enter already moves on when the key goes down, before it is typed.
    bool enterOnKeyDown = false;
    /// The button that a search presses.
    std::string_view button = {};
    std::vector<std::string_view> fields = {};
};

/// The table of the main window: which of its fields follow which rules, and where Korean is written.
struct FieldTable {
    std::vector<FieldRule> rules = {};
    std::vector<std::string_view> hangul = {};
};
const FieldTable& mainWindowFields();

/// The small rules that the text fields of a window obey, so that the whole form can be worked from the
/// keyboard: what entering a field selects, which keys it takes, and how Enter moves on, from all fields
/// where it neither writes nor presses. Made when the window's fields are there; finds them by name, and a
/// name that no field bears is a Fault. Lives as long as the window.
class FieldRules {
public:
    explicit FieldRules(screen::Window& form, const FieldTable& table = mainWindowFields());
    FieldRules(const FieldRules&) = delete;
    FieldRules& operator=(const FieldRules&) = delete;

    /// Selects the whole text, so that typing replaces it.
    static void SelectFieldText(screen::TextField& field);
    /// Enter (13) is swallowed and moves on like Tab; any other key passes.
    void EnterToTab(int& key);
    void EnterToTab(char32_t& key);

private:
    void bind(screen::TextField& field, const FieldRule& rule);
    void bindTyping(screen::TextField& field, const FieldRule& rule);
    void moveOnFrom(screen::Field& field);

    screen::Window& form_;
};

}  // namespace zelvo::input
