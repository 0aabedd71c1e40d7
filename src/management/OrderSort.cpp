#include "management/OrderSort.h"

#include <algorithm>
#include <string>
#include <vector>

#include "basics/Numbers.h"

namespace zelvo::management {

namespace {

using Row = std::vector<std::string>;

std::vector<Row> takeRows(const tables::XArrayDB& list) {
    std::vector<Row> rows(list.rowCount());
    for (int row = 0; row <= list.upperRow(); ++row) {
        Row& taken = rows[static_cast<std::size_t>(row)];
        for (int column = 0; column <= list.upperColumn(); ++column) taken.push_back(list.text(row, column));
    }
    return rows;
}

}  // namespace

void sortOrders(tables::XArrayDB& list, int column, bool descending) {
    const auto at = static_cast<std::size_t>(column);
    const bool numbers = column <= 1;
    std::vector<Row> rows = takeRows(list);
    std::stable_sort(rows.begin(), rows.end(), [&](const Row& left, const Row& right) {
        const Row& first = descending ? right : left;
        const Row& second = descending ? left : right;
        if (numbers) return basics::numberFromStart(first[at]) < basics::numberFromStart(second[at]);
        return first[at] < second[at];
    });
    for (int row = 0; row <= list.upperRow(); ++row) {
        const Row& sorted = rows[static_cast<std::size_t>(row)];
        list.set(row, 0, basics::toInt32(basics::numberFromStart(sorted[0])));
        for (int cell = 1; cell <= list.upperColumn(); ++cell)
            list.set(row, cell, sorted[static_cast<std::size_t>(cell)]);
    }
}

}  // namespace zelvo::management
