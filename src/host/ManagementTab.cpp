#include "host/ManagementTab.h"

namespace zelvo::host {

ManagementTab::ManagementTab(screen::Window& form, screen::Place tab, session::Session& session)
    : search(form, tab, session), detail(form, tab, session, search.tdbCBJ) {}

void ManagementTab::Form_Load() {
    detail.Form_Load();
    search.Form_Load();
}

}  // namespace zelvo::host
