#include "account/DoctorProfile.h"

#include <exception>

#include "basics/Numbers.h"
#include "basics/Pictures.h"
#include "basics/Text.h"
#include "screen/Window.h"
#include "session/YakGukConnection.h"

namespace zelvo::account {

namespace {

constexpr const char* notLoggedIn = "로그인 후에 사용하십시오.(m_DTRPK = 0)";
constexpr const char* changeCaption = "한의사정보 변경";
constexpr const char* passwordCaption = "비밀번호 변경";

std::string mark(std::int32_t flag) {
    return flag != 0 ? "O" : "X";
}

}  // namespace

DoctorProfile::DoctorProfile(screen::Window& form, screen::Place place, session::Session& session,
                             composition::SenderBlock& sender)
    : lblDTRinfo(form, "lblDTRinfo", place, " 한의사 정보"),
      txtDTRname(form, "txtDTRname", place),
      txtDTRlicense(form, "txtDTRlicense", place),
      txtDTRcell(form, "txtDTRcell", place),
      txtDTREmail(form, "txtDTREmail", place),
      txtDTRhostel(form, "txtDTRhostel", place),
      txtDTRhosname(form, "txtDTRhosname", place),
      txtDTRhoszip(form, "txtDTRhoszip", place),
      ssrZipCode4(form, "ssrZipCode(4)", place, "찾기"),
      txtDTRaddress(form, "txtDTRaddress", place),
      ssrDTRchang(form, "ssrDTRchang", place, "변경한 내용 저장"),
      txtDTRid(form, "txtDTRid", place),
      txtDTRpass(form, "txtDTRpass", place),
      ssrPWDchang(form, "ssrPWDchang", place, "비밀번호변경"),
      txtDTRdiscount(form, "txtDTRdiscount", place),
      txtDTRmileage(form, "txtDTRmileage", place),
      txtDTRregdate(form, "txtDTRregdate", place),
      ListVpayment(form, "ListVpayment", place),
      txtDTRpouch(form, "txtDTRpouch", place),
      txtDTRbox(form, "txtDTRbox", place),
      txtDTRuseform(form, "txtDTRuseform", place),
      txtDTRvip(form, "txtDTRvip", place),
      form_(form),
      session_(session),
      sender_(sender) {
    labelFields();
    for (screen::TextField* field : {&txtDTRid, &txtDTRpass, &txtDTRdiscount, &txtDTRmileage, &txtDTRregdate,
                                     &txtDTRpouch, &txtDTRbox, &txtDTRuseform, &txtDTRvip}) {
        field->setReadOnly(true);
    }
    txtDTRpass.masked = true;
    screen::usePressed(ssrDTRchang, [this] { saveChanges(); });
    screen::usePressed(ssrPWDchang, [this] { changePassword(); });
}

void DoctorProfile::labelFields() {
    txtDTRname.setLabel("이  름:");
    txtDTRlicense.setLabel("면허번호:");
    txtDTRcell.setLabel("핸드폰:");
    txtDTREmail.setLabel("이메일:");
    txtDTRhostel.setLabel("전화번호:");
    txtDTRhosname.setLabel("한의원명:");
    txtDTRhoszip.setLabel("우편번호");
    ssrZipCode4.setTipText("우편번호를 찾습니다.");
    txtDTRaddress.setLabel("한의원 주소:");
    txtDTRid.setLabel("아이디:");
    txtDTRpass.setLabel("비밀번호:");
    txtDTRdiscount.setLabel("할인율:");
    txtDTRmileage.setLabel("마일리지:");
    txtDTRregdate.setLabel("등록일자:");
    ListVpayment.setLabel("비용 지불방식:");
    txtDTRpouch.setLabel("파우치 비용 발생여부:");
    txtDTRbox.setLabel("박스 비용 발생:");
    txtDTRuseform.setLabel("복용법 용지 비용 발생여부:");
    txtDTRvip.setLabel("VIP 회원:");
}

void DoctorProfile::Form_Load() {
    for (const char* method : {"적립 방식", "후불 방식", "후불정산 방식"}) ListVpayment.addItem(method);
}

void DoctorProfile::show(const data::DoctorRecord& doctor) {
    using basics::trim;
    txtDTRid.setText(trim(doctor.DTR_ID));
    txtDTRpass.setText(trim(doctor.DTR_PWD));
    txtDTRname.setText(trim(doctor.DTR_Name));
    txtDTRlicense.setText(trim(doctor.DTR_LicenseNo));
    txtDTRcell.setText(trim(doctor.DTR_Cell));
    txtDTREmail.setText(trim(doctor.DTR_Email));
    txtDTRhostel.setText(trim(doctor.DTR_HosTel));
    txtDTRdiscount.setText(basics::decimalText(doctor.DTR_Discount));
    txtDTRmileage.setText(basics::decimalText(doctor.DTR_Mileage));
    txtDTRhosname.setText(trim(doctor.DTR_HosName));
    txtDTRregdate.setText(trim(doctor.DTR_RegDate));
    txtDTRhoszip.setText(trim(doctor.DTR_HosZip));
    txtDTRaddress.setText(trim(doctor.DTR_Address));
    checkPayments(composition::validPay(doctor.DTR_ValidPay));
    txtDTRvip.setText(mark(doctor.DTR_VIP));
    txtDTRpouch.setText(mark(doctor.DTR_IsUsePouch));
    txtDTRbox.setText(basics::formatNumber(doctor.DTR_IsUseBox, basics::NumberPicture::SeparatedZero));
    txtDTRuseform.setText(mark(doctor.DTR_IsUseForm));
}

void DoctorProfile::clear() {
    for (screen::TextField* field :
         {&txtDTRid, &txtDTRpass, &txtDTRname, &txtDTRlicense, &txtDTRcell, &txtDTRhostel, &txtDTRdiscount,
          &txtDTRmileage, &txtDTRhosname, &txtDTRregdate, &txtDTRhoszip, &txtDTRaddress, &txtDTRvip,
          &txtDTRpouch, &txtDTRbox, &txtDTRuseform, &txtDTREmail}) {
        field->setText("");
    }
    checkPayments({});
}

/// The list has its items from Form_Load on; before that there is nothing to check.
void DoctorProfile::checkPayments(const composition::ValidPay& valid) {
    if (ListVpayment.itemCount() < 3) return;
    ListVpayment.setItemChecked(0, valid.deposit);
    ListVpayment.setItemChecked(1, valid.later);
    ListVpayment.setItemChecked(2, valid.settled);
}

void DoctorProfile::saveChanges() {
    if (session_.m_DTRPK < 1) return form_.desktop().inform(notLoggedIn, changeCaption);
    if (basics::isBlank(txtDTRname.text()))
        return form_.desktop().inform("한의사명을 입력하여 주십시오.", changeCaption);
    auto outcome = data::CommitOutcome::Refused;
    {
        const screen::BusyPointer busy(form_.desktop(), "한의사 정보를 저장하는 중입니다.");
        outcome = data::clsZELVORecordSet().Update_DoctorInfo(session_.connection(), session_.m_DTRPK,
                                                              changedRecord());
    }
    switch (outcome) {
        case data::CommitOutcome::Refused:
            return form_.desktop().alarm("한의사 정보 변경 실패 [변경한 내용을 다시 한번 더 확인 바랍니다.]",
                                         "한의사정보 변경 실패");
        case data::CommitOutcome::Unknown:
            return form_.desktop().alarm("한의사 정보 변경 결과를 확인할 수 없습니다. " +
                                             session::onceStartedAgain(session_) +
                                             "[MY OCS]에서 확인하여 주십시오.",
                                         changeCaption);
        case data::CommitOutcome::Done:
            break;
    }
    fillSender();
    form_.desktop().inform("한의사 정보를 성공적으로 변경하였습니다.", changeCaption);
}

data::DoctorRecord DoctorProfile::changedRecord() const {
    const auto cleaned = [](const screen::TextField& field) {
        return basics::trim(basics::removeAll(field.text(), "'"));
    };
    data::DoctorRecord doctor;
    doctor.DTR_Name = cleaned(txtDTRname);
    doctor.DTR_LicenseNo = cleaned(txtDTRlicense);
    doctor.DTR_Cell = cleaned(txtDTRcell);
    doctor.DTR_HosTel = cleaned(txtDTRhostel);
    doctor.DTR_HosName = cleaned(txtDTRhosname);
    doctor.DTR_HosZip = cleaned(txtDTRhoszip);
    doctor.DTR_Address = cleaned(txtDTRaddress);
    doctor.DTR_Email = cleaned(txtDTREmail);
    return doctor;
}

/// The order in hand goes out under the clinic as it now stands.
void DoctorProfile::fillSender() {
    sender_.txtHospitalName.setText(txtDTRhosname.text());
    sender_.txtDoctor.setText(txtDTRname.text());
    sender_.txtDoctorCell.setText(txtDTRcell.text());
    sender_.txtHospitalTel.setText(txtDTRhostel.text());
    sender_.txtBalsongZip.setText(txtDTRhoszip.text());
    sender_.txtBalsongJuso.setText(txtDTRaddress.text());
}

void DoctorProfile::changePassword() {
    if (session_.m_DTRPK == 0) return form_.desktop().inform(notLoggedIn, passwordCaption);
    try {
        std::string password;
        const bool wanted = form_.desktop().components().make<screen::AccountPrompt>()->ChangePassword(
            txtDTRpass.text(), password);
        if (wanted) storePassword(password);
    } catch (const std::exception& fault) {
        form_.desktop().alarm(fault.what(), passwordCaption);
    }
}

void DoctorProfile::storePassword(const std::string& password) {
    switch (
        data::clsZELVORecordSet().Update_DoctorPassword(session_.connection(), session_.m_DTRPK, password)) {
        case data::CommitOutcome::Refused:
            return form_.desktop().alarm("비밀번호 변경 실패! (한약국 서버 연결 확인)", passwordCaption);
        case data::CommitOutcome::Unknown:
            return form_.desktop().alarm(
                "비밀번호 변경 결과를 확인할 수 없습니다. " + session::onceStartedAgain(session_) +
                    "새 비밀번호로 로그인하여 주십시오. 로그인되지 않으면 이전 비밀번호가 "
                    "그대로입니다.",
                passwordCaption);
        case data::CommitOutcome::Done:
            break;
    }
    txtDTRpass.setText(password);
    form_.desktop().inform("비밀번호 변경 성공! ", passwordCaption);
}

}  // namespace zelvo::account
