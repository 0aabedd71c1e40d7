#include "data/PackedRows.h"

#include <cstring>

namespace zelvo::data {

namespace {

// The head of a cell: where its text ends, counted from the first text of the row; whether it was changed;
// its kind.
constexpr std::uint32_t kindBits = 3, changedBit = 4, endShift = 3;

}  // namespace

PackedRows::PackedRows(std::size_t width) : width_(width) {
    building_.resize(headsSize());
}

void PackedRows::add(std::string_view text, Kind kind) {
    put(text, kind, false);
    if (filled_ == width_) rows_.push_back(finished());
}

void PackedRows::put(std::string_view text, Kind kind, bool changed) {
    building_.append(text);
    const std::uint32_t head = static_cast<std::uint32_t>(building_.size() - headsSize()) << endShift |
                               (changed ? changedBit : 0) | static_cast<std::uint32_t>(kind);
    std::memcpy(building_.data() + filled_ * sizeof head, &head, sizeof head);
    ++filled_;
}

const char* PackedRows::finished() {
    const char* row = store_.at(store_.put(building_)).data();
    building_.resize(headsSize());
    filled_ = 0;
    return row;
}

std::uint32_t PackedRows::head(std::size_t row, std::size_t column) const {
    std::uint32_t head = 0;
    std::memcpy(&head, rows_[row] + column * sizeof head, sizeof head);
    return head;
}

std::string_view PackedRows::text(std::size_t row, std::size_t column) const {
    const std::size_t begin = column == 0 ? 0 : head(row, column - 1) >> endShift;
    const std::size_t end = head(row, column) >> endShift;
    return {rows_[row] + headsSize() + begin, end - begin};
}

PackedRows::Kind PackedRows::kind(std::size_t row, std::size_t column) const {
    return static_cast<Kind>(head(row, column) & kindBits);
}

bool PackedRows::isChanged(std::size_t row, std::size_t column) const {
    return (head(row, column) & changedBit) != 0;
}

void PackedRows::change(std::size_t row, std::size_t column, std::string_view text) {
    for (std::size_t i = 0; i < width_; ++i) {
        if (i == column) {
            put(text, Kind::Text, true);
        } else {
            put(this->text(row, i), kind(row, i), isChanged(row, i));
        }
    }
    rows_[row] = finished();
}

void PackedRows::forgetChanges(std::size_t row) {
    for (std::size_t i = 0; i < width_; ++i) put(text(row, i), kind(row, i), false);
    rows_[row] = finished();
}

void PackedRows::erase(std::size_t row) {
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
}

void PackedRows::arrange(const std::vector<std::size_t>& order) {
    std::vector<const char*> arranged;
    arranged.reserve(order.size());
    for (const std::size_t row : order) arranged.push_back(rows_[row]);
    rows_ = std::move(arranged);
}

}  // namespace zelvo::data
