#include "platform/qt/GridColumns.h"

#include <algorithm>

namespace zelvo::qt {

std::vector<int> GridColumns::widths(int room) const {
    std::vector<int> widths(columns_.size(), 0);
    // Columns that would get too narrow take their least width; the others share what is left, until all fit.
    bool settled = false;
    while (!settled) {
        double weights = 0;
        int left = room;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (widths[i] == 0) weights += columns_[i].weight;
            left -= widths[i];
        }
        settled = true;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const Column& column = columns_[i];
            if (column.weight <= 0 || widths[i] != 0 || left * column.weight / weights >= column.least)
                continue;
            widths[i] = column.least;
            settled = false;
        }
        if (!settled) continue;
        std::size_t last = columns_.size();
        int given = 0;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (columns_[i].weight <= 0 || widths[i] != 0) continue;
            widths[i] = static_cast<int>(left * columns_[i].weight / weights);
            given += widths[i];
            if (last == columns_.size() || !columns_[last].fills) last = i;
        }
        if (last < columns_.size()) widths[last] += left - given;
    }
    return widths;
}

/// The column that gives way when another one is dragged; -1 where there is none to its right.
int GridColumns::yielding(int column) const {
    int found = -1;
    for (int i = column + 1; i < static_cast<int>(columns_.size()); ++i) {
        const Column& other = columns_[static_cast<std::size_t>(i)];
        if (other.weight <= 0) continue;
        if (other.fills) return i;
        if (found < 0) found = i;
    }
    return found;
}

std::vector<double> GridColumns::shares() const {
    std::vector<double> shares;
    shares.reserve(columns_.size());
    for (const Column& column : columns_) shares.push_back(column.weight);
    return shares;
}

void GridColumns::drag(int column, int width, int room) {
    const int other = yielding(column);
    if (other < 0) return;
    std::vector<int> now = widths(room);
    int& dragged = now.at(static_cast<std::size_t>(column));
    int& giving = now.at(static_cast<std::size_t>(other));
    const int least = columns_[static_cast<std::size_t>(column)].least;
    const int most = dragged + giving - columns_[static_cast<std::size_t>(other)].least;
    const int wanted = std::clamp(width, least, std::max(least, most));
    giving -= wanted - dragged;
    dragged = wanted;
    for (std::size_t i = 0; i < columns_.size(); ++i) columns_[i].weight = now[i];
}

}  // namespace zelvo::qt
