#pragma once

#include "tables/XArrayDB.h"

namespace zelvo::management {

/// Sorts the rows of a list of orders by a column, in place: numbers by value, texts as they stand. Equal
/// rows keep their order. Column 0 holds numbers, all others texts.
void sortOrders(tables::XArrayDB& list, int column, bool descending);

}  // namespace zelvo::management
