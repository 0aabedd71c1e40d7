#include "tables/TextStore.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "basics/Fault.h"

namespace zelvo::tables {

namespace {
constexpr std::size_t smallestBlock = 1024;
constexpr std::size_t largestBlock = std::size_t{64} * 1024;
}  // namespace

TextStore::Place TextStore::put(std::string_view text) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) basics::throwOverflow();
    Block& block = blockFor(text.size());
    const Place place{static_cast<std::uint32_t>(blocks_.size() - 1), static_cast<std::uint32_t>(block.used),
                      static_cast<std::uint32_t>(text.size())};
    std::memcpy(block.bytes.get() + block.used, text.data(), text.size());
    block.used += text.size();
    used_ += text.size();
    return place;
}

std::string_view TextStore::at(const Place& place) const {
    return {blocks_[place.block].bytes.get() + place.offset, place.length};
}

/// The last block if the text fits into it, else a fresh one. Blocks grow with the store, so a small table
/// stays small.
TextStore::Block& TextStore::blockFor(std::size_t length) {
    if (!blocks_.empty() && blocks_.back().size - blocks_.back().used >= length) return blocks_.back();
    const std::size_t size = std::max(length, std::clamp(used_, smallestBlock, largestBlock));
    return blocks_.emplace_back(Block{std::make_unique_for_overwrite<char[]>(size), size, 0});
}

}  // namespace zelvo::tables
