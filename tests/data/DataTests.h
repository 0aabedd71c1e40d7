#pragma once

#include <string>
#include <utility>
#include <vector>

#include "data/clsZELVORecordSet.h"
#include "data/clsZELVOStockmoney.h"
#include "support/TestDatabase.h"

namespace zelvo::testing {

/// What nobody should be able to hurt a statement with, and its name.
inline const std::vector<std::pair<std::string, std::string>>& hostileTexts() {
    static const std::vector<std::pair<std::string, std::string>> texts = {
        {"quote", "O'Neil"},
        {"two quotes", "''"},
        {"quote at both ends", "'x'"},
        {"another statement", "x'); DELETE FROM t_Doctor; --"},
        {"placeholder", "[CBJ_PK]"},
        {"quoted placeholder", "'[DTR_PK]'"},
        {"wildcards", "50%_[a-z]"},
        {"comment", "a -- b /* c"},
        {"backslash", "\\' \\\\ \\"},
        {"line breaks", "one\r\ntwo\\\nthree"},
        {"Hangul", "당귀'복령"},
        {"other quotes", "\xCA\xBC \xEF\xBC\x87 \xE2\x80\x99"},
        {"not UTF-8", "a\xEA\xB0'\xFF"},
        {"U+0000", std::string("a\0' b", 5)},
        {"long", std::string(9'999, 'x') + "'"},
    };
    return texts;
}

/// An order of doctor 1 over 56,000 won, paid from the deposit.
inline data::ChubangJun sampleOrder() {
    data::ChubangJun order;
    order.DTR_PK = order.CBJ_IsPaid = order.CBJ_JobList_PK = order.CBJ_PayMethod = 1;
    order.Patient_Name = "김환자";
    order.CBJ_DrugCost = 52'000;
    order.CBJ_BesongCost = 4'000;
    order.CBJ_DayTuyak = 0.1F;
    order.CBJ_Reci_Date = "1900-01-01";
    order.CBJ_RegDate = "2024-05-06 09:08:07";
    return order;
}

}  // namespace zelvo::testing
