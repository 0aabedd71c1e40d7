#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tables/TextStore.h"

namespace zelvo::data {

/// The rows of a result set, each packed into one piece: four bytes a cell, then the cells' texts. A walk
/// over 100,000 rows touches little memory that way, and that is most of its time.
class PackedRows {
public:
    enum class Kind : std::uint8_t { Null, Text, Number };

    explicit PackedRows(std::size_t width);

    std::size_t width() const { return width_; }
    std::size_t count() const { return rows_.size(); }

    /// The next cell, row by row from left to right.
    void add(std::string_view text, Kind kind);

    std::string_view text(std::size_t row, std::size_t column) const;
    Kind kind(std::size_t row, std::size_t column) const;
    /// Changed here and not yet written to the database.
    bool isChanged(std::size_t row, std::size_t column) const;

    void change(std::size_t row, std::size_t column, std::string_view text);
    void forgetChanges(std::size_t row);
    void erase(std::size_t row);
    /// Row i becomes what was row `order[i]`.
    void arrange(const std::vector<std::size_t>& order);

private:
    void put(std::string_view text, Kind kind, bool changed);
    const char* finished();
    std::uint32_t head(std::size_t row, std::size_t column) const;
    std::size_t headsSize() const { return width_ * sizeof(std::uint32_t); }

    std::size_t width_;
    std::vector<const char*> rows_;
    tables::TextStore store_;
    std::string building_;    // the row that is being put together: the cells' heads, then their texts
    std::size_t filled_ = 0;  // its cells so far
};

}  // namespace zelvo::data
