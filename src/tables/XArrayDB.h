#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tables/GridSource.h"

namespace zelvo::tables {

/// A two-dimensional table whose cells hold nothing, text, a whole number, a float or a Boolean. Rows and
/// columns count from 0; an empty array has the row bounds 0 and -1. Inserting and deleting at the running
/// position stay cheap with 100,000 rows behind it; a cell takes 16 bytes, longer texts stand in a store of
/// the array's own. A row or column outside the bounds is a Fault for reads and writes alike (but for the
/// GridSource ones).
class XArrayDB : public GridSource {
public:
    XArrayDB();
    ~XArrayDB() override;
    XArrayDB(XArrayDB&&) noexcept;
    XArrayDB& operator=(XArrayDB&&) noexcept;
    XArrayDB(const XArrayDB&) = delete;
    XArrayDB& operator=(const XArrayDB&) = delete;

    /// Makes the array anew with empty cells: rows 0 to `lastRow`, columns 0 to `lastColumn` (-1: none).
    void reDim(int lastRow, int lastColumn);
    /// Inserts `count` empty rows before `row` (row may be one past the last).
    void insertRows(int row, int count = 1);
    void deleteRows(int row, int count = 1);

    int lowerRow() const { return 0; }
    int upperRow() const;
    int lowerColumn() const { return 0; }
    int upperColumn() const;
    bool empty() const { return upperRow() < 0; }

    bool isNothing(int row, int column) const;
    /// Text form: "" for nothing, decimal for numbers, "-1" and "0" for a Boolean.
    std::string text(int row, int column) const;
    /// The cell's text without a copy where it holds one; valid until the array changes. Number cells give
    /// "".
    std::string_view textView(int row, int column) const;
    /// True for a Boolean true, a number or a numeric text other than 0; "True" counts too.
    bool isTrue(int row, int column) const;

    void set(int row, int column, std::string_view text);
    void set(int row, int column, const char* text) { set(row, column, std::string_view(text)); }
    void set(int row, int column, const std::string& text) { set(row, column, std::string_view(text)); }
    void set(int row, int column, bool value);
    void set(int row, int column, std::int32_t value);
    void set(int row, int column, std::int64_t value);
    /// A single-precision value stands as the decimal that it says: 17.1, not 17.1000003.
    void set(int row, int column, float value);
    void set(int row, int column, double value);
    void setNothing(int row, int column);

    /// Row of the first cell of `column`, from `fromRow` on, whose text equals `text`; -1 if there is none. A
    /// blank text matches nothing.
    int find(int fromRow, int column, std::string_view text) const;

    std::size_t rowCount() const override;
    int columnCount() const override;
    int columnOf(std::string_view field) const override;
    std::string cellText(std::size_t row, int column) const override;
    bool setCellText(std::size_t row, int column, std::string_view text) override;
    bool removeRow(std::size_t row) override;
    bool writeRow(std::size_t row) override;
    std::uint64_t generation() const override;

private:
    struct Rows;
    std::unique_ptr<Rows> rows_;
};

}  // namespace zelvo::tables
