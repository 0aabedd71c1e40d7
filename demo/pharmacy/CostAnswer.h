#pragma once

#include <string>

#include "pharmacy/OrderPricing.h"

namespace zelvo::pharmacy {

/// The cost page's answer for a new order: twelve elements of amount and note, then the mileage.
std::string costAnswer(const Price& price);
/// The same for a modified order, with the two amounts that the pharmacy entered before the mileage.
std::string costUpdateAnswer(const Price& price, const StoredOrder& order);
/// The answer that refuses an order and says why.
std::string refusal(const std::string& reason);

}  // namespace zelvo::pharmacy
