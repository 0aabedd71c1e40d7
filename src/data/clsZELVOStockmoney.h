#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/Connection.h"

namespace zelvo::data {

/// The sums of the deposit and mileage ledger, in won. On any failure the sum is 0 and the result false.
class clsZELVOStockmoney {
public:
    /// Kind "S": deposits, "M": mileage that counts, "": all that counts. Dates "yyyy-mm-dd"; "" leaves them
    /// out.
    bool ZELVO_StockMoney(Connection& Conn, std::int32_t& Sum, std::int32_t DTR_PK, const std::string& Kind,
                          const std::string& sDate, const std::string& eDate);
    /// Full cost of the doctor's orders by pay word ("적립", "후불", "후불정산") and IsPaied ("" leaves it
    /// out).
    bool ZELVO_CBJcostSum(Connection& Conn, std::int32_t& Sum, std::int32_t DTR_PK,
                          const std::string& PayWord, const std::string& IsPaied, const std::string& sDate,
                          const std::string& eDate);
    /// What the doctor can still pay with: deposits less what they paid for, and the mileage, in one trip.
    /// Nothing when a sum can't be read.
    std::optional<std::int64_t> usable(Connection& Conn, std::int32_t DTR_PK);
};

}  // namespace zelvo::data
