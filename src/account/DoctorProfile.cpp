#include "account/DoctorProfile.h"

#include "basics/Numbers.h"
#include "basics/Pictures.h"
#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::account {

namespace {

std::string mark(std::int32_t flag) {
    return flag != 0 ? "O" : "X";
}

}  // namespace

ValidPay validPay(std::string_view flags) {
    const std::size_t count = basics::characterCount(flags);
    const auto isSet = [flags, count](std::size_t index) {
        return index < count && basics::part(flags, index, 1) == "1";
    };
    return {.deposit = isSet(0), .later = isSet(1), .settled = count > 0 && isSet(count - 1)};
}

DoctorProfile::DoctorProfile(screen::Window& form, screen::Place place)
    : txtDTRname(form, "txtDTRname", place),
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
      txtDTRvip(form, "txtDTRvip", place) {
    for (screen::TextField* field : {&txtDTRid, &txtDTRpass, &txtDTRdiscount, &txtDTRmileage, &txtDTRregdate,
                                     &txtDTRpouch, &txtDTRbox, &txtDTRuseform, &txtDTRvip}) {
        field->setReadOnly(true);
    }
    txtDTRpass.masked = true;
    for (screen::TextField* field : {&txtDTRname, &txtDTRhosname, &txtDTRaddress}) field->setHangul(true);
    txtDTRname.setLabel("이  름:");
    txtDTRlicense.setLabel("면허번호:");
    txtDTRcell.setLabel("핸드폰:");
    txtDTREmail.setLabel("이메일:");
    txtDTRhostel.setLabel("전화번호:");
    txtDTRhosname.setLabel("한의원명:");
    txtDTRhoszip.setLabel("우편번호");
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
    checkPayments(validPay(trim(doctor.DTR_ValidPay)));
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
void DoctorProfile::checkPayments(const ValidPay& flags) {
    if (ListVpayment.itemCount() < 3) return;
    ListVpayment.setItemChecked(0, flags.deposit);
    ListVpayment.setItemChecked(1, flags.later);
    ListVpayment.setItemChecked(2, flags.settled);
}

}  // namespace zelvo::account
