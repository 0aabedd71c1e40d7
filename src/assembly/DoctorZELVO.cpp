#include "doctorzelvo/DoctorZELVO.hpp"

#include "assembly/Component.h"
#include "assembly/Glass.h"
#include "assembly/HostDialogs.h"
#include "basics/Numbers.h"
#include "host/clsZELVOInterface.h"
#include "platform/console/Console.h"
#include "platform/console/PharmacyTool.h"
#include "platform/settings/UserSettings.h"

namespace doctorzelvo {

namespace {

using zelvo::assembly::Component;
using zelvo::basics::decimalText;
using zelvo::console::ConsoleDesktop;

ChartRecord toHost(const zelvo::ordering::ChartRecord& record) {
    return {record.strJob,      record.intChupSu,    record.intPouchAmount,
            record.sglDayTuYak, record.intTuyakilsu, record.intPouchTotal,
            record.strMessage,  record.lngSumCost,   record.strxDrugList};
}

std::vector<std::string> asTexts(const ChartRecord& record) {
    return {record.strJob,
            decimalText(std::int64_t{record.intChupSu}),
            decimalText(std::int64_t{record.intPouchAmount}),
            decimalText(record.sglDayTuYak),
            decimalText(std::int64_t{record.intTuyakilsu}),
            decimalText(std::int64_t{record.intPouchTotal}),
            record.strMessage,
            decimalText(std::int64_t{record.lngSumCost}),
            record.strxDrugList};
}

int inTerminal(const std::string& script, const std::function<void(ConsoleDesktop&)>& session) {
    zelvo::settings::UserSettings settings;
    const auto pharmacy = [](const std::vector<std::string>& words) {
        return zelvo::console::runPharmacyTool(Component::instance().serverAddress, words);
    };
    return zelvo::console::runConsole({.script = script, .settings = settings, .pharmacy = pharmacy},
                                      session);
}

}  // namespace

struct clsZELVOInterface::Parts {
    ConsoleDesktop* terminal =
        nullptr;  ///< that the caller has set up; nullptr: the window stands on the screen
    std::string error;

    using Call = std::function<void(zelvo::host::clsZELVOInterface&)>;
    /// A call of the chart that holds `chart`.
    void run(const std::string& address, const clsZELVOInterface& chart, const Call& call);

private:
    using Send = std::function<void(const ChartRecord&)>;
    void runInTerminal(const clsZELVOInterface& chart, const Call& call) const;
    void runOnScreen(const clsZELVOInterface& chart, const Call& call);
    static void runOn(zelvo::screen::Desktop& desktop, const clsZELVOInterface& chart, const Send& send,
                      const Call& call);
};

void clsZELVOInterface::Parts::run(const std::string& address, const clsZELVOInterface& chart,
                                   const Call& call) {
    Component& component = Component::instance();
    const Component::Turn turn(component);
    error = turn.granted()
                ? ""
                : "ZELVO 창이 이미 열려 있습니다. 열려 있는 창을 닫은 후에 다시 실행하여 주십시오.";
    if (!turn.granted()) return;
    component.serverAddress = address;
    if (terminal) {
        runInTerminal(chart, call);
    } else {
        runOnScreen(chart, call);
    }
}

void clsZELVOInterface::Parts::runInTerminal(const clsZELVOInterface& chart, const Call& call) const {
    runOn(
        *terminal, chart,
        [&](const ChartRecord& record) {
            terminal->sent(asTexts(record));
            if (chart.Send2Chart) chart.Send2Chart(record);
        },
        call);
}

void clsZELVOInterface::Parts::runOnScreen(const clsZELVOInterface& chart, const Call& call) {
    zelvo::settings::UserSettings settings;
    error = zelvo::assembly::runOnGlass(settings, [&](zelvo::screen::Desktop& desktop) {
        desktop.setRemembered(std::make_unique<zelvo::settings::UserSettings>(zelvo::files::OnDisk::Later));
        runOn(desktop, chart, chart.Send2Chart, call);
    });
}

void clsZELVOInterface::Parts::runOn(zelvo::screen::Desktop& desktop, const clsZELVOInterface& chart,
                                     const Send& send, const Call& call) {
    zelvo::assembly::registerComponents(desktop);
    zelvo::assembly::registerOwnDialogs(desktop.components(), chart);
    zelvo::host::clsZELVOInterface host(desktop, Component::instance().session,
                                        zelvo::assembly::openPharmacy);
    host.Send2Chart.add([&](const zelvo::ordering::ChartRecord& record) {
        if (send) send(toHost(record));
    });
    call(host);
}

clsZELVOInterface::clsZELVOInterface() : parts_(std::make_unique<Parts>()) {}
clsZELVOInterface::clsZELVOInterface(std::unique_ptr<Parts> parts) : parts_(std::move(parts)) {}
clsZELVOInterface::~clsZELVOInterface() = default;

const std::string& clsZELVOInterface::errorText() const {
    return parts_->error;
}

bool clsZELVOInterface::ZELVOInterface(
    void* conSQL, const std::string& YakGukIP, const std::string& DoctorIDPWD, std::int32_t PatientPK,
    const std::string& PatientName, const std::string& PatientJumin, std::int16_t PatientAge,
    std::int16_t PatientSex, const std::string& PatientCell, const std::string& PatientTel,
    const std::string& PatientEmail, const std::string& PatientZipCode, const std::string& PatientJuso,
    const std::string& HospitalName, const std::string& DoctorName, const std::string& HospitalTel,
    const std::string& DoctorCell, const std::string& HospitalZipCode, const std::string& HospitalJuso) {
    zelvo::host::HostArguments arguments{
        conSQL,     YakGukIP,    DoctorIDPWD, PatientPK,       PatientName,    PatientJumin, PatientAge,
        PatientSex, PatientCell, PatientTel,  PatientEmail,    PatientZipCode, PatientJuso,  HospitalName,
        DoctorName, HospitalTel, DoctorCell,  HospitalZipCode, HospitalJuso};
    parts_->run(YakGukIP, *this,
                [&arguments](zelvo::host::clsZELVOInterface& host) { host.ZELVOInterface(arguments); });
    return false;
}

bool clsZELVOInterface::ZELVOInterface_Nurse(void* conSQL, const std::string& YakGukIP,
                                             const std::string& DoctorIDPWD) {
    zelvo::host::HostArguments arguments;
    arguments.conSQL = conSQL;
    arguments.YakGukIP = YakGukIP;
    arguments.DoctorIDPWD = DoctorIDPWD;
    parts_->run(YakGukIP, *this,
                [&arguments](zelvo::host::clsZELVOInterface& host) { host.ZELVOInterface_Nurse(arguments); });
    return false;
}

bool shutdown() {
    const Component::Turn turn(Component::instance());
    return turn.granted() && zelvo::assembly::leaveGlass();
}

int runInTerminal(const std::string& script, const std::function<void(clsZELVOInterface&)>& chart) {
    return inTerminal(script, [&chart](ConsoleDesktop& desktop) {
        auto parts = std::make_unique<clsZELVOInterface::Parts>();
        parts->terminal = &desktop;
        clsZELVOInterface component(std::move(parts));
        chart(component);
    });
}

}  // namespace doctorzelvo
