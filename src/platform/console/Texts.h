#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "screen/Desktop.h"
#include "screen/Grid.h"
#include "screen/Window.h"

namespace zelvo::console {

/// A text as a record of one line holds it: control characters as \r \n \t, any other as \x and two digits.
std::string escaped(std::string_view text);
/// The same in double quotes, a quote in it as \".
std::string inQuotes(std::string_view text);

/// What a field says: its text, caption, on or off, day. Nothing for a kind that says nothing of its own.
std::optional<std::string> textOf(const screen::Field& field);
/// Whether a field shows dots for its text (a password): no record holds it.
bool isMasked(const screen::Field& field);
/// Caption of a grid, panel, label or button.
std::optional<std::string> captionOf(const screen::Field& field);

const char* answerName(screen::Answer answer);
/// "[caption] (icon) text", as a box's record begins.
std::string boxText(const screen::MessageBox& box);

/// A field's name, text and state in one line.
std::string fieldLine(const screen::Field& field);
void printGrid(std::ostream& out, screen::Grid& grid);
void printWindow(std::ostream& out, const screen::Window& window);

}  // namespace zelvo::console
