#pragma once

#include <functional>
#include <string>

#include "data/Connection.h"
#include "host/HostArguments.h"
#include "host/frmDoctorOCSmain.h"
#include "session/Session.h"

namespace zelvo::host {

/// From the chart's call to the window on the screen: connection, login, the pharmacy's catalogues, the
/// chart's values. Both ways in return when the window has closed, or at once when the pharmacy can't be
/// reached.
class SessionStart {
public:
    SessionStart(frmDoctorOCSmain& form, session::Session& session, data::ConnectionOpener open);

    void Show_Form(const HostArguments& arguments);
    void Show_Form_Nurse(const HostArguments& arguments);

private:
    void orUnload(const std::function<void()>& start);
    void startDoctor(const HostArguments& arguments);
    void startNurse(const HostArguments& arguments);
    bool connect(const HostArguments& arguments, const char* caption);
    void logIn();
    void Load_SessionData();
    void Load_PxInfo();
    void readPxInfo();
    void Load_GongJi();
    void Load_JobList();
    void Init_DrugGrids();
    void Load_TangJun();
    void Load_TangJunAdd();
    void Init_CBJGrid();
    void Init_StockGrids();
    void fillPatient(const HostArguments& arguments);
    void fillClinic(const HostArguments& arguments);
    void showPharmacy();

    frmDoctorOCSmain& form_;
    session::Session& session_;
    data::ConnectionOpener open_;
};

}  // namespace zelvo::host
