#include "support/host/HostSession.h"

#include "basics/Fault.h"
#include "platform/console/Texts.h"

namespace zelvo::testing {

HostSession::HostSession(bool withCatalogue, std::unique_ptr<TestDesktop> glass)
    : screen(std::move(glass)),
      database(withCatalogue),
      component(desktop, session,
                [this](const data::ServerLogin& login) -> std::unique_ptr<data::Connection> {
                    ++opened;
                    if (login.address != database.address())
                        throw basics::Fault("no such server: " + login.address);
                    auto connection = std::make_unique<FaultyConnection>(database.connect());
                    line = connection.get();
                    line->failAt(failAtStart);
                    line->staysBroken = staysBroken;
                    return connection;
                }),
      user(desktop) {
    component.Send2Chart.add([this](const ordering::ChartRecord& record) { sent.push_back(record); });
}

host::HostArguments HostSession::arguments() const {
    host::HostArguments call;
    call.YakGukIP = " " + database.address() + " ";
    call.DoctorIDPWD = "doctor1/$/pass1";
    call.PatientPK = 1024;
    call.PatientName = " 김하늘 ";
    call.PatientJumin = "850312-2345678";
    call.PatientAge = 41;
    call.PatientSex = 2;
    call.PatientCell = "01012345678";
    call.PatientTel = "02-123-4567";
    call.PatientEmail = "haneul@example.kr";
    call.PatientZipCode = "06236";
    call.PatientJuso = "서울특별시 강남구 테헤란로 152";
    call.HospitalName = "하늘한의원";
    call.DoctorName = "이정민";
    call.HospitalTel = "025550123";
    call.DoctorCell = "010-8765-4321";
    call.HospitalZipCode = "03045";
    call.HospitalJuso = "서울특별시 종로구 효자로 12";
    return call;
}

void HostSession::runDoctor(const host::HostArguments& call, std::function<void()> script) {
    if (script) desktop.whenShown("frmDoctorOCSmain", [script](screen::Window&) { script(); });
    component.ZELVOInterface(call);
}

void HostSession::runNurse(const std::string& accounts, std::function<void()> script) {
    if (script) desktop.whenShown("frmDoctorOCSmain", [script](screen::Window&) { script(); });
    host::HostArguments call;
    call.YakGukIP = database.address();
    call.DoctorIDPWD = accounts;
    component.ZELVOInterface_Nurse(call);
}

std::string HostSession::textOf(const std::string& name) {
    return console::textOf(user.find(name)).value_or("(" + name + " holds no text)");
}

}  // namespace zelvo::testing
