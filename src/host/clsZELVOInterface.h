#pragma once

#include <memory>

#include "data/Connection.h"
#include "host/HostArguments.h"
#include "host/frmDoctorOCSmain.h"
#include "ordering/ChartRecord.h"
#include "screen/Desktop.h"
#include "screen/Event.h"
#include "session/Session.h"

namespace zelvo::host {

/// What the chart calls. Each call makes one window and returns when it has closed; the result is False on
/// every path: the chart learns the outcome from Send2Chart alone.
class clsZELVOInterface {
public:
    clsZELVOInterface(screen::Desktop& desktop, session::Session& session, data::ConnectionOpener open);

    /// Opens the window for a doctor.
    bool ZELVOInterface(const HostArguments& arguments);
    /// Opens the window for a nurse; of the arguments the first three count.
    bool ZELVOInterface_Nurse(const HostArguments& arguments);

    /// An order has been stored. Runs inside the call, on the caller's thread.
    screen::Event<const ordering::ChartRecord&> Send2Chart;

private:
    void makeWindow();
    void m_frmDoctorOCSMain_Send2Chart(const ordering::ChartRecord& record);

    screen::Desktop& desktop_;
    session::Session& session_;
    data::ConnectionOpener open_;
    std::unique_ptr<frmDoctorOCSmain> m_frmDoctorOCSMain;
};

}  // namespace zelvo::host
