#include "SendTest.h"

namespace zelvo::ordering {
namespace {

using screen::BoxIcon;
using testing::CostPage;

/// Puts won into the doctor's deposit, from which the order is then paid.
void payFromDeposit(OrderWindow& window, std::int64_t won) {
    window.pharmacy->run("INSERT INTO t_Stock (DTR_PK, CBJ_PK, STK_Money) VALUES (1, 0, " +
                         std::to_string(won) + ")");
    window.compose();
    window.payment.cboPaymentMethod.select(0);
}

TEST(OrderSend, StoresTheOrderAndTellsTheChart) {
    OrderWindow window;
    window.compose();
    window.patient.txtBesongJuso.setText("서울 '강남' [CBJ_PK]");
    window.desktop.answer(Answer::No);
    window.session.g_xaDrug.set(1, 10, "볶은 <것> & 10g");
    int marked = 0;
    const auto look = [&] { marked += marksOf(window); };
    window.line->before = [&](const std::string& statement) {
        if (statement == "COMMIT") look();
    };
    window.send.Send2Chart.add([&](const ChartRecord&) { look(); });
    window.run([&] {
        window.priceAndSend();
        EXPECT_EQ(marked, 2) << "a program that ends before the chart is told must leave a mark";
        EXPECT_FALSE(window.gate.ssrCBJSend.visible() || window.form.leaving());
    });
    window.desktop.expectQuestion("처방전 전송 성공", success);
    const std::string time = window.send.lblsvrTime.caption();
    const std::pair<std::string, std::string> stored[] = {
        {"SELECT DTR_PK, Patient_PK, Patient_Name, Patient_Age, Patient_Sex, CBJ_IsPaid, CBJ_JobList_PK, CBJ_TJML_PK,"
         " CBJ_TJAL_Slot, CBJ_DrugCost, CBJ_JojeCost, CBJ_Chubsu, CBJ_PouchAmount, CBJ_PouchTotal, CBJ_DayTuyak,"
         " CBJ_Tuyakilsu, CBJ_BesongMethod, CBJ_PayMethod, CBJ_Send_Hospital, CBJ_Send_Address, CBJ_Reci_Address,"
         " CBJ_Reci_Date, CBJ_Msg, CBJ_RegDate, CBJ_State, CBJ_IsCanceled, CBJ_UserCost FROM t_ChubangJun",
         "1|4711|김환자|42|1|0|5|2|001" + std::string(61, '0') +
             "|72040|0|20|100|21|3|7|2|2|우리한의원|서울 종로구 2|서울 강남 [CBJ_PK]|1900-01-01| 잘 부탁합니다 |" +
             time + "|0|0|0"},
        {"SELECT DGL_PK, DGL_CallSign, DET_Weight, DET_Danga, DET_Money, DET_Note FROM t_CBJDetail WHERE DET_Order = 2",
         "12|작약|3.5|1000|3500|볶은 <것> & 10g"},
        {"SELECT DTR_PK, CBJ_PK, CBJ_IsCanceled, STK_Money, STK_Method, STK_Note, STK_Date FROM t_Stock",
         "1|1|0|720|0|Mileage 금액|" + time},
        {"SELECT CBJ_PK, CCD_ElseCost FROM t_CBJcostDetail", "1|note 10\r\nmore"},
        {"SELECT CBJ_PK, BogYak FROM t_EatGuide", "1|" + window.sheet.rtxEatGuide.rtf()},
    };
    for (const auto& [query, row] : stored)
        EXPECT_EQ(basics::join(window.pharmacy->rows(query).at(0), "|"), row);
    EXPECT_EQ(written(*window.pharmacy), all);

    const auto logs = window.logs();
    ASSERT_EQ(logs.size(), 1U);
    const auto& [name, log] = *logs.begin();
    EXPECT_TRUE(name.starts_with("zelvo_20") && name.ends_with(".htm") && name.size() == 24) << name;
    const std::string pieces[] = {
        "[" + time + "] 전송한 처방전 입니다. </font><BR><BR>[환자NO]= 4711, [환자이름]= 김 환자",
        "<tr><td>작약&nbsp;</td><td>한약국 작약&nbsp;</td><td>3.5&nbsp;</td><td>1,000&nbsp;</td><td>3,500&nbsp;</td>"
        "<td>볶은 &lt;것&gt; &amp; 10g&nbsp;</td></tr></table><BR>[첩수]= 20, [약재가격]= 72,040<BR><BR>[탕전정보]= 압력탕전<BR>[제형변화]= "
        "녹용<BR>[1일 복용팩수]= 3, [복용일]= 7, [총파우치]= 21, [1팩용량]= 100<BR><BR>[처방메세지]<BR><table border=1 "
        "cellspacing=0 cellpadding=2><tr><td> 잘 부탁합니다 </td></tr></table><BR>[복용법]<BR>",
        "<tr><td>약재비용&nbsp;</td><td>72,040&nbsp;</td><td>note 2&nbsp;</td></tr>",
    };
    for (const std::string& piece : pieces) EXPECT_NE(log.find(piece), std::string::npos) << piece << log;

    ASSERT_EQ(window.sent.size(), 1U);
    const ChartRecord& record = window.sent[0];
    EXPECT_EQ(record.strJob + "|" + record.strMessage + "|" + record.strxDrugList,
              "탕전|잘 부탁합니다|당귀/$CD$/4/$RD$/작약/$CD$/3.5");
    EXPECT_EQ(std::tuple(record.intChupSu, record.intPouchAmount, record.intTuyakilsu, record.intPouchTotal,
                         record.lngSumCost, record.sglDayTuYak),
              std::tuple(20, 100, 7, 21, 72040, 3));
}

TEST(OrderSend, AnOrderTypeWithNeitherSectionSendsNeither) {
    OrderWindow window;
    window.compose(2);
    window.dose.txtTuyakilsu.setText("-3");  // out of view, and out of the checks
    window.page.answer = CostPage::priced(500);
    window.run([&] { window.priceAndSend(); });
    EXPECT_EQ(window.desktop.takeBox().caption, "처방전 전송 성공");
    EXPECT_TRUE(window.form.unloaded()) << "Yes is the default and leads back to the chart";
    const auto& asked = window.page.requests.at(0);
    EXPECT_EQ(asked.chubsu + asked.drugPrice + asked.tjmlKey + asked.pouchAmount + asked.pouchTotal, "00000");
    EXPECT_EQ(asked.drugText + asked.tjalSlot + window.sent.at(0).strxDrugList, "");
    EXPECT_EQ(written(*window.pharmacy), "1 0 1 0 1");
    EXPECT_EQ(window.pharmacy->value("SELECT CBJ_Chubsu || CBJ_PouchTotal || CBJ_TJAL_Slot || CBJ_DayTuyak ||"
                                     " CBJ_Tuyakilsu FROM t_ChubangJun"),
              "003.00");
}

TEST(OrderSend, MoneyRules) {
    const std::string contact = " 또는 [한약국으로 연락] 주십시오.";
    const std::string none = "적립된 금액이 없습니다.\r\n\r\n[후불][후불정산]으로 전송하시거나" + contact;
    const auto shortOf = [&](const std::string& won) {
        return "적립금이 [ " + won + " ]원 부족합니다.\r\n\r\n[후불][후불정산]로 전송하시거나" + contact;
    };
    const struct {
        std::int64_t deposit, cost;
        std::string told, stored = "";
        std::int64_t spentMeanwhile = 0;  // by another session, behind the first look at the deposit
    } cases[] = {{10000, 10000, success, "11"},
                 {10000, 10001, shortOf("1")},
                 {0, 0, none},
                 {0, 500, none},
                 {-500, 0, shortOf("500")},
                 {-2000000000, 2000000000, shortOf("4,000,000,000")},
                 {10000, 6000, success, "11", 4000},
                 {10000, 6000, shortOf("1"), "", 4001},
                 {10000, 0, none, "", 10000}};
    for (const auto& test : cases) {
        SCOPED_TRACE(std::to_string(test.deposit) + " pays " + std::to_string(test.cost));
        OrderWindow window;
        payFromDeposit(window, test.deposit);
        window.page.answer = CostPage::priced(test.cost, 500);  // mileage pays for no order that earns it
        window.line->before = [&](const std::string& statement) {
            if (statement != "BEGIN") return;
            window.pharmacy->run("INSERT INTO t_Stock (DTR_PK, CBJ_PK, STK_Money) VALUES (1, 0, -" +
                                 std::to_string(test.spentMeanwhile) + ")");
        };
        window.run([&] {
            window.priceAndSend();
            EXPECT_FALSE(window.gate.costConfirmed() || window.gate.ssrCBJSend.visible());
            EXPECT_TRUE(test.told == success || test.spentMeanwhile > 0 ||
                        window.payment.cboPaymentMethod.hasFocus());
        });
        EXPECT_EQ(window.desktop.takeBox().text, test.told);
        EXPECT_EQ(window.pharmacy->value("SELECT CBJ_PayMethod || CBJ_IsPaid FROM t_ChubangJun"),
                  test.stored);
    }
}

TEST(OrderSend, DuplicateHerbsAreAskedAboutOnce) {
    const char* question =
        "[ 당귀 ] 약재명이 중복되었습니다. 다시 구성하시겠습니까?\r\n\r\n예(Y) = 약재정보를 다시 "
        "구성\r\n\r\n아니오(N) = 처방전 전송";
    OrderWindow window;
    window.compose();
    window.add("당귀||13|1|10|10|3|0\n작약||12|1|10|10|4|0");
    window.run([&] {
        window.desktop.answer(Answer::Yes);
        window.priceAndSend();
        window.desktop.expectQuestion("처방전 전송", question);
        EXPECT_EQ(window.focus(), "tdbDGL");
        EXPECT_EQ(written(*window.pharmacy), nothing);
        window.desktop.answer(Answer::No);
        window.priceAndSend();
    });
    window.desktop.expectQuestion("처방전 전송", question);
    window.desktop.expectQuestion("처방전 전송 성공", success);
    EXPECT_EQ(written(*window.pharmacy), "1 1 1 4 1");
}

TEST(OrderSend, RefusesWithoutLoginOrPrice) {
    OrderWindow window;
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
    EXPECT_EQ(written(*window.pharmacy), nothing);
}

TEST(OrderSend, EachFailingStatementLeavesNothing) {
    const auto table = [](const std::string& name) {
        return Box("처방전전송 에러", "처방전 전송 중 오류 발생 - 처방전 " + name + " 저장 에러");
    };
    const std::vector<Box> boxes = {
        {"처방전 전송 에러", "처방전 전송 오류 - [한약국 서버 연결 확인 ]"},
        {"처방전 전송 실패", "DB서버 시간 가져오기 실패!"},
        table("테이블(t_ChubangJun)"),
        table("테이블(t_ChubangJun)"),
        table("테이블(t_ChubangJun)"),
        table("Mileage 금액 (t_CBJDetail)"),
        table("비용상세 테이블(t_CBJcostDetail)"),
        table("약재 테이블(t_CBJDetail)"),
        table("약재 테이블(t_CBJDetail)"),
        table("복용법 테이블(t_EatGuide)"),
        {"처방전 전송 실패",
         "처방전 전송 실패 - 처방전이 저장되지 않았습니다. [비용확인]부터 다시 실행하여 주십시오."},
    };
    OrderWindow window;
    window.compose();
    window.line->tellsKeys = false;
    window.run([&] {
        for (std::size_t step = 0; step < boxes.size(); ++step) {
            SCOPED_TRACE("statement " + std::to_string(step + 1));
            window.line->failAt(static_cast<int>(step) + 1);
            window.priceAndSend();
            window.desktop.expectBox(boxes[step].first, boxes[step].second, BoxIcon::Critical);
            EXPECT_EQ(written(*window.pharmacy), nothing);
            EXPECT_FALSE(window.line->inTransaction);
            EXPECT_FALSE(window.gate.costConfirmed() || window.gate.ssrCBJSend.visible());
        }
    });
    EXPECT_TRUE(window.sent.empty() && window.logs().empty());
}

TEST(OrderSend, AnotherHerbIsNotSentAtTheFormerPrice) {
    OrderWindow window;
    window.compose();
    window.run([&] {
        window.user.press("ssrCostConfirm");
        EXPECT_TRUE(window.gate.costConfirmed());
        window.desktop.whenShown("frmYakGukDrug", [&](screen::Window&) {
            window.user.type("txtDrugFind", "녹각");
            window.user.key("txtDrugFind", {"Enter"});
            window.user.key("tdbYakgukDrug", {"Enter"});
        });
        window.user.cellKey("tdbDGL", "약재명", "Enter");
        EXPECT_FALSE(window.gate.costConfirmed()) << "a herb that the pharmacy has no name for";
    });
}

TEST(OrderSend, AMoneyCheckThatCannotReadStopsTheSend) {
    OrderWindow window;
    payFromDeposit(window, 100000);
    window.run([&] {
        for (int read = 1; read <= 6; ++read) {
            window.user.press("ssrCostConfirm");
            window.line->failAt(read);
            window.user.press("ssrCBJSend");
            window.desktop.expectBox("비용확인", "처방전비용과 적립금을 확인하는중 에러발생.",
                                     BoxIcon::Critical);
            EXPECT_EQ(window.desktop.pointer(), screen::Pointer::Normal);
            EXPECT_FALSE(window.gate.costConfirmed());
        }
    });
    EXPECT_EQ(written(*window.pharmacy), nothing);
}

TEST(OrderSend, WhatElseGoesWrongIsTold) {
    const struct {
        void (*spoil)(OrderWindow& window);
        std::vector<Box> boxes;  // captions and how the texts begin
        std::string written;
        std::size_t events = 0;
    } cases[] = {
        {[](OrderWindow& w) { w.session.g_xaDrug.set(1, 7, ""); }, {{"처방전전송 에러", ""}}, nothing},
        {[](OrderWindow& w) { w.patient.lblPatientPK.setCaption("x"); }, {{"처방전전송 에러", ""}}, nothing},
        {[](OrderWindow& w) { w.spoilLogFolder(), w.chartFault = "진료부 닫힘"; },
         {{"처방전 로그",
           "[처방전 전송은 정상적으로 전송] 되었습니다. -  처방전 로그 파일 기록에 실패하였습니다."},
          {"처방전 전송", "처방전은 전송되었습니다. 진료부에 전달하는 중 오류 발생 - [진료부 닫힘 ]"},
          {"처방전 전송 성공", success}},
         all,
         1},
    };
    for (const auto& test : cases) {
        OrderWindow window;
        window.compose();
        test.spoil(window);
        window.run([&] { window.priceAndSend(); });
        for (const auto& [caption, text] : test.boxes) {
            const screen::MessageBox box = window.desktop.takeBox();
            EXPECT_EQ(box.caption, caption);
            EXPECT_TRUE(box.text.starts_with(text)) << box.text;
        }
        EXPECT_EQ(written(*window.pharmacy), test.written);
        EXPECT_EQ(window.sent.size(), test.events);
        EXPECT_FALSE(window.gate.costConfirmed());
    }
}

TEST(OrderSend, ASecondPressAtAnyYieldSendsOnce) {
    for (const bool closing : {false, true}) {
        OrderWindow window;
        payFromDeposit(window, 100000);
        window.line->yield = [&] { window.desktop.yield(); };
        int presses = 0;
        window.run([&] {
            window.user.press("ssrCostConfirm");
            window.desktop.onEvents = [&] {
                ++presses;
                EXPECT_FALSE(window.gate.ssrCBJSend.reachable());
                if (closing) {
                    window.form.userClose();
                } else {
                    window.gate.ssrCBJSend.userPress();
                }
            };
            window.desktop.answer(Answer::No);
            window.user.press("ssrCBJSend");
            window.desktop.onEvents = nullptr;
            EXPECT_EQ(window.form.leaving(), closing);
        });
        window.desktop.expectQuestion("처방전 전송 성공", success);
        EXPECT_GT(presses, 13) << "each herb, each cost line, each row that was read";
        EXPECT_EQ(written(*window.pharmacy), all);
    }
}

}  // namespace
}  // namespace zelvo::ordering
