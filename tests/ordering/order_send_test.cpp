#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "basics/Text.h"
#include "support/OrderWindow.h"

namespace zelvo::ordering {
namespace {

using screen::Answer;
using screen::BoxIcon;
using testing::CostPage;
using testing::OrderWindow;

constexpr const char* success =
    "[탕전] 처방전 전송을 성공했습니다.\r[벡소라]에도 진료기록을 남기려면 [진료부에 기록]을 실행하십시오.\r"
    "  참고 : [벡소라]에 처방에 대한 자료가 표시되어 있습니다.\r\rZELVO를 종료하고 [벡소라]로 복귀하시겠습니까?";
constexpr const char* logFailed =
    "[처방전 전송은 정상적으로 전송] 되었습니다. -  처방전 로그 파일 기록에 실패하였습니다.";

class OrderSendTest : public ::testing::Test {
protected:
    OrderSendTest() { OrderWindow::stock(pharmacy); }

    /// Rows of the five tables that an order writes, "1 1 1 2 1" for a whole one of two herbs.
    std::string written() const {
        return pharmacy.value(
            "SELECT (SELECT count(*) FROM t_ChubangJun) || ' ' || (SELECT count(*) FROM t_Stock WHERE CBJ_PK <> 0) || ' ' ||"
            " (SELECT count(*) FROM t_CBJcostDetail) || ' ' || (SELECT count(*) FROM t_CBJDetail) || ' ' ||"
            " (SELECT count(*) FROM t_EatGuide)");
    }
    void deposit(std::int64_t won) const {
        pharmacy.run("INSERT INTO t_Stock (DTR_PK, CBJ_PK, STK_Money) VALUES (1, 0, " + std::to_string(won) +
                     ")");
    }
    static void press(OrderWindow& window) {
        window.user.press("ssrCostConfirm");
        window.user.press("ssrCBJSend");
    }

    testing::TestDatabase pharmacy{false};
};

TEST_F(OrderSendTest, StoresTheOrderAndTellsTheChart) {
    OrderWindow window(pharmacy);
    window.compose();
    window.patient.txtBesongJuso.setText("서울 '강남' [CBJ_PK]");
    window.desktop.answer(Answer::No);
    window.run([&] {
        press(window);
        EXPECT_FALSE(window.gate.ssrCBJSend.visible());
        EXPECT_FALSE(window.form.leaving());
    });
    window.desktop.expectQuestion("처방전 전송 성공", success);
    const std::string time = window.send.lblsvrTime.caption();
    const auto orders = pharmacy.rows(
        "SELECT DTR_PK, Patient_PK, Patient_Name, Patient_Age, Patient_Sex, CBJ_IsPaid, CBJ_JobList_PK, CBJ_TJML_PK,"
        " CBJ_TJAL_Slot, CBJ_DrugCost, CBJ_JojeCost, CBJ_Chubsu, CBJ_PouchAmount, CBJ_PouchTotal, CBJ_DayTuyak,"
        " CBJ_Tuyakilsu, CBJ_BesongMethod, CBJ_PayMethod, CBJ_Send_Hospital, CBJ_Send_Address, CBJ_Reci_Address,"
        " CBJ_Reci_Date, CBJ_Msg, CBJ_RegDate, CBJ_State FROM t_ChubangJun");
    ASSERT_EQ(orders.size(), 1U);
    EXPECT_EQ(
        basics::join(orders[0], "|"),
        "1|4711|김환자|42|1|0|5|2|001" + std::string(61, '0') +
            "|72040|0|20|100|21|3|7|2|2|우리한의원|서울 종로구 2|서울 강남 [CBJ_PK]|1900-01-01| 잘 부탁합니다 |" +
            time + "|0");
    EXPECT_EQ(window.patient.txtPatientAge.text(), "42");
    EXPECT_EQ(pharmacy.rows(
                  "SELECT DGL_PK, DGL_CallSign, DET_Weight, DET_Danga, DET_Money, DET_Note, DET_Order FROM"
                  " t_CBJDetail ORDER BY DET_Order")[1],
              (std::vector<std::string>{"12", "작약", "3.5", "1000", "3500", "볶은 것", "2"}));
    EXPECT_EQ(pharmacy.value("SELECT STK_Money || STK_Note || STK_Date FROM t_Stock"),
              "720Mileage 금액" + time);
    EXPECT_EQ(pharmacy.value("SELECT CCD_ElseCost FROM t_CBJcostDetail"), "note 10\r\nmore");
    EXPECT_EQ(pharmacy.value("SELECT BogYak FROM t_EatGuide"), window.sheet.rtxEatGuide.rtf());
    EXPECT_EQ(window.logs.size(), 1U);

    ASSERT_EQ(window.sent.size(), 1U);
    const ChartRecord& record = window.sent[0];
    EXPECT_EQ(record.strJob + record.strMessage, "탕전잘 부탁합니다");
    EXPECT_EQ((std::vector<int>{record.intChupSu, record.intPouchAmount, record.intTuyakilsu,
                                record.intPouchTotal, record.lngSumCost}),
              (std::vector<int>{20, 100, 7, 21, 72040}));
    EXPECT_EQ(record.sglDayTuYak, 3);
    EXPECT_EQ(record.strxDrugList, "당귀/$CD$/4/$RD$/작약/$CD$/3.5");
}

TEST_F(OrderSendTest, AnOrderTypeWithNeitherSectionStoresNeither) {
    OrderWindow window(pharmacy);
    window.compose(2);
    window.page.answer = CostPage::priced(500);
    window.run([&] { press(window); });
    EXPECT_EQ(window.desktop.takeBox().caption, "처방전 전송 성공");
    EXPECT_TRUE(window.form.unloaded()) << "Yes is the default and leads back to the chart";
    EXPECT_EQ(written(), "1 0 1 0 1");
    EXPECT_EQ(pharmacy.value("SELECT CBJ_Chubsu || CBJ_PouchTotal || CBJ_TJAL_Slot FROM t_ChubangJun"), "00");
    EXPECT_EQ(window.sent.at(0).intChupSu + window.sent[0].intPouchTotal, 0);
    EXPECT_EQ(window.sent[0].strxDrugList, "");
}

TEST_F(OrderSendTest, MoneyRules) {
    const char* none =
        "적립된 금액이 없습니다.\r\n\r\n[후불][후불정산]으로 전송하시거나 또는 [한약국으로 연락] 주십시오.";
    const auto shortOf = [](const std::string& won) {
        return "적립금이 [ " + won +
               " ]원 부족합니다.\r\n\r\n[후불][후불정산]로 전송하시거나 또는 [한약국으로 연락] 주십시오.";
    };
    const struct {
        std::int64_t deposit, cost;
        std::string refusal;
    } cases[] = {{10000, 10000, ""},
                 {10000, 10001, shortOf("1")},
                 {0, 0, none},
                 {0, 500, none},
                 {-500, 0, shortOf("500")},
                 {-2000000000, 2000000000, shortOf("4,000,000,000")}};
    for (const auto& test : cases) {
        SCOPED_TRACE(std::to_string(test.deposit) + " pays " + std::to_string(test.cost));
        testing::TestDatabase own(false);
        OrderWindow::stock(own);
        own.run("INSERT INTO t_Stock (DTR_PK, CBJ_PK, STK_Money) VALUES (1, 0, " +
                std::to_string(test.deposit) + ")");
        OrderWindow window(own);
        window.compose();
        window.page.answer = CostPage::priced(test.cost);
        window.payment.cboPaymentMethod.select(0);
        window.run([&] {
            press(window);
            EXPECT_FALSE(window.gate.costConfirmed() || window.gate.ssrCBJSend.visible());
        });
        if (!test.refusal.empty()) {
            window.desktop.expectBox("비용확인", test.refusal);
        } else {
            EXPECT_EQ(window.desktop.takeBox().caption, "처방전 전송 성공");
            EXPECT_EQ(own.value("SELECT CBJ_PayMethod || CBJ_IsPaid FROM t_ChubangJun"), "11");
        }
        EXPECT_EQ(own.value("SELECT count(*) FROM t_ChubangJun"), test.refusal.empty() ? "1" : "0");
    }
}

TEST_F(OrderSendTest, DuplicateHerbsAreAskedAboutOnce) {
    OrderWindow window(pharmacy);
    window.compose();
    window.addHerb("당귀", 13, "1", "10", "10");
    window.addHerb("작약", 12, "1", "10", "10");
    window.desktop.answer(Answer::Yes);
    window.desktop.answer(Answer::No);
    window.desktop.answer(Answer::No);
    window.run([&] {
        press(window);
        EXPECT_EQ(window.form.focus()->name(), "tdbDGL");
        EXPECT_FALSE(window.gate.ssrCBJSend.visible());
        EXPECT_EQ(written(), "0 0 0 0 0");
        press(window);
    });
    for (int i = 0; i < 2; ++i) {
        window.desktop.expectQuestion(
            "처방전 전송",
            "[ 당귀 ] 약재명이 중복되었습니다. 다시 구성하시겠습니까?\r\n\r\n예(Y) = 약재정보를 다시 "
            "구성\r\n\r\n아니오(N) = 처방전 전송");
    }
    window.desktop.expectQuestion("처방전 전송 성공", success);
    EXPECT_EQ(written(), "1 1 1 4 1");
}

TEST_F(OrderSendTest, RefusesWithoutLoginOrPrice) {
    OrderWindow window(pharmacy);
    window.compose();
    window.run([&] {
        window.user.press("ssrCostConfirm");
        window.session.m_DTRPK = 0;
        window.user.press("ssrCBJSend");
        window.desktop.expectBox("처방전전송", "로그인 후에 사용 하십시오.[한의사PK = 0]");
        window.session.m_DTRPK = 1;
        window.gate.Set_CostConfirmed(false);
        window.gate.ssrCBJSend.setValue(true);
        window.desktop.expectBox("처방전전송", "[비용확인]을 실행한 후에 처방전을 전송하여 주십시오.");
    });
    EXPECT_EQ(written(), "0 0 0 0 0");
}

TEST_F(OrderSendTest, EachFailingStatementLeavesNothing) {
    const std::string row = "처방전전송 에러";
    const std::vector<std::pair<std::string, std::string>> boxes = {
        {"처방전 전송 에러", "처방전 전송 오류 - [failed on purpose: BEGIN ]"},
        {"처방전 전송 실패", "DB서버 시간 가져오기 실패!"},
        {row, "처방전 전송 중 오류 발생 - 처방전 테이블(t_ChubangJun) 저장 에러"},
        {row, "처방전 전송 중 오류 발생 - 처방전 테이블(t_ChubangJun) 저장 에러"},
        {row, "처방전 전송 중 오류 발생 - 처방전 Mileage 금액 (t_CBJDetail) 저장 에러"},
        {row, "처방전 전송 중 오류 발생 - 처방전 비용상세 테이블(t_CBJcostDetail) 저장 에러"},
        {row, "처방전 전송 중 오류 발생 - 처방전 약재 테이블(t_CBJDetail) 저장 에러"},
        {row, "처방전 전송 중 오류 발생 - 처방전 약재 테이블(t_CBJDetail) 저장 에러"},
        {row, "처방전 전송 중 오류 발생 - 처방전 복용법 테이블(t_EatGuide) 저장 에러"},
        {"처방전 전송 실패",
         "처방전 전송 실패 - 처방전이 저장되지 않았습니다. [비용확인]부터 다시 실행하여 주십시오."},
    };
    OrderWindow window(pharmacy);
    window.compose();
    window.run([&] {
        for (std::size_t step = 0; step < boxes.size(); ++step) {
            SCOPED_TRACE("statement " + std::to_string(step + 1));
            window.user.press("ssrCostConfirm");
            window.line->failAt(static_cast<int>(step) + 1);
            window.user.press("ssrCBJSend");
            window.desktop.expectBox(boxes[step].first, boxes[step].second, BoxIcon::Critical);
            window.desktop.expectNoBox();
            EXPECT_EQ(written(), "0 0 0 0 0");
            EXPECT_FALSE(window.line->inTransaction);
            EXPECT_FALSE(window.gate.costConfirmed() || window.gate.ssrCBJSend.visible());
            EXPECT_EQ(window.desktop.pointer(), screen::Pointer::Normal);
        }
        EXPECT_TRUE(window.sent.empty());
        window.line->failAt(0);
        window.desktop.answer(Answer::No);
        press(window);
        window.desktop.expectQuestion("처방전 전송 성공", success);
    });
    EXPECT_EQ(written(), "1 1 1 2 1");
}

TEST_F(OrderSendTest, ValuesThatDoNotFitAreFailures) {
    const std::function<void(OrderWindow&)> cases[] = {
        [](OrderWindow& w) { w.session.g_xaDrug.set(1, 6, "32768"); },
        [](OrderWindow& w) { w.patient.txtPatientAge.setText("99999"); },
        [](OrderWindow& w) { w.dose.txtPouchTotal.setText("40000"); },
    };
    for (const auto& spoil : cases) {
        OrderWindow window(pharmacy);
        window.compose();
        spoil(window);
        window.run([&] { press(window); });
        const auto box = window.desktop.takeBox();
        EXPECT_EQ(box.caption, "처방전전송 에러") << box.text;
        EXPECT_EQ(written(), "0 0 0 0 0");
    }
}

TEST_F(OrderSendTest, AnUncertainCommitSaysSo) {
    OrderWindow window(pharmacy);
    window.diskFull = true;
    window.line->nextCommit = data::CommitOutcome::Unknown;
    window.sendOrder();
    window.desktop.expectBox(
        "처방전 전송 실패",
        "처방전 전송 결과를 확인할 수 없습니다. [처방전 관리]에서 발행날짜로 확인한 후 다시 전송하여 주십시오.",
        BoxIcon::Critical);
    EXPECT_TRUE(window.sent.empty());
    EXPECT_FALSE(window.gate.costConfirmed());
}

TEST_F(OrderSendTest, ALogThatFailsAndAChartThatThrowsLeaveTheOrder) {
    OrderWindow window(pharmacy);
    window.diskFull = true;
    window.chartFault = "진료부 닫힘";
    window.sendOrder();
    window.desktop.expectBox("처방전 로그", logFailed);
    window.desktop.expectBox("처방전 전송",
                             "처방전은 전송되었습니다. 진료부에 전달하는 중 오류 발생 - [진료부 닫힘 ]",
                             BoxIcon::Critical);
    window.desktop.expectQuestion("처방전 전송 성공", success);
    EXPECT_EQ(written(), "1 1 1 2 1");
    EXPECT_EQ(window.sent.size(), 1U);
}

TEST_F(OrderSendTest, ASecondPressAtAnyYieldSendsOnce) {
    OrderWindow window(pharmacy);
    deposit(100000);
    window.compose();
    window.payment.cboPaymentMethod.select(0);
    window.line->yield = [&] { window.desktop.yield(); };
    int presses = 0;
    window.desktop.answer(Answer::No);
    window.run([&] {
        window.user.press("ssrCostConfirm");
        window.desktop.onEvents = [&] {
            ++presses;
            EXPECT_FALSE(window.gate.ssrCBJSend.reachable());
            window.gate.ssrCBJSend.userPress();
            window.form.userClose();
        };
        window.user.press("ssrCBJSend");
        window.desktop.onEvents = nullptr;
    });
    window.desktop.expectQuestion("처방전 전송 성공", success);
    EXPECT_GT(presses, 13) << "each herb, each cost line, each row that was read";
    EXPECT_EQ(written(), "1 1 1 2 1");
}

TEST_F(OrderSendTest, AKilledSendLeavesAllOrNothing) {
    int whole = 0;
    constexpr int statements = 10;
    for (int at = 1; at <= statements + 1; ++at) {
        testing::TestDatabase own(false);
        OrderWindow::stock(own);
        const pid_t child = ::fork();
        if (child == 0) {
            OrderWindow window(own);
            int count = 0;
            window.line->before = [&](const std::string&) {
                if (++count == at) ::kill(::getpid(), SIGKILL);
            };
            window.send.Send2Chart.add([](const ChartRecord&) { ::kill(::getpid(), SIGKILL); });
            window.sendOrder();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "statement " << at;
        const std::string count = own.value("SELECT count(*) FROM t_ChubangJun");
        if (count == "1") ++whole;
        EXPECT_EQ(count, at <= statements ? "0" : "1") << "statement " << at;
        EXPECT_EQ(own.value("SELECT count(*) FROM t_CBJDetail"), count == "1" ? "2" : "0");
        EXPECT_EQ(own.value("SELECT count(*) FROM t_EatGuide"), count);
        EXPECT_EQ(own.value("PRAGMA integrity_check"), "ok");
    }
    EXPECT_EQ(whole, 1);
}

}  // namespace
}  // namespace zelvo::ordering
