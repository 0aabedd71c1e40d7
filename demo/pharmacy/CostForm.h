#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "pharmacy/OrderPricing.h"

namespace zelvo::pharmacy {

using FormFields = std::map<std::string, std::string, std::less<>>;

/// The fields of a form body ("a=1&b=%EA%B0%80"), percent signs and pluses decoded, bytes that are no UTF-8
/// replaced.
FormFields readForm(std::string_view body);

/// A herb line of an order as the clinic's table holds it.
struct HerbLine {
    std::string name;
    std::int32_t herbKey = 0;
    std::string price;        // won a gram, as the catalogue's price was read
    std::int32_t amount = 0;  // won a packet
};

/// What the cost page is asked.
struct CostRequest {
    std::int32_t doctorKey = 0;
    std::int32_t jobKey = 0;
    std::vector<HerbLine> herbs;
    OrderFacts order;  // without what the catalogue says of the order type
};

/// What the cost page for modified orders is asked. How the order is paid stands in the book.
struct CostUpdateRequest {
    std::int32_t doctorKey = 0;
    std::int32_t orderKey = 0;
    Delivery delivery = Delivery::Undecided;
    std::string deliveryZip;
};

/// The two requests out of their fields. Throw basics::Fault, with a sentence for the doctor, for a missing
/// field, a value that is no number where one is needed, a code that does not exist, or herb lines that
/// cannot be read.
CostRequest readCostRequest(const FormFields& fields);
CostUpdateRequest readCostUpdateRequest(const FormFields& fields);

}  // namespace zelvo::pharmacy
