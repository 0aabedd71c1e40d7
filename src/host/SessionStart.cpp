#include "host/SessionStart.h"

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "data/clsZELVORecordSet.h"
#include "session/YakGukConnection.h"

namespace zelvo::host {

using basics::trim;

SessionStart::SessionStart(frmDoctorOCSmain& form, session::Session& session, data::ConnectionOpener open)
    : form_(form), session_(session), open_(std::move(open)) {}

void SessionStart::Show_Form(const HostArguments& arguments) {
    orUnload([&] { startDoctor(arguments); });
}

void SessionStart::Show_Form_Nurse(const HostArguments& arguments) {
    orUnload([&] { startNurse(arguments); });
}

// A fault on the way to the screen goes to the chart, but no connection stays behind it.
void SessionStart::orUnload(const std::function<void()>& start) {
    try {
        start();
    } catch (...) {
        form_.unload();
        throw;
    }
}

void SessionStart::startDoctor(const HostArguments& arguments) {
    if (!connect(arguments, "ZEL-VO 메인 윈도우 - 한의사")) return;
    form_.c1tMain.select(frmDoctorOCSmain::orderTab);
    session_.m_DTRPK = 0;
    session_.m_DoctorIDPWD = arguments.DoctorIDPWD;
    logIn();
    Load_SessionData();
    form_.management.detail.Clear_CBJmDetail();
    fillPatient(arguments);
    if (session_.m_DTRPK != 0) fillClinic(arguments);
    form_.order.sheet.loadDefaults();
    session_.m_IsNurse = false;
    form_.management.search.c1tCBJmanage.setSelectable(2, false);
    showPharmacy();
    form_.order.keeping.begin();
    form_.showModal();
}

void SessionStart::startNurse(const HostArguments& arguments) {
    if (!connect(arguments, "ZEL-VO 메인 윈도우 - 간호사")) return;
    form_.c1tMain.setSelectable(frmDoctorOCSmain::orderTab, false);
    form_.c1tMain.setSelectable(frmDoctorOCSmain::myOcsTab, false);
    form_.c1tMain.setSelectable(frmDoctorOCSmain::managementTab, true);
    session_.m_DTRPK = 0;
    session_.m_DoctorIDPWD = arguments.DoctorIDPWD;
    form_.login.Load_DoctorInfo(LoginJob::Nurse, session_.m_DTRPK);
    Load_SessionData();
    form_.management.detail.Clear_CBJmDetail();
    form_.order.sheet.loadDefaults();
    form_.login.ssrLogIN.setVisible(false);
    form_.management.detail.state.ssrCBJreuse.setVisible(false);
    form_.management.search.showDoctorColumn();
    form_.management.search.c1tCBJmanage.setSelectable(2, true);
    form_.remembersFor = "nurse";
    form_.c1tMain.select(frmDoctorOCSmain::managementTab);
    form_.stbMain.setPanel(2, "간호사용 zelvo");
    showPharmacy();
    session_.m_IsNurse = true;
    form_.showModal();
}

bool SessionStart::connect(const HostArguments& arguments, const char* caption) {
    session_.g_conChart = arguments.conSQL;
    form_.setCaption(caption);
    const std::string address = trim(arguments.YakGukIP);
    form_.notices.lblYakGukSvrIP.setCaption(address);
    if (session::ConnectYakGukServer(session_, form_.desktop(), open_, address)) return true;
    form_.unload();
    return false;
}

void SessionStart::logIn() {
    const screen::Errand errand(form_.desktop(), "로그인하는 중입니다.");
    if (form_.login.Load_DoctorInfo(LoginJob::Initialize, session_.m_DTRPK) == 1) return;
    form_.login.Clear_DoctorInfo();
    session_.m_DoctorIDPWD.clear();
    form_.c1tMain.select(frmDoctorOCSmain::noticeTab);
    for (const int tab :
         {frmDoctorOCSmain::orderTab, frmDoctorOCSmain::managementTab, frmDoctorOCSmain::myOcsTab}) {
        form_.c1tMain.setSelectable(tab, false);
    }
}

namespace {

constexpr const char* pharmacyQuestion = "SELECT * FROM t_PxInfo ";

/// What the load sequence asks, in its order.
void readCatalogue(data::Connection& line) {
    data::clsZELVORecordSet records;
    data::RecordSet rows;
    tables::XArrayDB none;
    line.open(rows, pharmacyQuestion, data::Cursor::Static);
    records.RecordSet_GongJi(line, rows);
    records.RecordSet_JobList(line, rows, none);
    records.RecordSet_TangJun(line, rows, none);
    records.RecordSet_TangJunADD(line, rows, none);
}

}  // namespace

void SessionStart::Load_SessionData() {
    const screen::Errand errand(form_.desktop(), "한약국의 목록을 불러오는 중입니다.");
    const data::ReadAhead ahead(session_.connection(), readCatalogue);  // on a server they share a trip
    Load_PxInfo();
    Load_GongJi();
    Load_JobList();
    Init_DrugGrids();
    Load_TangJun();
    Load_TangJunAdd();
    Init_CBJGrid();
    Init_StockGrids();
}

// A pharmacy that can't be read leaves the labels as they were designed; no cost page is reached by those.
void SessionStart::Load_PxInfo() {
    try {
        readPxInfo();
    } catch (const std::exception&) {
        form_.notices.lblYakGukSvrIP.setCaption("");
    }
}

void SessionStart::readPxInfo() {
    data::RecordSet info;
    session_.connection().open(info, pharmacyQuestion, data::Cursor::Static);
    if (info.atEnd()) return;
    constexpr int firstColumn = 2;
    for (int i = 0; i < static_cast<int>(form_.notices.lblGongJiYakGuk.size()); ++i) {
        form_.notices.lblGongJiYakGuk[static_cast<std::size_t>(i)].setCaption(
            trim(info.text(firstColumn + i)));
    }
    form_.notices.lblYakGukSvrIP.setCaption(trim(info.text(7)));
    form_.order.cost.lblCBJcostAspURL.setCaption(trim(info.text(8)));
    form_.order.cost.lblCBJcostUpAspURL.setCaption(trim(info.text(9)));
}

void SessionStart::Load_GongJi() {
    form_.notices.Load_GongJi();
}
void SessionStart::Load_JobList() {
    form_.order.options.Load_JobList();
}

void SessionStart::Init_DrugGrids() {
    form_.order.herbs.Init_DrugGrids();
    form_.management.detail.bindHerbs();
}

void SessionStart::Load_TangJun() {
    form_.order.options.Load_TangJun();
}
void SessionStart::Load_TangJunAdd() {
    form_.order.options.Load_TangJunAdd();
}
void SessionStart::Init_CBJGrid() {
    form_.management.search.Init_CBJGrid();
}
void SessionStart::Init_StockGrids() {
    form_.balance.Init_StockGrids();
}

void SessionStart::fillPatient(const HostArguments& arguments) {
    composition::PatientDelivery& patient = form_.order.patient;
    patient.lblPatientPK.setCaption(basics::decimalText(std::int64_t{arguments.PatientPK}));
    patient.txtPatientName.setText(trim(arguments.PatientName));
    patient.txtPatientJumin.setText(trim(arguments.PatientJumin));
    (arguments.PatientSex == 1 ? patient.ssoSex0 : patient.ssoSex1).setValue(true);
    patient.txtPatientEmail.setText(trim(arguments.PatientEmail));
    patient.txtPatientTel.setText(trim(arguments.PatientTel));
    patient.txtPatientCell.setText(trim(arguments.PatientCell));
    patient.txtPatientAge.setText(basics::decimalText(std::int64_t{arguments.PatientAge}));
    patient.txtBesongZip.setText(trim(arguments.PatientZipCode));
    patient.txtBesongJuso.setText(trim(arguments.PatientJuso));
}

void SessionStart::fillClinic(const HostArguments& arguments) {
    composition::SenderBlock& sender = form_.order.sender;
    sender.txtHospitalName.setText(trim(arguments.HospitalName));
    sender.txtDoctor.setText(trim(arguments.DoctorName));
    sender.txtHospitalTel.setText(trim(arguments.HospitalTel));
    sender.txtDoctorCell.setText(trim(arguments.DoctorCell));
    sender.txtBalsongZip.setText(trim(arguments.HospitalZipCode));
    sender.txtBalsongJuso.setText(trim(arguments.HospitalJuso));
}

void SessionStart::showPharmacy() {
    form_.stbMain.setPanel(3, session::version);
    form_.stbMain.setPanel(1, form_.notices.lblGongJiYakGuk[0].caption() + " 입니다...");
}

}  // namespace zelvo::host
