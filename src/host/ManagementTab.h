#pragma once

#include "management/OrderDetail.h"
#include "management/OrderSearch.h"
#include "session/Session.h"

namespace zelvo::host {

/// The tab of the orders that have been sent: the search, the order in view, and what can be done with it.
struct ManagementTab {
    ManagementTab(screen::Window& form, screen::Place tab, session::Session& session);

    void Form_Load();

    management::OrderSearch search;
    management::OrderDetail detail;
};

}  // namespace zelvo::host
