#include "management/PatientSection.h"

#include "basics/Dates.h"
#include "data/Words.h"

namespace zelvo::management {

namespace {

/// What an order says that wants no date.
constexpr const char* noDate = "1900-01-01";

int methodIndex(std::string_view code) {
    constexpr std::string_view codes[] = {"1", "2", "3", "4"};
    for (int i = 0; i < 4; ++i) {
        if (codes[i] == code) return i;
    }
    return -1;
}

}  // namespace

PatientSection::PatientSection(screen::Window& form, DetailFrames& frames)
    : txtCBJmPatientName(form, "txtCBJmPatientName", frames.sspCBJm2.inside()),
      txtCBJmJumin(form, "txtCBJmJumin", frames.sspCBJm2.inside()),
      txtCBJmAge(form, "txtCBJmAge", frames.sspCBJm2.inside()),
      ssoCBJmSex0(form, "ssoCBJmSex(0)", frames.sspCBJm2.inside(), "남"),
      ssoCBJmSex1(form, "ssoCBJmSex(1)", frames.sspCBJm2.inside(), "여"),
      txtCBJmPaTel(form, "txtCBJmPaTel", frames.sspCBJm2.inside()),
      txtCBJmPaCell(form, "txtCBJmPaCell", frames.sspCBJm2.inside()),
      txtCBJmPaEmail(form, "txtCBJmPaEmail", frames.sspCBJm2.inside()),
      txtCBJmBeZip(form, "txtCBJmBeZip", frames.sspCBJm2.inside()),
      ssrZipCode2(form, "ssrZipCode(2)", frames.sspCBJm2.inside(), "찾기"),
      txtCBJmBeJuso(form, "txtCBJmBeJuso", frames.sspCBJm2.inside()),
      txtCBJmBesongMsg(form, "txtCBJmBesongMsg", frames.sspCBJm2.inside()),
      cboCBJmBesongMethod(form, "cboCBJmBesongMethod", frames.sspCBJm2.inside()),
      txtCBJmBesongDate(form, "txtCBJmBesongDate", frames.sspCBJm2.inside()),
      chkCBJmBesongDate(form, "chkCBJmBesongDate", frames.sspCBJm2.inside(), "받을 날짜:"),
      dtpCBJmBesongDate(form, "dtpCBJmBesongDate", frames.sspCBJm2.inside()),
      lblCBJmPatientPK(form, "lblCBJmPatientPK", frames.sspCBJm2.inside(), "0"),
      lblCBJmBesongMethod(form, "lblCBJmBesongMethod", frames.sspCBJm2.inside()) {
    dressFields();
    dtpCBJmBesongDate.setEnabled(false);
    chkCBJmBesongDate.onClick.add([this] { dtpCBJmBesongDate.setEnabled(chkCBJmBesongDate.value()); });
    setEditable(false);
}

void PatientSection::dressFields() {
    txtCBJmPatientName.setLabel("환자명:");
    txtCBJmJumin.setLabel("주민번호:");
    txtCBJmAge.setLabel("나이:");
    txtCBJmPaTel.setLabel("Tel:");
    txtCBJmPaCell.setLabel("핸드폰:");
    txtCBJmPaEmail.setLabel("이메일:");
    txtCBJmBeZip.setLabel("환자주소:");
    txtCBJmBeJuso.setLabel("환자주소:");
    txtCBJmBesongMsg.setLabel("택배내용:");
    cboCBJmBesongMethod.setLabel("배송방식:");
    txtCBJmBesongDate.setLabel("받을 날짜:");
    txtCBJmBesongDate.setReadOnly(true);
    dtpCBJmBesongDate.setLabel("받을 날짜:");
    ssrZipCode2.setTipText("우편번호를 찾습니다.");
    for (screen::OptionButton* sex : {&ssoCBJmSex0, &ssoCBJmSex1})
        sex->onClick.add([this] { hasSex_ = true; });
    lblCBJmPatientPK.setVisible(false);
    lblCBJmBesongMethod.setVisible(false);
}

void PatientSection::Form_Load() {
    using namespace data::delivery;
    for (const std::string_view method : {undecided, parcel, courier, clinic})
        cboCBJmBesongMethod.addEntry(method);
    cboCBJmBesongMethod.select(0);
}

bool PatientSection::load(const DetailRead& read) {
    data::CBJmPatient patient;
    if (!data::clsZELVORecordSet().RecordSet_CBJmPatientInfo(read.connection, read.CBJ_PK, patient))
        return false;
    show(patient);
    return true;
}

void PatientSection::show(const data::CBJmPatient& patient) {
    using management::show;
    lblCBJmPatientPK.setCaption(keyText(patient.Patient_PK));
    show(txtCBJmPatientName, patient.Patient_Name);
    show(txtCBJmJumin, patient.Patient_Jumin);
    (patient.Patient_Sex == "True" ? ssoCBJmSex0 : ssoCBJmSex1).setValue(true);
    show(txtCBJmAge, patient.Patient_Age);
    hasSex_ = !patient.Patient_Sex.empty();
    hasAge_ = !basics::isBlank(patient.Patient_Age);
    show(txtCBJmPaTel, patient.CBJ_Reci_Tel);
    show(txtCBJmPaCell, patient.CBJ_Reci_Cell);
    show(txtCBJmPaEmail, patient.Patient_Email);
    show(txtCBJmBeZip, patient.CBJ_Reci_Zip);
    show(txtCBJmBeJuso, patient.CBJ_Reci_Address);
    show(txtCBJmBesongMsg, patient.CBJ_BesongMsg);
    cboCBJmBesongMethod.select(methodIndex(patient.CBJ_BesongMethod));
    const std::string date = basics::trim(patient.CBJ_Reci_Date);
    txtCBJmBesongDate.setText(date.starts_with("1900") ? "" : date);
}

void PatientSection::clear() {
    for (screen::TextField* field :
         {&txtCBJmPatientName, &txtCBJmJumin, &txtCBJmAge, &txtCBJmPaTel, &txtCBJmPaCell, &txtCBJmPaEmail,
          &txtCBJmBeZip, &txtCBJmBeJuso, &txtCBJmBesongMsg, &txtCBJmBesongDate}) {
        field->setText("");
    }
    lblCBJmPatientPK.setCaption("0");
    lblCBJmBesongMethod.setCaption("");
    ssoCBJmSex0.setValue(false);
    ssoCBJmSex1.setValue(false);
    cboCBJmBesongMethod.select(-1);
    dtpCBJmBesongDate.setValue(basics::today());
    setEditable(false);
}

void PatientSection::setEditable(bool editable) {
    chkCBJmBesongDate.setValue(false);
    chkCBJmBesongDate.setVisible(editable);
    dtpCBJmBesongDate.setVisible(editable);
    txtCBJmBesongDate.setVisible(!editable);
}

void PatientSection::beginEditing() {
    if (const auto date = basics::parseDateTime(txtCBJmBesongDate.text()))
        dtpCBJmBesongDate.setValue(date->date);
    lblCBJmBesongMethod.setCaption(cboCBJmBesongMethod.text());
}

std::string PatientSection::sex() const {
    if (ssoCBJmSex0.value()) return "1";
    return hasSex_ ? "0" : "";
}

std::string PatientSection::age() const {
    const std::string text = basics::trim(txtCBJmAge.text());
    return text.empty() && hasAge_ ? "0" : text;
}

std::string PatientSection::deliveryDate() const {
    if (chkCBJmBesongDate.value()) return dtpCBJmBesongDate.text();
    return txtCBJmBesongDate.text().empty() ? noDate : txtCBJmBesongDate.text();
}

}  // namespace zelvo::management
