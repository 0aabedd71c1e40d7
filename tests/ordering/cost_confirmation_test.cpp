#include "support/OrderWindow.h"

namespace zelvo::ordering {
namespace {

using testing::CostPage;
using testing::OrderWindow;

class CostConfirmationTest : public ::testing::Test {
protected:
    CostConfirmationTest() { OrderWindow::stock(pharmacy); }
    testing::TestDatabase pharmacy{false};
};

TEST_F(CostConfirmationTest, ShowsThePriceAndOpensTheGate) {
    OrderWindow window(pharmacy);
    window.compose();
    window.price.lblCBJcostAspURL.setCaption("http://cost");
    window.page.whileAsked = [&] {
        EXPECT_FALSE(window.frames.c1eSendmain.enabled());
        EXPECT_FALSE(window.price.tdbCostConfirm.visible());
        EXPECT_TRUE(window.price.txtCOMcost.visible());
        EXPECT_EQ(window.price.lblSumcost.caption(), "0");
        EXPECT_EQ(window.desktop.pointer(), screen::Pointer::Busy);
    };
    window.run([&] {
        window.user.press("ssrCostConfirm");
        EXPECT_TRUE(window.gate.ssrCBJSend.visible());
        EXPECT_EQ(window.price.lblSumcost.caption(), "72040");
        EXPECT_EQ(window.price.lblMileageMoney.caption(), "720");
        screen::Grid& costs = window.price.tdbCostConfirm;
        EXPECT_EQ(costs.caption(), "합계 비용 = 72,040");
        EXPECT_EQ(costs.valueAt(0, 0), "             [ 합계비용 ]");
        EXPECT_EQ(costs.shownText(1, 1), "0");
        EXPECT_EQ(costs.rowStyle(0), "styCostConfirmselect");
        EXPECT_EQ(costs.rowStyle(1), "");
        window.desktop.whenShown("frmMessage", [](screen::Window& note) {
            EXPECT_EQ(note.caption(), " 약재비용");
            EXPECT_EQ(dynamic_cast<screen::RichTextField*>(note.field("rtxMessage"))->text(),
                      "note 2\r\nmore");
        });
        window.user.row("tdbCostConfirm", 2);
        window.user.cellButton("tdbCostConfirm", "2");
        window.user.type("txtChubsu", "1");
        EXPECT_FALSE(window.gate.ssrCBJSend.visible()) << "a change takes the button away";
        EXPECT_EQ(window.price.lblSumcost.caption(), "72040");
    });
    const auto& asked = window.page.requests.at(0);
    EXPECT_EQ(asked.url, "http://cost");
    EXPECT_EQ(asked.besongMethod + asked.payMethod, "22");
    EXPECT_EQ(asked.chubsu + " " + asked.drugPrice, "20 72040");
    EXPECT_EQ(asked.tjalSlot, "001" + std::string(61, '0'));
    EXPECT_EQ(asked.jobListKey + asked.tjmlKey, "52");
    EXPECT_EQ(asked.pouchAmount + " " + asked.pouchTotal, "100 21");
    EXPECT_EQ(window.desktop.pointer(), screen::Pointer::Normal);
}

TEST_F(CostConfirmationTest, AnOrderTypeWithoutSectionsSendsZeros) {
    OrderWindow window(pharmacy);
    window.compose(2);
    window.run([&] { window.user.press("ssrCostConfirm"); });
    const auto& asked = window.page.requests.at(0);
    EXPECT_EQ(asked.drugText + asked.tjalSlot, "");
    EXPECT_EQ(asked.chubsu + asked.drugPrice + asked.tjmlKey + asked.pouchAmount + asked.pouchTotal, "00000");
}

TEST_F(CostConfirmationTest, WhatGoesWrongShutsTheGate) {
    const std::string whole = CostPage::priced(100);
    const struct {
        std::string answer;
        std::optional<std::string> fault;
        std::string caption, text;
    } cases[] = {
        {"", {}, "처방전 비용확인", ""},
        {"[START]0/*/휴업[END]", {}, "처방전 비용확인", "비용계산 실패(0/*/휴업)"},
        {whole, "응답이 없습니다.", "처방전 비용확인 에러", "응답이 없습니다."},
        {"[START]1/*/x&[END]",
         {},
         "처방전 비용확인 에러",
         "비용계산 서버의 답변에 빠진 항목이 있습니다. (13개 중 2개)"},
    };
    OrderWindow window(pharmacy);
    window.compose();
    window.run([&] {
        for (const auto& test : cases) {
            window.page.answer = whole;
            window.page.fault.reset();
            window.user.press("ssrCostConfirm");
            ASSERT_TRUE(window.gate.costConfirmed());
            window.page.answer = test.answer;
            window.page.fault = test.fault;
            window.user.press("ssrCostConfirm");
            window.desktop.expectBox(test.caption, test.text, screen::BoxIcon::Critical);
            EXPECT_FALSE(window.gate.costConfirmed() || window.gate.ssrCBJSend.visible());
            EXPECT_EQ(window.price.lblSumcost.caption(), "0");
            EXPECT_EQ(window.price.tdbCostConfirm.valueAt(0, 1), "") << "no figure of the former price";
            EXPECT_TRUE(window.frames.c1eSendmain.enabled() && window.price.tdbCostConfirm.visible());
            EXPECT_EQ(window.dose.txtChubsu.text(), "20");
        }
        window.page.fault.reset();
        for (std::size_t cut = 0; cut < whole.find("[END]") + 5; ++cut) {
            window.page.answer = whole.substr(0, cut);
            window.user.press("ssrCostConfirm");
            EXPECT_EQ(window.desktop.takeBox().icon, screen::BoxIcon::Critical);
            EXPECT_FALSE(window.gate.ssrCBJSend.visible()) << "cut at " << cut;
        }
    });
    EXPECT_EQ(window.line->statements.size(), 0U);
}

TEST_F(CostConfirmationTest, RefusesBeforeAsking) {
    OrderWindow window(pharmacy);
    window.compose();
    window.run([&] {
        const struct {
            std::function<void()> spoil;
            const char *caption, *text, *focus;
        } cases[] = {
            {[&] { window.session.m_DTRPK = 0; }, "비용확인", "로그인 후에 사용 하십시오.(m_DTRPK = 0)", ""},
            {[&] { window.patient.txtBesongZip.setText(""); }, "처방전 비용확인",
             "[배송주소의 우편번호]를 입력해 주십시오.", "txtPatientName"},
            {[&] { window.sender.txtDoctor.setText(""); }, "처방전 비용확인", "[한의사명]을 입력해 주십시오.",
             "txtHospitalName"},
            {[&] { window.session.g_xaDrug.set(0, 4, ""); }, "처방전 비용확인",
             "약재정보 필수항목 [약재구성, 첩수, 약재가격] 오류 또는 누락.", "tdbDGL"},
        };
        for (const auto& test : cases) {
            const std::string zip = window.patient.txtBesongZip.text();
            test.spoil();
            window.user.press("ssrCostConfirm");
            window.desktop.expectBox(test.caption, test.text);
            if (*test.focus) {
                EXPECT_EQ(window.form.focus()->name(), test.focus);
            }
            EXPECT_EQ(window.desktop.pointer(), screen::Pointer::Normal);
            window.session.m_DTRPK = 1;
            window.patient.txtBesongZip.setText(zip);
            window.sender.txtDoctor.setText("이한의");
        }
    });
    EXPECT_TRUE(window.page.requests.empty());
}

TEST_F(CostConfirmationTest, AChangeWhileThePageIsAskedKeepsTheGateShut) {
    OrderWindow window(pharmacy);
    window.compose();
    window.page.whileAsked = [&] { window.sheet.txtCBJmsg.setText("다른 내용"); };
    window.run([&] {
        window.user.press("ssrCostConfirm");
        EXPECT_FALSE(window.gate.costConfirmed() || window.gate.ssrCBJSend.visible());
        EXPECT_EQ(window.price.lblSumcost.caption(), "72040");
    });
}

}  // namespace
}  // namespace zelvo::ordering
