#include "host/ManagementTab.h"

namespace zelvo::host {

ManagementTab::ManagementTab(screen::Window& form, screen::Place tab, session::Session& session,
                             OrderTab& order, account::BalanceView& balance,
                             std::function<void()> showOrderTab)
    : search(form, tab, session),
      detail(form, tab, session, search.tdbCBJ),
      modification(form, session, detail, order.cost, balance),
      cancel(form, session, search, detail, balance),
      reuse(form, detail, order.draft, order.gate, std::move(showOrderTab)) {}

void ManagementTab::forget() {
    search.forget();
    detail.forget();
}

void ManagementTab::Form_Load() {
    detail.Form_Load();
    search.Form_Load();
}

}  // namespace zelvo::host
