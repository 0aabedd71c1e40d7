#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "data/clsZELVORecordSet.h"
#include "platform/files/WholeFile.h"
#include "support/Killing.h"
#include "support/OrderWindow.h"

namespace zelvo::ordering {
namespace {

using screen::Answer;
using screen::BoxIcon;
using testing::CostPage;
using testing::OrderWindow;

using Box = std::pair<std::string, std::string>;
constexpr const char* success =
    "[탕전] 처방전 전송을 성공했습니다.\r[벡소라]에도 진료기록을 남기려면 [진료부에 기록]을 실행하십시오.\r"
    "  참고 : [벡소라]에 처방에 대한 자료가 표시되어 있습니다.\r\rZELVO를 종료하고 [벡소라]로 복귀하시겠습니까?";

/// Rows of the five tables that an order writes: `all` for a whole one of two herbs.
std::string written(const testing::OrderPharmacy& pharmacy) {
    return pharmacy.value(
        "SELECT (SELECT count(*) FROM t_ChubangJun) || ' ' || (SELECT count(*) FROM t_Stock WHERE CBJ_PK <> 0) || ' ' ||"
        " (SELECT count(*) FROM t_CBJcostDetail) || ' ' || (SELECT count(*) FROM t_CBJDetail) || ' ' ||"
        " (SELECT count(*) FROM t_EatGuide)");
}
const std::string all = "1 1 1 2 1", nothing = "0 0 0 0 0";

/// How many marks of sends stand on the machine.
int marksOf(const OrderWindow& window) {
    int marks = 0;
    for (const auto& [name, text] : window.logs()) marks += name.starts_with("unsettled_") ? 1 : 0;
    return marks;
}

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
    window.page.answer = CostPage::priced(500);
    window.run([&] { window.priceAndSend(); });
    EXPECT_EQ(window.desktop.takeBox().caption, "처방전 전송 성공");
    EXPECT_TRUE(window.form.unloaded()) << "Yes is the default and leads back to the chart";
    const auto& asked = window.page.requests.at(0);
    EXPECT_EQ(asked.chubsu + asked.drugPrice + asked.tjmlKey + asked.pouchAmount + asked.pouchTotal, "00000");
    EXPECT_EQ(asked.drugText + asked.tjalSlot + window.sent.at(0).strxDrugList, "");
    EXPECT_EQ(written(*window.pharmacy), "1 0 1 0 1");
    EXPECT_EQ(window.pharmacy->rows("SELECT CBJ_Chubsu, CBJ_PouchTotal, CBJ_TJAL_Slot FROM t_ChubangJun")[0],
              (std::vector<std::string>{"0", "0", ""}));
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

TEST(OrderSend, RunsTheStatementsOfAnOrderAndNoOther) {
    OrderWindow window;
    window.compose();
    window.line->tellsKeys = false;
    window.run([&] {
        window.line->statements.clear();
        window.priceAndSend();
    });
    EXPECT_EQ(window.desktop.takeBox().caption, "처방전 전송 성공");
    std::string begun;
    for (const std::string& statement : window.line->statements) begun += statement.substr(0, 26) + "\n";
    EXPECT_EQ(begun,
              "BEGIN\nSELECT getdate()\nInsert into t_ChubangJun (\nSELECT MAX(CBJ_PK) AS CBJP\n"
              "SELECT CBJ_PK FROM t_Chuba\n"
              "Insert into t_Stock (DTR_P\nInsert into t_CBJcostDetai\nInsert into t_CBJDetail (C\n"
              "Insert into t_CBJDetail (C\nInsert into t_EatGuide (CB\nCOMMIT\n");
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

TEST(OrderSend, ACommitWithoutAnAnswerIsAskedAfter) {
    const Box failed("처방전 전송 실패", "처방전 전송 실패 - 처방전이 저장되지 않았습니다.");
    const Box unknown("처방전 전송 실패", "처방전 전송 결과를 확인할 수 없습니다. 다시 전송하지 마십시오.");
    const Box unmarked("처방전 전송 실패", "처방전 전송 결과를 확인할 수 없습니다. [처방전 관리]에서");
    const struct {
        const char* name;
        bool stored, answers, diskFull;
        Box box;
        std::size_t events, files;  // files: the log, and the mark beside it
    } cases[] = {{"it stands", true, true, false, {"처방전 전송 성공", success}, 1, 1},
                 {"it does not", false, true, false, failed, 0, 0},
                 {"nobody says", true, false, false, unknown, 0, 2},
                 {"nor can it be marked", true, false, true, unmarked, 0, 0}};
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        OrderWindow window;
        window.compose();
        if (test.stored) {
            window.line->nextCommit = data::CommitOutcome::Unknown;
        } else {
            window.line->before = [&](const std::string& statement) {
                window.line->staysBroken = statement == "COMMIT";
                window.line->failAt(statement == "COMMIT" ? 1 : 0);
            };
        }
        window.line->another = [&] {
            return test.answers ? window.pharmacy->connect() : throw basics::Fault("no server");
        };
        if (test.diskFull) window.spoilLogFolder();
        window.run([&] { window.priceAndSend(); });
        const screen::MessageBox box = window.desktop.takeBox();
        EXPECT_EQ(box.caption, test.box.first);
        EXPECT_TRUE(box.text.starts_with(test.box.second)) << box.text;
        EXPECT_EQ(window.sent.size(), test.events);
        EXPECT_EQ(window.logs().size(), test.files);
        EXPECT_EQ(written(*window.pharmacy), test.stored ? all : nothing);
    }
}

TEST(OrderSend, AMarkedSendIsAskedAfterBeforeTheNext) {
    const std::string time = "2024-05-06 09:08:07", file = "unsettled_20240506090807_345.txt";
    const std::string former = "[" + time + "] [김환자] 결과를 확인할 수 없었던 처방전은 ";
    const std::string stands = former + "저장되어 있습니다. 진료부에는 전달되지 않았을 수 있습니다.";
    const std::string unread = "결과를 확인할 수 없었던 처방전의 기록을 읽을 수 없습니다.";
    const auto mark = [&](int doctor, const std::string& server = "server:1") {
        return std::to_string(doctor) + "\r\n345\r\n" + time + "\r\n" + server + "\r\n김환자\r\nab\r\n";
    };
    enum class Kind { Plain, Folder, Pipe, Held };
    const struct {
        const char* name = "";
        std::string marked = {};
        const char* storedAt = "";  // the time stamp of an order of that key, where one stands
        Answer answer = Answer::Yes;
        std::string told = {};
        bool settled = false, sends = true, lineBroken = false;
        Kind kind = Kind::Plain;
    } cases[] = {{.name = "another doctor's", .marked = mark(11)},
                 {.name = "another server's", .marked = mark(1, "server:1.kr")},
                 {.name = "a running send's", .marked = mark(1), .kind = Kind::Held},
                 {.name = "damaged", .marked = "1\r\n99999999999\r\n", .told = unread},
                 {.name = "cut off", .marked = mark(1).substr(0, 40), .told = unread},
                 {.name = "a folder", .told = unread, .kind = Kind::Folder},
                 {.name = "a pipe", .told = unread, .kind = Kind::Pipe},
                 {.name = "it stands and is enough",
                  .marked = mark(1),
                  .storedAt = time.c_str(),
                  .answer = Answer::No,
                  .told = stands,
                  .settled = true,
                  .sends = false},
                 {.name = "it stands and this is one more",
                  .marked = mark(1),
                  .storedAt = time.c_str(),
                  .told = stands,
                  .settled = true},
                 {.name = "it does not stand",
                  .marked = mark(1),
                  .told = former + "저장되지 않았습니다",
                  .settled = true},
                 {.name = "its key was given to another order",
                  .marked = mark(1),
                  .storedAt = "2024-05-06 09:08:09",
                  .told = former + "저장되지 않았습니다",
                  .settled = true},
                 {.name = "the server spelled otherwise",
                  .marked = mark(1, "SERVER:1,1433"),
                  .storedAt = time.c_str(),
                  .answer = Answer::No,
                  .told = stands,
                  .settled = true,
                  .sends = false},
                 {.name = "nobody says",
                  .marked = mark(1),
                  .storedAt = time.c_str(),
                  .told = former + "지금도",
                  .sends = false,
                  .lineBroken = true}};
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        OrderWindow window;
        window.compose();
        if (*test.storedAt != 0) {
            window.pharmacy->run("INSERT INTO t_ChubangJun (CBJ_PK, DTR_PK, CBJ_RegDate) VALUES (345, 1, '" +
                                 std::string(test.storedAt) + "')");
        }
        const std::filesystem::path path = window.machine->path / "zelvo" / file;
        std::filesystem::create_directories(test.kind == Kind::Folder ? path : path.parent_path());
        if (test.kind == Kind::Pipe) ::mkfifo(path.c_str(), 0600);
        if (test.kind == Kind::Plain || test.kind == Kind::Held) std::ofstream(path) << test.marked;
        std::optional<files::LockedFile> held;
        if (test.kind == Kind::Held) held.emplace(*files::LockedFile::take(path));
        window.run([&] {
            window.user.press("ssrCostConfirm");
            if (test.lineBroken) window.line->failAt(1);
            if (!test.told.empty()) window.desktop.answer(test.answer);
            if (test.sends) window.desktop.answer(Answer::No);
            window.user.press("ssrCBJSend");
            if (!test.told.empty()) {
                const screen::MessageBox box = window.desktop.takeBox();
                EXPECT_TRUE(box.text.starts_with(test.told)) << box.text;
            }
            if (test.sends) {
                window.desktop.expectQuestion("처방전 전송 성공", success);
                window.priceAndSend();  // what can't be read has been told
                EXPECT_EQ(window.desktop.takeBox().caption, "처방전 전송 성공");
            }
        });
        EXPECT_EQ(window.sent.size(), test.sends ? 2U : 0U);
        EXPECT_EQ(window.logs()[file], test.settled ? "" : test.marked);
    }
}

TEST(OrderSend, ASendThatRunsIsNobodyElsesBusiness) {
    OrderWindow first;
    OrderWindow second(first.pharmacy, first.machine);
    for (OrderWindow* window : {&first, &second}) window->compose();
    first.send.Send2Chart.add([&](const ChartRecord&) {  // its chart takes its time
        second.desktop.answer(Answer::No);
        second.run([&] {
            second.priceAndSend();
            second.desktop.expectQuestion("처방전 전송 성공", success);
            second.line->before = [&](const std::string& statement) {
                second.line->failAt(statement == "COMMIT" ? 1 : 0);
            };
            second.priceAndSend();
            EXPECT_EQ(second.desktop.takeBox().caption, "처방전 전송 실패");
        });
        EXPECT_EQ(marksOf(first), 1);
    });
    first.run([&] { first.priceAndSend(); });
    first.desktop.expectQuestion("처방전 전송 성공", success);
    EXPECT_EQ(written(*first.pharmacy), "2 2 2 4 2");
    EXPECT_EQ(first.logs().size(), 2U) << "one for each order that stands, though of one second";
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

using Pharmacy = std::shared_ptr<testing::OrderPharmacy>;
using Machine = std::shared_ptr<testing::TestFolder>;

/// The doctor's next session sends, with every question answered as its default says; what it is told.
std::string sendOnceMore(const Pharmacy& pharmacy, const Machine& machine) {
    OrderWindow window(pharmacy, machine);
    window.send.Form_Load();
    window.compose();
    window.run([&] { window.priceAndSend(); });
    return window.desktop.takeTexts();
}
constexpr const char* left = "결과를 확인할 수 없었던";

TEST(OrderSend, AKilledSendLeavesAllOrNothing) {
    constexpr int statements = 9;
    for (const char* journal : {"delete", "wal"}) {
        for (int at = 1; at <= statements + 1; ++at) {
            SCOPED_TRACE(std::string(journal) + ", killed before statement " + std::to_string(at));
            const auto pharmacy = std::make_shared<testing::OrderPharmacy>();
            const auto machine = std::make_shared<testing::TestFolder>();
            pharmacy->run(std::string("PRAGMA journal_mode = ") + journal);
            ASSERT_TRUE(testing::diesIn([&] {
                OrderWindow window(pharmacy, machine);
                testing::dieAt(*window.line, at);
                window.send.Send2Chart.add([](const ChartRecord&) { testing::die(); });
                window.compose();
                window.run([&] { window.priceAndSend(); });
            }));
            EXPECT_EQ(written(*pharmacy), at <= statements ? nothing : all);
            EXPECT_EQ(pharmacy->value("PRAGMA integrity_check"), "ok");
            const std::string told = sendOnceMore(pharmacy, machine);
            EXPECT_EQ(told.find(left) != std::string::npos, at >= statements) << "the order was marked";
            EXPECT_EQ(written(*pharmacy), all);
            EXPECT_EQ(machine->files("zelvo").size(), 1U) << "the log of the order that stands";
        }
    }
}

using Told = data::CommitOutcome;
using Program = std::function<Told(const std::function<void()>& arm)>;
using Check = std::function<void(Told told)>;

/// Runs a program in a process of its own for each call of the system that it makes once it is armed: that
/// one fails, alone or with all behind it. `prepare` makes what it works on; then what it told is looked at.
void whileEachCallFails(const std::function<void()>& prepare, const Program& program, const Check& check) {
    const auto call = [](const char* name) { return ::dlsym(RTLD_DEFAULT, name); };
    const auto fail = reinterpret_cast<void (*)(const char*, int, bool)>(call("failCalls"));
    const auto came = reinterpret_cast<bool (*)()>(call("cameToFailure"));
    for (const char* kind : {"write", "sync", "unlock", "rename", "unlink"}) {
        for (const bool lasting : {false, true}) {
            for (int nth = 1, status = 0;; ++nth) {
                SCOPED_TRACE(std::string(kind) + " " + std::to_string(nth) + (lasting ? " and on" : ""));
                prepare();
                const pid_t child = ::fork();
                if (child == 0) {
                    const Told told = program([&] { fail(kind, nth, lasting); });
                    ::_exit(came() ? static_cast<int>(told) : 9);
                }
                ::waitpid(child, &status, 0);
                ASSERT_TRUE(WIFEXITED(status));
                if (WEXITSTATUS(status) == 9) break;
                const auto told = static_cast<Told>(WEXITSTATUS(status));
                EXPECT_TRUE(lasting || told != Told::Unknown) << "a second connection can say";
                check(told);
            }
        }
    }
}

TEST(OrderSend, WhateverTheSystemRefusesNoOrderIsToldWronglyOrSentTwice) {
    if (::dlsym(RTLD_DEFAULT, "failCalls") == nullptr) {  // once more, with the calls preloaded
        const std::string program = std::filesystem::read_symlink("/proc/self/exe");
        const std::string command =
            "ASAN_OPTIONS=verify_asan_link_order=0 LD_PRELOAD=" ZELVO_FAILING_CALLS " ";
        EXPECT_EQ(std::system((command + program + " --gtest_filter=OrderSend.WhateverTheSystem*").c_str()),
                  0);
        return;
    }
    Pharmacy pharmacy;
    Machine machine;
    const auto prepare = [&] {
        pharmacy = std::make_shared<testing::OrderPharmacy>();
        machine = std::make_shared<testing::TestFolder>();
    };
    const auto send = [&](const std::function<void()>& arm) {
        OrderWindow window(pharmacy, machine);
        window.line->another = [&] { return pharmacy->connect(); };
        window.compose();
        window.run([&] {
            window.user.press("ssrCostConfirm");
            arm();
            window.user.press("ssrCBJSend");
        });
        const bool unknown = window.desktop.takeTexts().find("확인할 수 없습니다.") != std::string::npos;
        return !window.sent.empty() ? Told::Done : unknown ? Told::Unknown : Told::Refused;
    };
    whileEachCallFails(prepare, send, [&](Told told) {
        const std::string stands = written(*pharmacy);
        EXPECT_TRUE(told == Told::Unknown || stands == (told == Told::Done ? all : nothing)) << stands;
        if (told == Told::Done) return;
        EXPECT_EQ(sendOnceMore(pharmacy, machine).find(left) != std::string::npos, told == Told::Unknown);
        EXPECT_EQ(written(*pharmacy), all);
    });
    const auto prepareOrder = [&] {
        prepare();
        pharmacy->run("INSERT INTO t_ChubangJun (CBJ_PK, DTR_PK, CBJ_IsCanceled) VALUES (345, 1, 0)");
    };
    const auto cancel = [&](const std::function<void()>& arm) {
        const auto line = pharmacy->connect();
        line->another = [&] { return pharmacy->connect(); };
        arm();
        return data::clsZELVORecordSet().Update_CBJCancel(*line, 345);
    };
    whileEachCallFails(prepareOrder, cancel, [&](Told told) {
        const std::string canceled = pharmacy->value("SELECT CBJ_IsCanceled FROM t_ChubangJun");
        EXPECT_TRUE(told == Told::Unknown || canceled == (told == Told::Done ? "1" : "0"));
    });
}

}  // namespace
}  // namespace zelvo::ordering
