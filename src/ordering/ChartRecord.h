#pragma once

#include <cstdint>
#include <string>

#include "ordering/OrderDraft.h"

namespace zelvo::ordering {

/// What the chart is told of an order that has been stored: the nine values of Send2Chart.
struct ChartRecord {
    std::string strJob;          ///< name of the order type
    std::int16_t intChupSu = 0;  ///< packets, 0 without herbs
    std::int16_t intPouchAmount =
        0;                  ///< millilitres a pouch; this and the next three are 0 without a decoction
    float sglDayTuYak = 0;  ///< packs a day
    std::int16_t intTuyakilsu = 0;   ///< days of treatment
    std::int16_t intPouchTotal = 0;  ///< pouches in all
    std::string strMessage;          ///< the order's note
    std::int32_t lngSumCost = 0;     ///< total in won
    std::string strxDrugList;  ///< name and grams of each herb, "/$CD$/" between, "/$RD$/" between herbs
};

/// The values of the order on the screen at that total. Throws Fault for one that does not fit its place.
ChartRecord chartRecord(const OrderDraft& draft, const std::string& sumCost);

}  // namespace zelvo::ordering
