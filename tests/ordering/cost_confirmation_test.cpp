#include "support/OrderWindow.h"

namespace zelvo::ordering {
namespace {

using testing::CostPage;
using testing::OrderWindow;

TEST(CostConfirmation, ShowsThePriceAndOpensTheGate) {
    OrderWindow window;
    window.compose();
    window.price.lblCBJcostAspURL.setCaption("http://cost");
    window.page.whileAsked = [&] {
        EXPECT_FALSE(window.frames.c1eSendmain.enabled() || window.price.tdbCostConfirm.visible());
        EXPECT_EQ(window.desktop.pointer(), screen::Pointer::Busy);
    };
    window.run([&] {
        window.user.press("ssrCostConfirm");
        EXPECT_TRUE(window.gate.ssrCBJSend.visible());
        EXPECT_EQ(window.price.lblSumcost.caption() + "/" + window.price.lblMileageMoney.caption(),
                  "72040/720");
        screen::Grid& costs = window.price.tdbCostConfirm;
        EXPECT_EQ(costs.caption(), "합계 비용 = 72,040");
        EXPECT_EQ(costs.valueAt(0, 0) + costs.shownText(1, 1), "             [ 합계비용 ]0");
        EXPECT_EQ(costs.rowStyle(0) + costs.rowStyle(1), "styCostConfirmselect");
        window.desktop.whenShown("frmMessage", [](screen::Window& note) {
            EXPECT_EQ(note.caption(), " 약재비용");
            EXPECT_EQ(dynamic_cast<screen::RichTextField*>(note.field("rtxMessage"))->text(),
                      "note 2\r\nmore");
        });
        window.user.row("tdbCostConfirm", 2);
        window.user.cellButton("tdbCostConfirm", "2");
        window.user.type("txtChubsu", "1");
        EXPECT_FALSE(window.gate.ssrCBJSend.visible()) << "a change takes the button away";
    });
    const auto& asked = window.page.requests.at(0);
    EXPECT_EQ(
        basics::join({asked.url, asked.besongMethod, asked.payMethod, asked.chubsu, asked.drugPrice,
                      asked.tjalSlot, asked.jobListKey, asked.tjmlKey, asked.pouchAmount, asked.pouchTotal},
                     "|"),
        "http://cost|2|2|20|72040|001" + std::string(61, '0') + "|5|2|100|21");
    EXPECT_EQ(window.desktop.pointer(), screen::Pointer::Normal);
}

TEST(CostConfirmation, WhatGoesWrongShutsTheGate) {
    const std::string whole = CostPage::priced(100), refused = "처방전 비용확인", failed = refused + " 에러";
    const struct {
        std::string answer;
        std::optional<std::string> fault;
        std::string caption, text;
    } cases[] = {
        {"", {}, refused, ""},
        {whole.substr(0, 200), {}, refused, "비용계산 서버 웹페이지 오류([END] 문자열 찾기 실패)"},
        {"[START]0/*/휴업[END]", {}, refused, "비용계산 실패(0/*/휴업)"},
        {whole, "응답이 없습니다.", failed, "응답이 없습니다."},
        {"[START]1/*/x&[END]", {}, failed, "비용계산 서버의 답변에 빠진 항목이 있습니다. (13개 중 2개)"}};
    OrderWindow window;
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
        }
    });
    EXPECT_TRUE(window.line->statements.empty());
}

TEST(CostConfirmation, AnIncompleteOrderIsNotPriced) {
    OrderWindow window;
    window.compose();
    window.patient.txtBesongZip.setText("");
    window.run([&] {
        window.user.press("ssrCostConfirm");
        window.desktop.expectBox("처방전 비용확인", "[배송주소의 우편번호]를 입력해 주십시오.");
        EXPECT_EQ(window.focus(), "txtPatientName");
        window.session.m_DTRPK = 0;
        window.user.press("ssrCostConfirm");
        window.desktop.expectBox("비용확인", "로그인 후에 사용 하십시오.(m_DTRPK = 0)");
    });
    EXPECT_TRUE(window.page.requests.empty());
}

TEST(CostConfirmation, AChangeWhileThePageIsAskedKeepsTheGateShut) {
    OrderWindow window;
    window.compose();
    window.page.whileAsked = [&] { window.sheet.txtCBJmsg.setText("다른 내용"); };
    window.run([&] {
        window.user.press("ssrCostConfirm");
        EXPECT_FALSE(window.gate.costConfirmed() || window.gate.ssrCBJSend.visible());
    });
}

}  // namespace
}  // namespace zelvo::ordering
