#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::ordering {

/// One line of an itemised price: won, and what the pharmacy says about it (line breaks are CR LF).
struct CostLine {
    std::int32_t amount = 0;
    std::string note;
};

/// How an answer of a cost page came out.
enum class CostReading {
    Good,
    NoStart,      ///< no "[START]"
    NoEnd,        ///< no "[END]" behind it
    NoSeparator,  ///< a body without "/*/"
    Refused,      ///< the page refused the order; the body is the reason
    Fault,        ///< an element is missing or holds no amount
};

/// What a cost page answered. `reason` is the text for the doctor when the reading is not Good; the amounts
/// count only when it is.
struct CostAnswer {
    CostReading reading = CostReading::Good;
    std::string reason;
    CostLine total;
    std::vector<CostLine> lines;
    std::int32_t mileage = 0;
};

/// Lines of the answer for a new order and of the one for a modification (its last two are the pharmacy's own
/// amounts with and without VAT).
inline constexpr std::size_t orderCostLines = 10, updateCostLines = 12;

/// Reads what a cost page printed. Never throws for any text, cut, empty or hostile; amounts are whole won in
/// 32 bits and nothing else.
CostAnswer readCostAnswer(std::string_view answer, std::size_t lineCount = orderCostLines);

}  // namespace zelvo::ordering
