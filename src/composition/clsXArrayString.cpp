#include "composition/clsXArrayString.h"

#include <algorithm>
#include <vector>

#include "basics/Fault.h"
#include "basics/Text.h"

namespace zelvo::composition {

std::int32_t clsXArrayString::XArrayDB2String(const tables::XArrayDB& xSource, std::string& strTarget,
                                              std::string_view strRowDel, std::string_view strColDel) const {
    std::string joined;
    for (int row = xSource.lowerRow(); row <= xSource.upperRow(); ++row) {
        if (row > xSource.lowerRow()) joined += strRowDel;
        for (int column = xSource.lowerColumn(); column <= xSource.upperColumn(); ++column) {
            if (column > xSource.lowerColumn()) joined += strColDel;
            joined += xSource.text(row, column);
        }
    }
    strTarget = std::move(joined);
    return xSource.upperRow() - xSource.lowerRow() + 1;
}

std::int32_t clsXArrayString::String2XArrayDB(std::string_view strSource, tables::XArrayDB& xTarget,
                                              std::string_view strRowDel, std::string_view strColDel,
                                              std::int16_t intDefColCount) const {
    if (strSource.empty()) {
        xTarget.reDim(-1, intDefColCount - 1);
        return 0;
    }
    std::vector<std::vector<std::string>> rows;
    for (const std::string& row : basics::split(strSource, strRowDel)) {
        rows.push_back(basics::split(row, strColDel));
        if (rows.back().size() < rows.front().size()) {
            throw basics::Fault("첫 행보다 칸이 적은 행이 있습니다.");
        }
    }
    const int rowCount = static_cast<int>(rows.size());
    const int cellCount = static_cast<int>(rows.front().size());
    xTarget.reDim(rowCount - 1, std::max<int>(intDefColCount, cellCount) - 1);
    for (int row = 0; row < rowCount; ++row) {
        for (int column = 0; column < cellCount; ++column) {
            xTarget.set(row, column, rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
        }
    }
    return rowCount;
}

}  // namespace zelvo::composition
