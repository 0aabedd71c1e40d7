#include "composition/OrderDesk.h"

namespace zelvo::testing {

using screen::Answer;

TEST(PatientDelivery, DeliveryToThePatientNeedsAnAddress) {
    const struct {
        const char *method, *zip, *juso;
        bool told;
    } cases[] = {{"택배(환자)", "", "서울시", true},
                 {"퀵(환자)", "04524", "  ", true},
                 {"퀵(환자)", "04524", "서울시", false},
                 {"한의원", "", "", false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        OrderDesk desk;
        desk.patient.txtBesongZip.setText(c.zip);
        desk.patient.txtBesongJuso.setText(c.juso);
        desk.run([&] {
            desk.user.choose("cboBesongMethod", c.method);
            EXPECT_EQ(desk.focus(), c.told ? "txtBesongZip" : "cboBesongMethod");
            if (c.told) desk.desktop.expectBox("배송방식", "[배송주소]를 정확히 입력하여 주십시오.");
            EXPECT_EQ(desk.gate.outdated, 1);
        });
    }
}

TEST(PatientDelivery, ResetForgetsThePatientOnly) {
    OrderDesk desk;
    composition::PatientDelivery& patient = desk.patient;
    const auto texts = {&patient.txtPatientName, &patient.txtPatientJumin, &patient.txtPatientAge,
                        &patient.txtPatientCell, &patient.txtPatientTel,   &patient.txtPatientEmail,
                        &patient.txtBesongZip,   &patient.txtBesongJuso,   &patient.txtBesongMsg};
    for (screen::TextField* field : texts) field->setText("값");
    patient.lblPatientPK.setCaption("77");
    patient.ssoSex1.setValue(true);
    desk.sender.txtDoctor.setText("허준");
    desk.run([&] {
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            EXPECT_EQ(patient.lblPatientPK.caption(), "77");
            desk.desktop.answer(answer);
            desk.user.press("sscBesongReset");
            EXPECT_EQ(desk.desktop.takeBox().caption, "환자(배송)정보 초기화");
        }
    });
    for (const screen::TextField* field : texts) EXPECT_EQ(field->text(), "") << field->name();
    EXPECT_EQ(patient.lblPatientPK.caption(), "0");
    EXPECT_FALSE(patient.ssoSex0.value() || patient.ssoSex1.value());
    EXPECT_EQ(desk.sender.txtDoctor.text(), "허준");
    EXPECT_GT(desk.gate.outdated, 0);
}

}  // namespace zelvo::testing
