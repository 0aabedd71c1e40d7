#pragma once

#include <cstdint>

#include "data/clsZELVORecordSet.h"
#include "management/OrderDetail.h"
#include "screen/Desktop.h"
#include "session/Session.h"

namespace zelvo::management {

/// Reads from the database, not from the screen, whether an order can still be changed: it waits and is not
/// cancelled. False has been told under the caption; an order that the pharmacy has moved on is then shown
/// afresh.
bool stillWaits(screen::Desktop& desktop, const session::Session& session, OrderDetail& detail,
                std::int32_t CBJ_PK, const char* caption, data::CBJmState& state);

}  // namespace zelvo::management
