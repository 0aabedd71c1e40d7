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
                 {"한의원", "", "", false},
                 {"미정", "", "", false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        OrderDesk desk;
        desk.patient.txtBesongZip.setText(c.zip);
        desk.patient.txtBesongJuso.setText(c.juso);
        desk.desktop.show(desk.form, [&] {
            desk.user.choose("cboBesongMethod", c.method);
            EXPECT_EQ(desk.focus(), c.told ? "txtBesongZip" : "cboBesongMethod");
            if (c.told) desk.desktop.expectBox("배송방식", "[배송주소]를 정확히 입력하여 주십시오.");
            const int outdated = desk.watch.outdated;
            EXPECT_EQ(outdated, c.method == std::string("미정") ? 0 : 1);
            desk.user.choose("cboBesongMethod", c.method);
            EXPECT_EQ(desk.watch.outdated, outdated) << "the same entry again";
            if (c.told) desk.desktop.expectBox("배송방식", "[배송주소]를 정확히 입력하여 주십시오.");
        });
        EXPECT_EQ(desk.patient.cboBesongMethod.text(), c.method) << "the choice stands";
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
    const std::vector<std::string> patientFields = {"txtPatientName", "txtPatientJumin", "txtPatientAge",
                                                    "txtPatientCell", "txtPatientTel",   "txtPatientEmail",
                                                    "txtBesongZip",   "txtBesongJuso",   "txtBesongMsg"};
    OrderDesk desk;
    desk.patient.lblPatientPK.setCaption("77");
    for (const auto& name : patientFields)
        dynamic_cast<screen::TextField&>(*desk.form.field(name)).setText("값");
    desk.patient.ssoSex1.setValue(true);
    desk.patient.cboBesongMethod.select(3);
    desk.sender.txtDoctor.setText("허준");
    const auto press = [&](Answer answer) {
        desk.desktop.answer(answer);
        desk.user.press("sscBesongReset");
        desk.desktop.expectQuestion("환자(배송)정보 초기화",
                                    "환자(배송)정보를 초기화 하시겠습니까?\r\n\r\n"
                                    "(초기화 되어 작성된 환자는 챠트에서 관리하지 않습니다.)");
    };
    desk.desktop.show(desk.form, [&] {
        desk.watch.outdated = 0;
        press(Answer::No);
        EXPECT_EQ(desk.patient.lblPatientPK.caption(), "77");
        EXPECT_EQ(desk.watch.outdated, 0);
        press(Answer::Yes);
        EXPECT_EQ(desk.focus(), "txtPatientName");
    });
    EXPECT_EQ(desk.patient.lblPatientPK.caption(), "0");
    for (const auto& name : patientFields) EXPECT_EQ(desk.text(name), "") << name;
    EXPECT_FALSE(desk.patient.ssoSex0.value() || desk.patient.ssoSex1.value());
    EXPECT_EQ(desk.patient.cboBesongMethod.text(), "미정");
    EXPECT_EQ(desk.sender.txtDoctor.text(), "허준");
    EXPECT_FALSE(desk.patient.sscBesongReset.value());
    EXPECT_GT(desk.watch.outdated, 0);
}

TEST(PaymentChoice, OnlyAnotherMethodTakesTheConfirmationBack) {
    OrderDesk desk;
    for (const char* method : {"적립", "후불정산"}) desk.payment.cboPaymentMethod.addEntry(method);
    desk.payment.cboPaymentMethod.select(0);
    EXPECT_EQ(desk.watch.outdated, 1);
    desk.payment.cboPaymentMethod.select(0);
    EXPECT_EQ(desk.watch.outdated, 1);
    desk.payment.cboPaymentMethod.select(1);
    EXPECT_EQ(desk.watch.outdated, 2);
}

}  // namespace zelvo::testing
