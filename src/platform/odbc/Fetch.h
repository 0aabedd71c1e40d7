#pragma once

#include <memory>

#include "data/RecordSet.h"
#include "platform/odbc/Handle.h"

namespace zelvo::odbc {

/// Fetches the result set that the handle stands on, whole and in blocks, each column in its native type.
/// What comes back only has to be finished. Throws Fault.
std::unique_ptr<data::RecordSet::Filler> fetch(const StatementHandle& statement, data::RecordSet& set);

}  // namespace zelvo::odbc
