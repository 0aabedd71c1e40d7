#pragma once

#include <cstdint>
#include <string_view>

namespace zelvo::data {

/// Words and codes that the screens and t_ChubangJun share.
namespace pay {
inline constexpr std::string_view deposit = "적립", later = "후불", settled = "후불정산";
/// 1 적립, 2 후불, 3 for any other text.
std::int16_t code(std::string_view word);
}  // namespace pay

namespace delivery {
inline constexpr std::string_view undecided = "미정", parcel = "택배(환자)", courier = "퀵(환자)",
                                  clinic = "한의원";
/// 1 미정, 2 택배(환자), 3 퀵(환자), 4 for any other text.
std::int16_t code(std::string_view word);
}  // namespace delivery

/// "대 기", "제 작", "발송대기", "완 료" for 0 to 3.
namespace state {
inline constexpr std::string_view words[] = {"대 기", "제 작", "발송대기", "완 료"};
}

}  // namespace zelvo::data
