#pragma once

#include <memory>

#include "data/RecordSet.h"
#include "platform/odbc/Answer.h"

namespace zelvo::odbc {

/// Fetches the result set that the answer stands on, whole and in blocks, each column in its native type.
/// What comes back only has to be finished; until then `set` is not touched. Throws Fault.
std::unique_ptr<data::RecordSet::Filler> fetch(const Answer& answer, data::RecordSet& set);

}  // namespace zelvo::odbc
