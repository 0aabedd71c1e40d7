#include "data/PackedCell.h"

#include <cstring>

namespace zelvo::data {

PackedCell::PackedCell(std::string_view text, Kind kind, tables::TextStore& store) : kind_(kind) {
    if (text.size() <= capacity_) {
        if (!text.empty()) std::memcpy(bytes_.data(), text.data(), text.size());
        length_ = static_cast<std::uint8_t>(text.size());
        return;
    }
    const tables::TextStore::Place place = store.put(text);
    static_assert(sizeof place <= capacity_);
    std::memcpy(bytes_.data(), &place, sizeof place);
    length_ = elsewhere_;
}

std::string_view PackedCell::text(const tables::TextStore& store) const {
    if (length_ != elsewhere_) return {bytes_.data(), length_};
    tables::TextStore::Place place;
    std::memcpy(&place, bytes_.data(), sizeof place);
    return store.at(place);
}

}  // namespace zelvo::data
