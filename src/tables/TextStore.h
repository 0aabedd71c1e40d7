#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace zelvo::tables {

/// Keeps texts in blocks that never move or shrink: a text stays where it was put until the whole store goes.
/// It counts what was let go of, so that its owner knows when moving the living texts to a fresh store pays.
class TextStore {
public:
    /// Where a text stands.
    struct Place {
        std::uint32_t block = 0, offset = 0, length = 0;
    };

    /// Takes a copy of the text, at most 4 GiB long. Throws Fault for a longer one.
    Place put(std::string_view text);
    std::string_view at(const Place& place) const;
    /// Notes that nobody asks for this text any more.
    void letGo(const Place& place) { garbage_ += place.length; }

    std::size_t used() const { return used_; }
    std::size_t garbage() const { return garbage_; }

private:
    struct Block {
        std::unique_ptr<char[]> bytes;
        std::size_t size = 0, used = 0;
    };
    Block& blockFor(std::size_t length);

    std::vector<Block> blocks_;
    std::size_t used_ = 0, garbage_ = 0;
};

}  // namespace zelvo::tables
