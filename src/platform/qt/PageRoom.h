#pragma once

#include <cstddef>
#include <vector>

#include "platform/qt/TableRoom.h"

namespace zelvo::qt {

/// What a page may cost a document's layout, which runs on the window's thread: the prices are measured (in
/// nanoseconds, on one slow core), and all of them together stay well below a second. Each table within
/// another makes the layout look at all within it twice.
class PageRoom {
public:
    /// What a character of a text takes: plain ones, and those that a font has to be looked for.
    bool takesText(std::size_t plain, std::size_t rare, int pixels) {
        height_ += (plain + rare) * static_cast<std::size_t>(pixels);
        return height_ <= tallest && spend(plain * 900 + rare * 4000);
    }
    bool takesElement() { return spend(16'000); }
    bool takesItem() { return ++items_ <= mostItems && takesElement(); }
    bool takesPicture() { return ++pictures_ <= mostPictures && takesElement(); }
    bool opensTable() {
        if (tables_.depth() >= deepestTables || !takesElement()) return false;
        tables_.open();
        return true;
    }
    void closesTable() { tables_.close(); }
    bool takesRow() {
        const std::size_t former = tables_.cells();
        return tables_.takesRow() && takesCells(former);
    }
    bool takesCell(std::size_t columns, std::size_t rows) {
        const std::size_t former = tables_.cells();
        return tables_.takesCell(columns, rows) && takesCells(former);
    }

private:
    static constexpr std::size_t most = 300'000'000, tallest = 8'000'000, deepestTables = 4;
    static constexpr std::size_t mostItems = 2'000, mostPictures = 200;

    bool takesCells(std::size_t former) { return spend((tables_.cells() - former) * 70'000); }
    bool spend(std::size_t price) {
        spent_ += price << tables_.depth();
        return spent_ <= most;
    }

    TableRoom tables_;
    std::size_t spent_ = 0, height_ = 0, items_ = 0, pictures_ = 0;
};

}  // namespace zelvo::qt
