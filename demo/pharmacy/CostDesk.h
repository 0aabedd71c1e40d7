#pragma once

#include <string>

#include "pharmacy/CostForm.h"
#include "pharmacy/PharmacyBook.h"

namespace zelvo::pharmacy {

/// The text with which the cost page answers a new order's fields: the price, or a refusal with its reason.
/// Throws DatabaseError when the book cannot be read; so does the next.
std::string answerCost(const PharmacyBook& book, const FormFields& fields);
/// The same for a waiting order whose delivery is to change.
std::string answerCostUpdate(const PharmacyBook& book, const FormFields& fields);

}  // namespace zelvo::pharmacy
