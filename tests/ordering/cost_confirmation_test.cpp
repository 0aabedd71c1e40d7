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
        {whole.substr(0, 200), {}, refused, "비용계산 서버 웹페이지 오류([END] 문자열 찾기 실패)"},
        {"[START]0/*/휴업[END]", {}, refused, "비용계산 실패(0/*/휴업)"},
        {whole, "응답이 없습니다.", failed, "응답이 없습니다."},
        {"[START]1/*/x&[END]", {}, failed, "비용계산 서버의 답변에 빠진 항목이 있습니다. (13개 중 2개)"}};
    OrderWindow window;
    window.compose();
    window.dose.txtTuyakilsu.setText("0");  // days left open, as an earlier order brings them
    window.dose.txtPouchTotal.setText("21");
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

TEST(CostConfirmation, AnOrderThatCanNotBeStoredIsNotPriced) {
    const std::string range = " 0보다 크고 32,767 이하인 숫자로 입력해 주십시오.";
    const std::string option =
        " 항목은 한약국의 목록에 잘못 등록되어 있어 주문할 수 없습니다. 선택을 바꾸시거나 [한약국으로 연락] "
        "주십시오.";
    const std::string line = "[2] 번째 약재 [작약]의 ";
    const auto tooLong = [](const std::string& name, const char* over) {
        return name + " 내용이 저장할 수 있는 길이보다 " + over + "자 깁니다. 줄여서 입력해 주십시오.";
    };
    const auto type = [](const char* field, const char* text) {
        return [=](OrderWindow& w) { dynamic_cast<screen::TextField&>(*w.form.field(field)).setText(text); };
    };
    const auto herb = [](int column, const char* text) {
        return [=](OrderWindow& w) { w.session.g_xaDrug.set(1, column, text); };
    };
    const struct {
        std::function<void(OrderWindow&)> change;
        const char* focus;
        std::string message;
    } cases[] = {
        {herb(5, "백원"), "tdbDGL",
         line + "[단가 백원] 값을 주문서에 담을 수 없습니다. (최대 2,147,483,647)"},
        {type("txtPouchTotal", "0.5"), "txtPouchTotal", "[총파우치]를" + range},
        {[](auto& w) { w.dose.txtTuyakilsu.setText("-3"), w.dose.txtPouchTotal.setText("9"); },
         "txtTuyakilsu", "[복용일]을" + range},
        {type("txtPatientAge", "40000"), "txtPatientAge", "[나이]를 다시 확인하여 주십시오."},
        {[](auto& w) { w.options.m_xaJobList.set(0, 1, ""); }, "tdbJobList", "[탕전]" + option},
        {[](auto& w) { w.options.m_xaTJAL.set(0, 5, ""); }, "tdbTJAL", "[녹용]" + option},
        {type("txtPatientName", "김 환자이름"), "txtPatientName", tooLong("[환자명]", "1")},
        {type("txtPatientEmail", "a한글@b.kr"), "txtPatientEmail", tooLong("[이메일]", "4")},
        {herb(10, "볶은 것 더"), "tdbDGL", tooLong(line + "[비고]", "1")},
        {type("txtEatGuideHosName", "가나다"), "txtEatGuideHosName", tooLong("[복용법 한의원명]", "1")},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.message);
        OrderWindow window;
        window.knowLengths();
        window.compose();
        test.change(window);
        window.run([&] {
            window.user.press("ssrCostConfirm");
            window.desktop.expectBox("처방전 비용확인", test.message);
            EXPECT_EQ(window.focus(), test.focus);
            EXPECT_EQ(window.herbs.tdbDGL.currentRow() == 1, window.focus() == "tdbDGL");
        });
        EXPECT_TRUE(window.page.requests.empty());
    }
}

TEST(CostConfirmation, IsAskedForWheneverTheOrderHasChanged) {
    OrderWindow window;
    window.compose();
    window.line->catalogue = true;  // which this server does not have: the read fails
    window.run([&] {
        for (int time = 0; time < 2; ++time) {
            window.user.press("ssrCostConfirm");
            EXPECT_TRUE(window.gate.costConfirmed());
        }
        EXPECT_EQ(window.line->statements.size(), 1U);
        window.page.whileAsked = [&] { window.sheet.txtCBJmsg.setText("다른 내용"); };
        window.user.press("ssrCostConfirm");
        EXPECT_FALSE(window.gate.costConfirmed() || window.gate.ssrCBJSend.visible()) << "changed meanwhile";
        window.page.whileAsked = [] {};
        window.user.press("ssrCostConfirm");
        window.user.type("txtPatientAge", "40000");
        window.user.press("ssrCBJSend");
        window.desktop.expectBox("처방전 비용확인", "[나이]를 다시 확인하여 주십시오.");
        window.session.m_DTRPK = 0;
        window.user.press("ssrCostConfirm");
        window.desktop.expectBox("비용확인", "로그인 후에 사용 하십시오.(m_DTRPK = 0)");
    });
}

}  // namespace
}  // namespace zelvo::ordering
