#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/clsZELVORecordSet.h"
#include "ordering/OrderDraft.h"
#include "tables/XArrayDB.h"

namespace zelvo::ordering {

/// A text of the order that comes from a field: its column of t_ChubangJun, what the doctor calls it, and how
/// it is stored.
struct RowText {
    std::string data::ChubangJun::*member;
    std::string_view column, label;
    screen::TextField& field;
    std::string stored;
};
std::vector<RowText> rowTexts(const OrderDraft& draft);

/// The rows that an order on the screen becomes in the pharmacy's database. All throw Fault for a value that
/// can't be converted or does not fit its column. `costs` are the cost lines of the confirmation.

/// The row of t_ChubangJun; `fields` as Build_CostFields left them, `serverTime` "yyyy-mm-dd hh:mm:ss".
data::ChubangJun orderRow(const OrderDraft& draft, const composition::modHanYakGuk::CostFields& fields,
                          const tables::XArrayDB& costs, const std::string& serverTime);
/// The notes of the ten cost lines, each ' a blank.
data::CostNotes costNotes(const tables::XArrayDB& costs);
data::HerbLine herbLine(const tables::XArrayDB& herbs, int row);

}  // namespace zelvo::ordering
