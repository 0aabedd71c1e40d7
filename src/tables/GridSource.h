#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zelvo::tables {

/// Rows that a grid shows live, without a copy: an array or a record set. Rows and columns count from 0.
class GridSource {
public:
    virtual ~GridSource() = default;

    virtual std::size_t rowCount() const = 0;
    virtual int columnCount() const = 0;
    /// The column that a database field of this name stands in, whatever its case; -1 if there is none
    /// (arrays: always -1).
    virtual int columnOf(std::string_view field) const = 0;
    /// The cell as text; nothing and NULL read as "". A row or column outside the source reads as "".
    virtual std::string cellText(std::size_t row, int column) const = 0;
    /// Stores a text in the cell. False when the source can't be changed or has no such cell.
    virtual bool setCellText(std::size_t row, int column, std::string_view text) = 0;
    /// Removes a row. False when the source can't be changed, has no such row, or the database refused.
    virtual bool removeRow(std::size_t row) = 0;
    /// Writes pending changes of the row to where the rows came from; true where there is nothing to write.
    virtual bool writeRow(std::size_t row) = 0;
    /// Changes whenever all rows are replaced (re-dimensioned, opened anew, closed), not when single rows
    /// come or go.
    virtual std::uint64_t generation() const = 0;
};

}  // namespace zelvo::tables
