#pragma once

#include <string>

#include "data/clsZELVORecordSet.h"
#include "ordering/OrderDraft.h"
#include "tables/XArrayDB.h"

namespace zelvo::ordering {

/// The rows that an order on the screen becomes in the pharmacy's database. All throw Fault for a value that
/// can't be converted or does not fit its column. `costs` are the cost lines of the confirmation.

/// The row of t_ChubangJun; `fields` as Build_CostFields left them, `serverTime` "yyyy-mm-dd hh:mm:ss".
data::ChubangJun orderRow(const OrderDraft& draft, const composition::modHanYakGuk::CostFields& fields,
                          const tables::XArrayDB& costs, const std::string& serverTime);
/// The notes of the ten cost lines, each ' a blank.
data::CostNotes costNotes(const tables::XArrayDB& costs);
data::HerbLine herbLine(const tables::XArrayDB& herbs, int row);

}  // namespace zelvo::ordering
