#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tables/XArrayDB.h"

namespace zelvo::composition {

/// An array as one text: cells joined by one separator, rows by another, with no escaping.
class clsXArrayString {
public:
    /// Writes the whole array into `strTarget`; gives the number of rows.
    std::int32_t XArrayDB2String(const tables::XArrayDB& xSource, std::string& strTarget,
                                 std::string_view strRowDel, std::string_view strColDel) const;
    /// Rebuilds `xTarget` from a text, with at least `intDefColCount` columns; gives the number of rows.
    /// Throws Fault, the array untouched, when a row has fewer cells than the first.
    std::int32_t String2XArrayDB(std::string_view strSource, tables::XArrayDB& xTarget,
                                 std::string_view strRowDel, std::string_view strColDel,
                                 std::int16_t intDefColCount) const;
};

}  // namespace zelvo::composition
