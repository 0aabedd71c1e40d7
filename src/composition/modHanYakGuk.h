#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "basics/Pictures.h"
#include "screen/Desktop.h"
#include "tables/XArrayDB.h"

namespace zelvo::composition {

/// Columns of the composition and of its table, and what the row's state and merge mark say.
namespace herb {
inline constexpr int blank = 0, name = 1, pharmacyName = 2, key = 3, grams = 4, price = 5, amount = 6,
                     order = 7, state = 8, merged = 9, note = 10, lastColumn = 10;
inline constexpr const char *complete = "0", *incomplete = "-1", *mergedMark = "1";
}  // namespace herb

/// Columns of the lists of order types, decoction methods and form changes; the first holds the Boolean mark
/// of what is chosen.
namespace option {
inline constexpr int selected = 0, key = 1, name = 2, message = 4;
inline constexpr int hasHerbs = 5, hasDecoction = 6;  ///< of an order type
inline constexpr int slot = 5, type = 6;              ///< of a form change
inline constexpr int slotCount = 64;
}  // namespace option

/// The herb procedures of the composition: rules on the array of herb lines. Rows count from 0.
namespace modHanYakGuk {

/// 0, the 1-based number of another row with the same text in the column, or -1 on failure (shown). With
/// keepCell 0 the cell of the given row is blanked when there is one; with -1 it stays.
std::int16_t Find_DuplicateDrug(screen::Desktop& desktop, tables::XArrayDB& herbs, int row, int column,
                                std::int16_t keepCell);
/// Reaction of a row to a change of column 1, 2 or 4 (the mode). 0, the duplicate's row number, or -1 on
/// failure (shown).
std::int16_t Update_DrugCell(screen::Desktop& desktop, int mode, int row, tables::XArrayDB& herbs);
/// Writes the row's state, column 8: "0" complete, "-1" not. 0, or -1 on failure.
std::int16_t Check_DrugRow(screen::Desktop& desktop, tables::XArrayDB& herbs, int row);
/// Numbers the rows in column 7 from 1. 0, or -1 on failure.
std::int16_t Renumber_DrugRows(screen::Desktop& desktop, tables::XArrayDB& herbs);

/// Whether nothing was written into a row yet; the numbering may have passed over it.
bool isUnfilled(const tables::XArrayDB& herbs, int row);

/// What a packet's grams of a herb cost in won, in single precision, through a picture. Throws Fault when one
/// of the two is no number or the amount has no place.
std::string amountText(std::string_view grams, std::string_view price, basics::NumberPicture picture);

/// The first row of a list of options that bears the selection mark, -1 when none does.
int selectedRow(const tables::XArrayDB& options);

/// The order's keys and texts as the cost page and the order row take them.
struct CostFields {
    std::string JobListKey, DrugText, TJMLKey, TJALSlot;
    /// In: as on the screen (the price without commas). Out: empty where the order type has no such section.
    std::string Chubsu, DrugPrice, PouchAmount, PouchTotal;
};

/// 0 on success, -1 on a fault (no order type selected, say, or a chosen form change without a slot).
std::int16_t Build_CostFields(const tables::XArrayDB& jobList, const tables::XArrayDB& herbs,
                              const tables::XArrayDB& methods, const tables::XArrayDB& addOns,
                              CostFields& fields);

}  // namespace modHanYakGuk

/// Separators of the text form of an array.
inline constexpr const char* rowSeparator = "/$RD$/";
inline constexpr const char* cellSeparator = "/$CD$/";

}  // namespace zelvo::composition
