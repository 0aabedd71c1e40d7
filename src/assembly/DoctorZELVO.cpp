#include "doctorzelvo/DoctorZELVO.hpp"

#include "assembly/Component.h"
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
                                      [&session](ConsoleDesktop& desktop) {
                                          zelvo::assembly::registerComponents(desktop);
                                          session(desktop);
                                      });
}

}  // namespace

struct clsZELVOInterface::Parts {
    ConsoleDesktop* desktop =
        nullptr;  ///< the terminal that the caller has set up; nullptr: one for each call
    std::string error;

    using Call = std::function<void(zelvo::host::clsZELVOInterface&)>;
    void run(const std::string& address, const std::function<void(const ChartRecord&)>& chart,
             const Call& call);

private:
    void runOn(ConsoleDesktop& window, const std::function<void(const ChartRecord&)>& chart,
               const Call& call);
};

void clsZELVOInterface::Parts::run(const std::string& address,
                                   const std::function<void(const ChartRecord&)>& chart, const Call& call) {
    Component& component = Component::instance();
    const Component::Turn turn(component);
    error = turn.granted()
                ? ""
                : "ZELVO 창이 이미 열려 있습니다. 열려 있는 창을 닫은 후에 다시 실행하여 주십시오.";
    if (!turn.granted()) return;
    component.serverAddress = address;
    if (desktop) return runOn(*desktop, chart, call);
    inTerminal("", [&](ConsoleDesktop& own) { runOn(own, chart, call); });
}

void clsZELVOInterface::Parts::runOn(ConsoleDesktop& window,
                                     const std::function<void(const ChartRecord&)>& chart, const Call& call) {
    zelvo::host::clsZELVOInterface host(window, Component::instance().session, zelvo::assembly::openPharmacy);
    host.Send2Chart.add([&](const zelvo::ordering::ChartRecord& record) {
        const ChartRecord values = toHost(record);
        window.sent(asTexts(values));
        if (chart) chart(values);
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
    parts_->run(YakGukIP, Send2Chart,
                [&arguments](zelvo::host::clsZELVOInterface& host) { host.ZELVOInterface(arguments); });
    return false;
}

bool clsZELVOInterface::ZELVOInterface_Nurse(void* conSQL, const std::string& YakGukIP,
                                             const std::string& DoctorIDPWD) {
    zelvo::host::HostArguments arguments;
    arguments.conSQL = conSQL;
    arguments.YakGukIP = YakGukIP;
    arguments.DoctorIDPWD = DoctorIDPWD;
    parts_->run(YakGukIP, Send2Chart,
                [&arguments](zelvo::host::clsZELVOInterface& host) { host.ZELVOInterface_Nurse(arguments); });
    return false;
}

int runInTerminal(const std::string& script, const std::function<void(clsZELVOInterface&)>& chart) {
    return inTerminal(script, [&chart](ConsoleDesktop& desktop) {
        auto parts = std::make_unique<clsZELVOInterface::Parts>();
        parts->desktop = &desktop;
        clsZELVOInterface component(std::move(parts));
        chart(component);
    });
}

}  // namespace doctorzelvo
