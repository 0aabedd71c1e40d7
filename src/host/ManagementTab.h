#pragma once

#include <functional>

#include "account/BalanceView.h"
#include "host/OrderTab.h"
#include "management/OrderCancel.h"
#include "management/OrderDetail.h"
#include "management/OrderModification.h"
#include "management/OrderReuse.h"
#include "management/OrderSearch.h"
#include "session/Session.h"

namespace zelvo::host {

/// The tab of the orders that have been sent: the search, the order in view, and what can be done with it.
struct ManagementTab {
    /// `showOrderTab` brings the tab forward on which a reused order stands.
    ManagementTab(screen::Window& form, screen::Place tab, session::Session& session, OrderTab& order,
                  account::BalanceView& balance, std::function<void()> showOrderTab);

    void Form_Load();
    /// Takes the orders of a doctor who is no longer logged in out of view.
    void forget();

    management::OrderSearch search;
    management::OrderDetail detail;
    management::OrderModification modification;
    management::OrderCancel cancel;
    management::OrderReuse reuse;
};

}  // namespace zelvo::host
