#pragma once

#include <vector>

#include "account/BalanceView.h"
#include "account/DoctorProfile.h"
#include "host/DoctorLogin.h"
#include "host/ManagementTab.h"
#include "host/OrderTab.h"
#include "input/FieldRules.h"
#include "screen/Window.h"
#include "services/AddressSearch.h"
#include "services/Notices.h"
#include "session/Session.h"

namespace zelvo::host {

/// The main window: it owns the panes and flows of its four tabs and looks after its own life, nothing else.
class frmDoctorOCSmain : public screen::Window {
public:
    frmDoctorOCSmain(screen::Desktop& desktop, session::Session& session);

    enum Tab { noticeTab, orderTab, managementTab, myOcsTab };

    screen::Panel c1eMain;
    screen::TabControl c1tMain;
    screen::StatusBar stbMain;
    services::Notices notices;
    account::BalanceView balance;
    OrderTab order;
    ManagementTab management;
    account::DoctorProfile profile;
    services::AddressSearch addresses;
    DoctorLogin login;

private:
    void Form_Load();
    void showShortcuts();
    void Form_Resize();
    void Form_Unload();
    void c1tMain_Click();
    std::vector<services::AddressBlock> addressBlocks();
    void releaseArrays();
    void releaseConnections();
    void releaseRecordSets();
    void releaseStyles();

    session::Session& session_;
    input::FieldRules rules_;
};

}  // namespace zelvo::host
