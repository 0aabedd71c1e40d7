#include "host/DoctorLogin.h"

#include <exception>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "screen/Desktop.h"
#include "screen/Window.h"

namespace zelvo::host {

namespace {

constexpr const char* loginCaption = "한약국 로그인";
constexpr std::string_view partSeparator = "/$/";
constexpr std::string_view accountSeparator = "#$#";

}  // namespace

DoctorLogin::DoctorLogin(screen::Window& form, screen::Place noticeTab, session::Session& session,
                         DoctorViews views)
    : ssrLogIN(form, "ssrLogIN", noticeTab, "로그인"), form_(form), session_(session), views_(views) {
    screen::usePressed(ssrLogIN, [this] { logIn(); });
}

void DoctorLogin::logIn() {
    try {
        std::string id, password;
        if (askAccount(id, password)) checkAccount(id, password);
    } catch (const std::exception& fault) {
        logOut();
        form_.desktop().alarm(fault.what(), "한약국 로그인 실패");
    }
}

bool DoctorLogin::askAccount(std::string& id, std::string& password) const {
    return form_.desktop().components().make<screen::AccountPrompt>()->Login(id, password);
}

/// A wrong account ends the session's login, though the fields still show the former doctor.
void DoctorLogin::checkAccount(const std::string& id, const std::string& password) {
    const screen::Errand errand(form_.desktop(), "로그인하는 중입니다.");
    std::int32_t key = 0;
    if (!data::clsZELVORecordSet().RecordSet_LoginCheck(session_.connection(), id, password, key)) {
        form_.desktop().inform("한약국 로그인 실패 -> [ID, PassWord를 확인해 주십시오.]", loginCaption);
        setDoctor(0);
        return;
    }
    const std::int16_t result = Load_DoctorInfo(LoginJob::Login, key);
    if (result == 1) loggedIn(id, password, key);
    if (result == -1) logOut();
}

void DoctorLogin::loggedIn(const std::string& id, const std::string& password, std::int32_t key) {
    setDoctor(key);
    session_.m_DoctorIDPWD = id + std::string(partSeparator) + password;
    whenLoggedIn();
    form_.desktop().inform("한약국 로그인 성공! [ 접속 ID = " + id + " ]", loginCaption);
    for (int tab = 1; tab < views_.c1tMain.pageCount(); ++tab) views_.c1tMain.setSelectable(tab, true);
    views_.c1tMain.select(1);
    form_.moveFocus();  // the button's page has gone behind: the keys go on where the order begins
}

void DoctorLogin::setDoctor(std::int32_t key) {
    if (key != session_.m_DTRPK) whenDoctorLeaves();
    session_.m_DTRPK = key;
}

void DoctorLogin::logOut() {
    setDoctor(0);
    session_.m_DoctorIDPWD.clear();
    Clear_DoctorInfo();
}

std::int16_t DoctorLogin::Load_DoctorInfo(LoginJob job, std::int32_t& DTRPK) {
    try {
        if (job == LoginJob::Nurse) {
            listNurseDoctors();
            return 1;
        }
        return loadDoctor(job, DTRPK);
    } catch (const std::exception& fault) {
        form_.desktop().alarm(fault.what(), loginCaption);
        return -1;
    }
}

std::int16_t DoctorLogin::loadDoctor(LoginJob job, std::int32_t& DTRPK) {
    data::DoctorRecord doctor;
    std::int16_t kind = 2;
    if (job == LoginJob::Initialize) {
        DTRPK = 0;
        if (session_.m_DoctorIDPWD.find(partSeparator) == std::string::npos) return -1;
        const auto parts = basics::split(session_.m_DoctorIDPWD, partSeparator);
        doctor.DTR_ID = basics::trim(parts[0]);
        doctor.DTR_PWD = basics::trim(parts[1]);
        kind = 1;
    } else {
        doctor.DTR_PK = DTRPK;
    }
    DTRPK = 0;
    const std::int16_t result =
        data::clsZELVORecordSet().RecordSet_DoctorInfo(session_.connection(), kind, doctor);
    if (result == -1) {
        form_.desktop().alarm("Doctor 정보를 가져오는 중 오류 발생. [한약국 서버 연결 확인]", loginCaption);
        return -1;
    }
    if (result == 0) {
        form_.desktop().inform(
            "입력된 아이디와 암호에 대한 Doctor 정보를 찾을 수 없습니다. [한약국 서버 연결 확인]",
            loginCaption);
        return 0;
    }
    showDoctor(job, doctor);
    DTRPK = doctor.DTR_PK;
    return 1;
}

namespace {

// Blanks count here: a nurse's accounts are compared as the chart wrote them.
std::vector<data::DoctorRecord> nursesAccounts(const std::string& accounts) {
    std::vector<data::DoctorRecord> doctors;
    for (const std::string& account : basics::split(accounts, accountSeparator)) {
        const std::size_t cut = account.find(partSeparator);
        if (cut == std::string::npos) continue;
        doctors.emplace_back();
        doctors.back().DTR_ID = account.substr(0, cut);
        doctors.back().DTR_PWD = account.substr(cut + partSeparator.size());
    }
    return doctors;
}

}  // namespace

void DoctorLogin::listNurseDoctors() {
    std::vector<data::DoctorRecord> doctors = nursesAccounts(session_.m_DoctorIDPWD);
    data::clsZELVORecordSet records;
    const data::ReadAhead ahead(session_.connection(), [&](data::Connection& line) {
        for (data::DoctorRecord doctor : doctors) records.RecordSet_DoctorInfo(line, 1, doctor);
    });
    for (data::DoctorRecord& doctor : doctors) {
        if (records.RecordSet_DoctorInfo(session_.connection(), 1, doctor) != 1) continue;
        views_.cbodtrList.addEntry(basics::decimalText(std::int64_t{doctor.DTR_PK}) + "/" + doctor.DTR_Name);
    }
}

void DoctorLogin::showDoctor(LoginJob job, const data::DoctorRecord& doctor) {
    Clear_DoctorInfo();
    if (job == LoginJob::Login) {
        views_.sender.txtHospitalName.setText(basics::trim(doctor.DTR_HosName));
        views_.sender.txtDoctor.setText(basics::trim(doctor.DTR_Name));
        views_.sender.txtDoctorCell.setText(basics::trim(doctor.DTR_Cell));
        views_.sender.txtHospitalTel.setText(basics::trim(doctor.DTR_HosTel));
        views_.sender.txtBalsongZip.setText(basics::trim(doctor.DTR_HosZip));
        views_.sender.txtBalsongJuso.setText(basics::trim(doctor.DTR_Address));
    }
    const std::string id = basics::trim(doctor.DTR_ID);
    views_.stbMain.setPanel(2, " 현재 접속 ID : " + id);
    form_.setCaption("ZEL-VO 메인 윈도우 - 한의사(현재 접속 ID : " + id + ")");
    views_.profile.show(doctor);
    views_.payment.offer(composition::validPay(doctor.DTR_ValidPay));
}

void DoctorLogin::Clear_DoctorInfo() {
    views_.sender.clear();
    views_.stbMain.setPanel(2, "");
    views_.profile.clear();
    views_.payment.cboPaymentMethod.clear();
}

}  // namespace zelvo::host
