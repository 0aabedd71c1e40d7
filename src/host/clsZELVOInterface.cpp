#include "host/clsZELVOInterface.h"

#include "host/SessionStart.h"
#include "host/modWindowPos.h"

namespace zelvo::host {

clsZELVOInterface::clsZELVOInterface(screen::Desktop& desktop, session::Session& session,
                                     data::ConnectionOpener open)
    : desktop_(desktop), session_(session), open_(std::move(open)) {}

bool clsZELVOInterface::ZELVOInterface(const HostArguments& arguments) {
    const HostArguments copy = arguments.clean();
    makeWindow();
    SessionStart(*m_frmDoctorOCSMain, session_, open_).Show_Form(copy);
    return false;
}

bool clsZELVOInterface::ZELVOInterface_Nurse(const HostArguments& arguments) {
    const HostArguments copy = arguments.clean();
    makeWindow();
    SessionStart(*m_frmDoctorOCSMain, session_, open_).Show_Form_Nurse(copy);
    return false;
}

void clsZELVOInterface::makeWindow() {
    m_frmDoctorOCSMain = std::make_unique<frmDoctorOCSmain>(desktop_, session_);
    m_frmDoctorOCSMain->order.send.Send2Chart.add(
        [this](const ordering::ChartRecord& record) { m_frmDoctorOCSMain_Send2Chart(record); });
    modWindowPos::CenterForm(*m_frmDoctorOCSMain);
}

void clsZELVOInterface::m_frmDoctorOCSMain_Send2Chart(const ordering::ChartRecord& record) {
    Send2Chart(record);
}

}  // namespace zelvo::host
