#include "screen/Key.h"

#include <array>
#include <utility>

#include "basics/Utf8.h"

namespace zelvo::screen {

namespace {

constexpr std::array<std::pair<std::string_view, Key>, 11> namedKeys{{
    {"Enter", {keys::enter, U'\r'}},
    {"Esc", {keys::escape, 27}},
    {"Tab", {keys::tab, U'\t'}},
    {"Backspace", {keys::backspace, U'\b'}},
    {"Delete", {keys::remove, 0}},
    {"Up", {keys::up, 0}},
    {"Down", {keys::down, 0}},
    {"Left", {keys::left, 0}},
    {"Right", {keys::right, 0}},
    {"Home", {keys::home, 0}},
    {"End", {keys::end, 0}},
}};

/// Codes of the keys with a sign on them stand behind those of the named keys: "." is no Delete, "(" is no
/// Down.
constexpr int signCodes = 256;

int codeOf(char32_t character) {
    const auto code = static_cast<int>(character);
    if (character >= U'a' && character <= U'z') return code - ('a' - 'A');
    const bool sign = character > U' ' && character < 127 && !(character >= U'0' && character <= U'9') &&
                      !(character >= U'A' && character <= U'Z');
    return sign ? signCodes + code : code;
}

}  // namespace

Key Key::typed(char32_t character) {
    if (character == U'\n') character = U'\r';
    return {codeOf(character), character};
}

std::optional<Key> Key::named(std::string_view name) {
    for (const auto& [known, key] : namedKeys) {
        if (known == name) return key;
    }
    if (basics::characterCount(name) != 1) return std::nullopt;
    return typed(basics::characterAt(name, 0));
}

}  // namespace zelvo::screen
