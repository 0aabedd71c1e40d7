#include "screen/ColumnChoices.h"

#include <algorithm>
#include <cmath>

#include "basics/Numbers.h"
#include "basics/Text.h"

namespace zelvo::screen {

namespace {

/// Between a caption and its width, between one column and the next.
constexpr std::string_view part = "\t";
constexpr std::string_view hiddenSign = "-";
constexpr double widest = 100'000;

/// A width that can be meant; 0 for anything else.
double widthIn(std::string_view text) {
    const std::string number(text);
    if (!basics::IsNumeric(number)) return 0;
    const double twips = basics::toNumber(number);
    return twips >= 1 && twips <= widest ? twips : 0;
}

}  // namespace

ColumnChoices::Choice& ColumnChoices::make(std::size_t column) {
    if (column >= choices_.size()) choices_.resize(column + 1);
    return choices_[column];
}

std::string ColumnChoices::text(const std::vector<GridColumn>& columns) const {
    std::vector<std::string> parts;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Choice choice = at(i);
        if (!choice.hidden && choice.width <= 0) continue;
        parts.push_back(columns[i].caption);
        parts.push_back((choice.hidden ? std::string(hiddenSign) : std::string()) +
                        basics::decimalText(std::int64_t{std::llround(choice.width)}));
    }
    return basics::join(parts, part);
}

ColumnChoices ColumnChoices::read(std::string_view text, const std::vector<GridColumn>& columns) {
    ColumnChoices choices;
    const std::vector<std::string> parts = basics::split(text, part);
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        const auto found = std::find_if(columns.begin(), columns.end(),
                                        [&](const GridColumn& column) { return column.caption == parts[i]; });
        if (found == columns.end()) continue;
        std::string_view width = parts[i + 1];
        Choice& choice = choices.make(static_cast<std::size_t>(found - columns.begin()));
        choice.hidden = width.starts_with(hiddenSign);
        if (choice.hidden) width.remove_prefix(hiddenSign.size());
        choice.width = widthIn(width);
    }
    return choices;
}

}  // namespace zelvo::screen
