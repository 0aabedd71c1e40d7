#pragma once

#include "account/BalanceView.h"
#include "management/OrderDetail.h"
#include "management/OrderSearch.h"
#include "session/Session.h"

namespace zelvo::management {

/// Withdraws an order that still waits. Its row leaves the list; the panel keeps it until the list's row
/// changes.
class OrderCancel {
public:
    OrderCancel(screen::Window& form, session::Session& session, OrderSearch& search, OrderDetail& detail,
                account::BalanceView& balance);

private:
    void Cancel_Order();
    void cancel();
    void removeRow(int row);

    screen::Window& form_;
    session::Session& session_;
    OrderSearch& search_;
    OrderDetail& detail_;
    account::BalanceView& balance_;
};

}  // namespace zelvo::management
