#pragma once

#include <cstdint>

#include "data/clsZELVORecordSet.h"
#include "management/OrderDetail.h"
#include "screen/Desktop.h"
#include "session/Session.h"

namespace zelvo::management {

/// Whether somebody is logged in who may change the order in view, and the list stands on that order. What
/// stands against it has been told under the caption; where the list stands on another order, that one is
/// shown.
bool mayChange(screen::Desktop& desktop, const session::Session& session, OrderDetail& detail,
               const char* caption);

/// Reads from the database, not from the screen, whether an order can still be changed: it waits and is not
/// cancelled. False has been told under the caption; an order that the pharmacy has moved on is then shown
/// afresh.
bool stillWaits(screen::Desktop& desktop, const session::Session& session, OrderDetail& detail,
                std::int32_t CBJ_PK, const char* caption, data::CBJmState& state);

/// Reads from the database whether the order is still there. False has been told under the caption; an order
/// that the pharmacy has taken away is then shown afresh.
bool stillStands(screen::Desktop& desktop, const session::Session& session, OrderDetail& detail,
                 std::int32_t CBJ_PK, const char* caption);

}  // namespace zelvo::management
