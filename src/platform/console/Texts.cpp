#include "platform/console/Texts.h"

#include "screen/Fields.h"
#include "screen/TextField.h"

namespace zelvo::console {

using screen::Field;
using screen::FieldKind;

namespace {

void escapeInto(std::string& line, char character) {
    constexpr std::string_view digits = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(character);
    switch (character) {
        case '\r':
            line += "\\r";
            return;
        case '\n':
            line += "\\n";
            return;
        case '\t':
            line += "\\t";
            return;
        default:
            break;
    }
    if (code >= ' ' && code != 127) {
        line += character;
        return;
    }
    line += "\\x";
    line += digits[code >> 4U];
    line += digits[code & 15U];
}

constexpr const char* maskedText = "****";

const char* iconName(screen::BoxIcon icon) {
    switch (icon) {
        case screen::BoxIcon::Information:
            return "information";
        case screen::BoxIcon::Critical:
            return "error";
        case screen::BoxIcon::Question:
            return "question";
    }
    return "";
}

std::string onOff(bool on) {
    return on ? "on" : "off";
}

std::string gridState(const screen::Grid& grid) {
    return inQuotes(grid.caption()) + " rows " + std::to_string(grid.rowCount()) + " current " +
           std::to_string(grid.onRow() ? grid.currentRow() : -1) + " column " +
           std::to_string(grid.currentColumn());
}

}  // namespace

std::string escaped(std::string_view text) {
    std::string line;
    for (const char character : text) escapeInto(line, character);
    return line;
}

std::string inQuotes(std::string_view text) {
    std::string line = "\"";
    for (const char character : text) {
        if (character == '"') line += '\\';
        escapeInto(line, character);
    }
    return line + "\"";
}

std::optional<std::string> captionOf(const Field& field) {
    switch (field.kind()) {
        case FieldKind::Label:
            return dynamic_cast<const screen::Label&>(field).caption();
        case FieldKind::Check:
            return dynamic_cast<const screen::CheckButton&>(field).caption();
        case FieldKind::Option:
            return dynamic_cast<const screen::OptionButton&>(field).caption();
        case FieldKind::Button:
            return dynamic_cast<const screen::Button&>(field).caption();
        case FieldKind::TwoState:
            return dynamic_cast<const screen::TwoStateButton&>(field).caption();
        case FieldKind::Panel:
            return dynamic_cast<const screen::Panel&>(field).caption();
        case FieldKind::Grid:
            return dynamic_cast<const screen::Grid&>(field).caption();
        default:
            return std::nullopt;
    }
}

std::optional<std::string> textOf(const Field& field) {
    switch (field.kind()) {
        case FieldKind::Text:
        case FieldKind::RichText:
            return dynamic_cast<const screen::EditField&>(field).text();
        case FieldKind::Combo:
            return dynamic_cast<const screen::ComboList&>(field).text();
        case FieldKind::Label:
        case FieldKind::Button:
        case FieldKind::TwoState:
            return captionOf(field);
        case FieldKind::Check:
            return onOff(dynamic_cast<const screen::CheckButton&>(field).value());
        case FieldKind::Option:
            return onOff(dynamic_cast<const screen::OptionButton&>(field).value());
        case FieldKind::Date:
            return dynamic_cast<const screen::DateField&>(field).text();
        case FieldKind::Web:
            return dynamic_cast<const screen::WebView&>(field).address();
        default:
            return std::nullopt;
    }
}

bool isMasked(const Field& field) {
    const auto* text = dynamic_cast<const screen::TextField*>(&field);
    return text && text->masked;
}

const char* answerName(screen::Answer answer) {
    switch (answer) {
        case screen::Answer::Ok:
            return "OK";
        case screen::Answer::Yes:
            return "Yes";
        case screen::Answer::No:
            return "No";
    }
    return "";
}

std::string boxText(const screen::MessageBox& box) {
    return "[" + escaped(box.caption) + "] (" + iconName(box.icon) + ") " + escaped(box.text);
}

std::string fieldLine(const Field& field) {
    std::string line = field.name();
    if (const auto* grid = dynamic_cast<const screen::Grid*>(&field)) {
        line += " " + gridState(*grid);
    } else if (const auto* tabs = dynamic_cast<const screen::TabControl*>(&field)) {
        line +=
            " page " + std::to_string(tabs->current()) + " " + inQuotes(tabs->pageCaption(tabs->current()));
    } else if (const auto* list = dynamic_cast<const screen::ItemList*>(&field)) {
        for (int i = 0; i < list->itemCount(); ++i) {
            line += (list->itemChecked(i) ? " [x] " : " [ ] ") + inQuotes(list->item(i));
        }
    } else if (const auto* bar = dynamic_cast<const screen::StatusBar*>(&field)) {
        for (int i = 1; i <= 3; ++i) line += " " + inQuotes(bar->panel(i));
    } else if (const auto text = textOf(field)) {
        line += " " + (isMasked(field) && !text->empty() ? std::string(maskedText) : inQuotes(*text));
    } else if (const auto caption = captionOf(field)) {
        line += " " + inQuotes(*caption);
    }
    if (!field.visible()) line += " hidden";
    if (!field.enabled()) line += " disabled";
    if (field.hasFocus()) line += " focus";
    return line;
}

void printGrid(std::ostream& out, screen::Grid& grid) {
    out << fieldLine(grid) << "\n";
    for (int row = 0; row < grid.rowCount(); ++row) {
        out << (row == grid.currentRow() ? ">" : " ") << row;
        for (int column = 0; column < grid.columnCount(); ++column) {
            if (!grid.column(column).shown) continue;
            out << " " << escaped(grid.column(column).caption) << "="
                << inQuotes(grid.shownText(row, column));
        }
        const std::string style = grid.rowStyle(row);
        if (!style.empty()) out << " " << style;
        out << "\n";
    }
}

void printWindow(std::ostream& out, const screen::Window& window) {
    out << window.name() << " " << inQuotes(window.caption()) << "\n";
    for (const Field* field : window.fields()) out << "  " << fieldLine(*field) << "\n";
}

}  // namespace zelvo::console
