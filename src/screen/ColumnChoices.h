#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "basics/Pictures.h"

namespace zelvo::screen {

struct GridColumn {
    std::string caption;
    /// Field of a record set; "" for an array, whose column has the grid column's number.
    std::string field = {};
    bool shown = true;
    /// The cursor stops here.
    bool stops = true;
    bool editable = false;
    bool button = false;
    /// Says yes or no: a mark on the glass; with a button, a choice.
    bool flag = false;
    bool alignRight = false;
    std::optional<basics::NumberPicture> format = std::nullopt;
    /// Design width in twips; shown columns keep its proportions.
    double width = 1000;
    /// Characters that the cell editor takes; 0 is no limit.
    std::size_t maxLength = 0;
};

/// What a user has made of a table's columns: which are taken off the glass, and how wide the others are.
class ColumnChoices {
public:
    bool hidden(std::size_t column) const { return at(column).hidden; }
    void hide(std::size_t column, bool hidden) { make(column).hidden = hidden; }
    /// In the measure of the design; 0 for as designed.
    double width(std::size_t column) const { return at(column).width; }
    void setWidth(std::size_t column, double twips) { make(column).width = twips; }

    /// A line for the next session, "" where all is as designed.
    std::string text(const std::vector<GridColumn>& columns) const;
    /// What such a line says of these columns, found by their captions. The columns may be others since, and
    /// anything may stand there: what says nothing of use is passed over.
    static ColumnChoices read(std::string_view text, const std::vector<GridColumn>& columns);

private:
    struct Choice {
        bool hidden = false;
        double width = 0;
    };
    Choice at(std::size_t column) const { return column < choices_.size() ? choices_[column] : Choice{}; }
    Choice& make(std::size_t column);

    std::vector<Choice> choices_;
};

}  // namespace zelvo::screen
