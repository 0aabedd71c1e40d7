#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "management/DetailFrames.h"
#include "management/DetailRead.h"
#include "screen/Grid.h"
#include "tables/XArrayDB.h"

namespace zelvo::management {

/// What the order in view costs, line by line.
class CostSection {
public:
    CostSection(screen::Window& form, DetailFrames& frames);

    /// Rows of the cost lines: the total, the pharmacy's own amounts, then the lines.
    static constexpr int totalRow = 0, pharmacyRow = 1, firstLine = 2, deliveryRow = 9, otherRow = 11,
                         lastRow = 11;

    /// One line: won, and what the pharmacy says about it.
    struct Line {
        std::int64_t amount = 0;
        std::string note;
    };
    using Lines = std::array<Line, lastRow + 1>;

    screen::Grid tdbCBJmCost;
    /// Label, amount ("###,###"), nothing, note.
    tables::XArrayDB m_xaCBJmCost;

    /// The row style of the cost lines.
    void Form_Load();
    bool load(const DetailRead& read);
    void clear();

    /// Shows lines in place of those that were read.
    void show(const Lines& lines);
    /// Shows the lines that were last read again.
    void showStored() { show(stored_); }

private:
    void makeRows();

    screen::Window& form_;
    Lines stored_;
};

}  // namespace zelvo::management
