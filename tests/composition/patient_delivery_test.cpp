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
        desk.desktop.show(desk.form, [&] {
            for (int times = 0; times < 2; ++times) {  // the second time it is the entry that stands
                desk.user.choose("cboBesongMethod", c.method);
                EXPECT_EQ(desk.focus(), c.told ? "txtBesongZip" : "cboBesongMethod");
                if (c.told) desk.desktop.expectBox("배송방식", "[배송주소]를 정확히 입력하여 주십시오.");
                EXPECT_EQ(desk.watch.outdated, 1);
                EXPECT_EQ(desk.patient.cboBesongMethod.text(), c.method) << "the choice stands";
            }
        });
    }
}

TEST(PatientDelivery, DateCountsWhileItsSwitchIsOn) {
    OrderDesk desk;
    desk.desktop.show(desk.form, [&] {
        EXPECT_THROW(desk.user.date("dtpBesongDate", "2031-02-03"), console::ActionError);
        desk.user.check("chkBesongDate", true);
        desk.user.date("dtpBesongDate", "2031-02-03");
        EXPECT_EQ(desk.watch.outdated, 1) << "the date itself takes nothing back";
        desk.user.check("chkBesongDate", false);
    });
    EXPECT_FALSE(desk.patient.dtpBesongDate.enabled());
    EXPECT_EQ(desk.patient.dtpBesongDate.text(), "2031-02-03");
    EXPECT_EQ(desk.watch.outdated, 2);
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
    patient.cboBesongMethod.select(3);
    desk.sender.txtDoctor.setText("허준");
    desk.desktop.show(desk.form, [&] {
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            EXPECT_EQ(patient.lblPatientPK.caption(), "77");
            desk.watch.outdated = 0;
            desk.desktop.answer(answer);
            desk.user.press("sscBesongReset");
            desk.desktop.expectQuestion("환자(배송)정보 초기화",
                                        "환자(배송)정보를 초기화 하시겠습니까?\r\n\r\n"
                                        "(초기화 되어 작성된 환자는 챠트에서 관리하지 않습니다.)");
            EXPECT_EQ(desk.watch.outdated > 0, answer == Answer::Yes);
        }
        EXPECT_EQ(desk.focus(), "txtPatientName");
    });
    for (const screen::TextField* field : texts) EXPECT_EQ(field->text(), "") << field->name();
    EXPECT_EQ(patient.lblPatientPK.caption(), "0");
    EXPECT_FALSE(patient.ssoSex0.value() || patient.ssoSex1.value() || patient.sscBesongReset.value());
    EXPECT_EQ(patient.cboBesongMethod.text(), "미정");
    EXPECT_EQ(desk.sender.txtDoctor.text(), "허준");
}

}  // namespace zelvo::testing
