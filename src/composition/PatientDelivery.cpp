#include "composition/PatientDelivery.h"

#include "basics/Dates.h"
#include "basics/Text.h"
#include "data/Words.h"

namespace zelvo::composition {

PatientDelivery::PatientDelivery(screen::Window& form, OrderFrames& frames, OrderWatch& watch)
    : lblPatientPK(form, "lblPatientPK", frames.c1tPatient0.page(0), "0"),
      txtPatientName(form, "txtPatientName", frames.c1tPatient0.page(0)),
      txtPatientJumin(form, "txtPatientJumin", frames.c1tPatient0.page(0)),
      ssoSex0(form, "ssoSex(0)", frames.c1tPatient0.page(0), "남"),
      ssoSex1(form, "ssoSex(1)", frames.c1tPatient0.page(0), "여"),
      txtPatientAge(form, "txtPatientAge", frames.c1tPatient0.page(0)),
      txtPatientCell(form, "txtPatientCell", frames.c1tPatient0.page(0)),
      txtPatientTel(form, "txtPatientTel", frames.c1tPatient0.page(0)),
      txtPatientEmail(form, "txtPatientEmail", frames.c1tPatient0.page(0)),
      txtBesongZip(form, "txtBesongZip", frames.c1tPatient0.page(0)),
      ssrZipCode0(form, "ssrZipCode(0)", frames.c1tPatient0.page(0), "찾기"),
      txtBesongJuso(form, "txtBesongJuso", frames.c1tPatient0.page(0)),
      txtBesongMsg(form, "txtBesongMsg", frames.c1tPatient0.page(0)),
      cboBesongMethod(form, "cboBesongMethod", frames.c1tPatient0.page(0)),
      chkBesongDate(form, "chkBesongDate", frames.c1tPatient0.page(0), "받을 날짜:"),
      dtpBesongDate(form, "dtpBesongDate", frames.c1tPatient0.page(0)),
      sscBesongReset(form, "sscBesongReset", frames.c1tPatient0.page(0), "초기화"),
      form_(form),
      watch_(watch) {
    labelFields();
    lblPatientPK.setVisible(false);
    txtBesongZip.setReadOnly(true);
    dtpBesongDate.setEnabled(false);
    cboBesongMethod.onSelect.add([this] { methodSelected(); });
    chkBesongDate.onClick.add([this] {
        watch_.priceOutdated();
        dtpBesongDate.setEnabled(chkBesongDate.value());
    });
    screen::usePressed(sscBesongReset, [this] { resetPatient(); });
}

void PatientDelivery::labelFields() {
    txtPatientName.setLabel("환자명:");
    txtPatientJumin.setLabel("주민번호:");
    txtPatientAge.setLabel("나이:");
    txtPatientCell.setLabel("핸드폰:");
    txtPatientTel.setLabel("Tel:");
    txtPatientEmail.setLabel("이메일:");
    txtBesongZip.setLabel("환자주소:");
    txtBesongJuso.setLabel("환자주소:");
    txtBesongMsg.setLabel("택배내용:");
    cboBesongMethod.setLabel("배송방식:");
    dtpBesongDate.setLabel("받을 날짜:");
    ssrZipCode0.setTipText("우편번호를 찾습니다.");
    sscBesongReset.setTipText("환자정보(배송정보)를 초기화 합니다.");
}

std::vector<screen::TextField*> PatientDelivery::texts() {
    return {&txtPatientName,  &txtPatientJumin, &txtPatientAge, &txtPatientCell, &txtPatientTel,
            &txtPatientEmail, &txtBesongZip,    &txtBesongJuso, &txtBesongMsg};
}

void PatientDelivery::Form_Load() {
    using namespace data::delivery;
    for (const std::string_view method : {undecided, parcel, courier, clinic})
        cboBesongMethod.addEntry(method);
    cboBesongMethod.select(0);
    dtpBesongDate.setValue(basics::today());
}

void PatientDelivery::methodSelected() {
    const std::string method = cboBesongMethod.text();
    if (method != m_LastBesongMethod) {
        m_LastBesongMethod = method;
        watch_.priceOutdated();
    }
    if (method != data::delivery::courier && method != data::delivery::parcel) return;
    if (!basics::isBlank(txtBesongZip.text()) && !basics::isBlank(txtBesongJuso.text())) return;
    form_.desktop().inform("[배송주소]를 정확히 입력하여 주십시오.", "배송방식");
    txtBesongZip.setFocus();
}

void PatientDelivery::resetPatient() {
    if (!form_.desktop().ask("환자(배송)정보를 초기화 하시겠습니까?\r\n\r\n"
                             "(초기화 되어 작성된 환자는 챠트에서 관리하지 않습니다.)",
                             "환자(배송)정보 초기화", screen::Answer::No)) {
        return;
    }
    lblPatientPK.setCaption("0");
    for (screen::TextField* const field : texts()) field->setText("");
    ssoSex0.setValue(false);
    ssoSex1.setValue(false);
    cboBesongMethod.select(0);
    txtPatientName.setFocus();
    watch_.priceOutdated();
}

}  // namespace zelvo::composition
