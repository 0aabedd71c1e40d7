#pragma once

#include <vector>

namespace zelvo::qt {

/// The widths of a table's columns in pixels. They share the room by weight; none gets narrower than its
/// least width; the filling column takes what rounding leaves.
class GridColumns {
public:
    struct Column {
        double weight = 0;  ///< 0: hidden
        int least = 0;
        bool fills = false;
    };

    /// New columns; what was dragged is forgotten.
    void reset(std::vector<Column> columns) { columns_ = std::move(columns); }
    /// A width for each column, 0 for a hidden one. They add up to `room`, or to more where it is too narrow.
    std::vector<int> widths(int room) const;
    /// A column was dragged to a new width. The filling column to its right gives way, else its neighbour;
    /// the proportions are then the columns' own.
    void drag(int column, int width, int room);
    /// The share of each column, in no measure; 0 for a hidden one.
    std::vector<double> shares() const;

private:
    int yielding(int column) const;

    std::vector<Column> columns_;
};

}  // namespace zelvo::qt
