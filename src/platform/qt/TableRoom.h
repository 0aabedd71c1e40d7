#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <vector>

namespace zelvo::qt {

/// How many cells a page's tables come to in a document, which fills up each table to a rectangle and has a
/// bounded room for them.
class TableRoom {
public:
    void open() { tables_.emplace_back(); }
    void close() { tables_.pop_back(); }
    std::size_t depth() const { return tables_.size(); }
    std::size_t cells() const { return cells_; }

    /// A row of the innermost table comes; false when there is no room for it. A cell likewise.
    bool takesRow() {
        if (tables_.empty()) return false;
        Table wider = tables_.back();
        ++wider.rows;
        std::shift_left(wider.reaching.begin(), wider.reaching.end(), 1);
        wider.reaching.back() = 0;
        wider.inRow = std::accumulate(wider.reaching.begin(), wider.reaching.end(), std::size_t{0});
        return take(wider);
    }
    /// A cell by the columns and rows that it spans.
    bool takesCell(std::size_t columns, std::size_t rows) {
        if (tables_.empty()) return false;
        Table wider = tables_.back();
        wider.rows = std::max<std::size_t>(wider.rows, 1);
        wider.inRow += columns;
        if (rows > 1) wider.reaching[std::min<std::size_t>(rows, longestSpan) - 1] += columns;
        wider.columns = std::max(wider.columns, wider.inRow);
        return wider.columns <= mostColumns && take(wider);
    }
    static constexpr int longestSpan = 50;  ///< rows

private:
    static constexpr std::size_t most = 5'000, mostColumns = 50;

    struct Table {
        std::size_t rows = 0, columns = 1, inRow = 0;
        /// Columns of the cells that reach so many rows further down, from 0.
        std::array<std::size_t, longestSpan> reaching{};
        std::size_t cells() const { return rows * columns; }
    };
    bool take(const Table& wider) {
        const std::size_t then = cells_ - tables_.back().cells() + wider.cells();
        if (then > most) return false;
        cells_ = then;
        tables_.back() = wider;
        return true;
    }

    std::vector<Table> tables_;
    std::size_t cells_ = 0;
};

}  // namespace zelvo::qt
