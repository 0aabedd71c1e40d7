#pragma once

#include "support/OrderWindow.h"

namespace zelvo::ordering {

using screen::Answer;
using testing::OrderWindow;
using Box = std::pair<std::string, std::string>;
inline constexpr const char* success =
    "[탕전] 처방전 전송을 성공했습니다.\r[벡소라]에도 진료기록을 남기려면 [진료부에 기록]을 실행하십시오.\r"
    "  참고 : [벡소라]에 처방에 대한 자료가 표시되어 있습니다.\r\rZELVO를 종료하고 [벡소라]로 복귀하시겠습니까?";

/// Rows of the five tables that an order writes: `all` for a whole one of two herbs.
inline std::string written(const testing::OrderPharmacy& pharmacy) {
    return pharmacy.value(
        "SELECT (SELECT count(*) FROM t_ChubangJun) || ' ' || (SELECT count(*) FROM t_Stock WHERE CBJ_PK <> 0) || ' ' ||"
        " (SELECT count(*) FROM t_CBJcostDetail) || ' ' || (SELECT count(*) FROM t_CBJDetail) || ' ' ||"
        " (SELECT count(*) FROM t_EatGuide)");
}
inline const std::string all = "1 1 1 2 1", nothing = "0 0 0 0 0";

/// How many marks of sends stand on the machine.
inline int marksOf(const OrderWindow& window) {
    int marks = 0;
    for (const auto& [name, text] : window.logs()) marks += name.starts_with("unsettled_") ? 1 : 0;
    return marks;
}

}  // namespace zelvo::ordering
