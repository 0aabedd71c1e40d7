#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "tables/TextStore.h"

namespace zelvo::data {

/// One value of a result set in 16 bytes: a text up to 13 bytes long stands in the cell, a longer one in the
/// set's store.
class PackedCell {
public:
    enum class Kind : std::uint8_t { Null, Text, Number };

    PackedCell() = default;
    PackedCell(std::string_view text, Kind kind, tables::TextStore& store);

    std::string_view text(const tables::TextStore& store) const;
    bool isNull() const { return kind_ == Kind::Null; }
    Kind kind() const { return kind_; }
    /// Changed here and not yet written to the database.
    bool changed() const { return changed_; }
    void setChanged(bool changed) { changed_ = changed; }

private:
    static constexpr std::size_t capacity_ = 13;
    static constexpr std::uint8_t elsewhere_ = 255;

    std::array<char, capacity_> bytes_{};
    std::uint8_t length_ = 0;
    Kind kind_ = Kind::Null;
    bool changed_ = false;
};
static_assert(sizeof(PackedCell) == 16);

}  // namespace zelvo::data
