#include "support/ManagementWindow.h"

namespace zelvo::management {
namespace {

using screen::Answer;
using screen::BoxIcon;
using testing::ManagementWindow;

/// Five orders that wait, the newest first, and the third of them in view.
struct Five : ::testing::Test {
    Five() {
        for (int key = 1; key <= 5; ++key) window.put(key);
    }
    void run(const std::function<void()>& script) {
        window.run([&] {
            window.listAll();
            window.search.tdbCBJ.setCurrentRow(2);
            window.line->statements.clear();
            script();
        });
    }
    void cancel(Answer answer = Answer::Yes) {
        window.desktop.answer(answer);
        window.user.press("ssrCBJmCancel");
        window.desktop.expectQuestion("처방전 취소", order + " \r\n처방전을 취소하시겠습니까?");
    }
    std::string listed() const {
        std::string all;
        for (int row = 0; row < window.search.tdbCBJ.rowCount(); ++row)
            all += window.search.tdbCBJ.valueAt(row, 0) + ":" + window.search.tdbCBJ.valueAt(row, 1) + " ";
        return all;
    }
    void reuse() {
        window.desktop.answer(Answer::Yes);
        window.user.press("ssrCBJreuse");
        window.desktop.expectQuestion(
            "처방전 재사용", "현재의 처방전 내용을 [처방전 작성 및 전송]에서 다시 사용하시겠습니까?");
    }
    const std::string order = "[2024-05-03 10:00:00] [환자3] [탕전]";
    ManagementWindow window;
};

TEST_F(Five, CancelTakesTheOrderOutOfTheListAndTheBalance) {
    run([&] {
        const std::string before = window.stored();
        cancel(Answer::No);
        EXPECT_EQ(window.stored(), before);
        window.balance.txtUsableStock.setText("old");
        cancel();
        window.desktop.expectBox("처방전 취소", order + "\r\n\r\n처방전을 성공적으로 취소 하였습니다.");
        EXPECT_EQ(listed(), "1:5 2:4 3:2 4:1 ");
        EXPECT_EQ(window.balance.txtUsableStock.text(), "");
        EXPECT_EQ(window.say("txtCBJmPatientName"), "환자3") << "the panel keeps it until the row changes";
        EXPECT_FALSE(window.detail.state.ssrCBJmCancel.visible());
        EXPECT_EQ(window.pharmacy->rows(
                      "SELECT CBJ_PK, (SELECT count(*) FROM t_Stock b WHERE b.CBJ_IsCanceled = 1 AND"
                      " b.CBJ_PK = a.CBJ_PK) FROM t_ChubangJun a WHERE CBJ_IsCanceled = 1"),
                  (std::vector<std::vector<std::string>>{{"3", "1"}}));
        window.user.row("tdbCBJ", 2);
        EXPECT_EQ(window.say("txtCBJmPatientName"), "환자2");
    });
}

/// Of the last row nothing follows in its place: the row before it comes into view, and can be cancelled in
/// turn.
TEST_F(Five, CancellingFromTheEndShowsTheRowBefore) {
    run([&] {
        for (int row = 4; row >= 0; --row) {
            window.search.tdbCBJ.setCurrentRow(row);
            EXPECT_TRUE(window.detail.state.ssrCBJmCancel.visible()) << row;
            window.desktop.answer(Answer::Yes);
            window.user.press("ssrCBJmCancel");
            window.desktop.takeBox();
            window.desktop.takeBox();
        }
        EXPECT_EQ(listed(), "");
        window.detail.state.ssrCBJmCancel.setVisible(true);
        window.desktop.answer(Answer::Yes);
        window.user.press("ssrCBJmCancel");
        window.desktop.expectQuestion("처방전 취소", "[] [] [] \r\n처방전을 취소하시겠습니까?");
        window.desktop.expectBox("처방전 취소", "처방전을 다시 선택해 주십시오.[처방전PK 선택 에러]");
        window.user.press("ssrCBJreuse");
        EXPECT_EQ(window.shownOrderTab, 0);
    });
}

TEST_F(Five, WhateverStopsACancelLeavesOrderAndList) {
    struct Case {
        const char *name, *pharmacyDoes;
        int failing;
        const char *caption, *text;
    };
    const char* failed = "[처방전 취소] 실패. (한약국 서버 연결 확인)";
    const char* movedOn = "선택하신 처방전은 대기상태가 아닙니다. [한약국으로 직접 연락] 바랍니다.";
    const Case cases[] = {
        {"state unread", "", 1, "처방전취소", "처방전의 진행상태 항목을 가져오는 중 에러 발생."},
        {"no begin", "", 2, "처방전 취소", failed},
        {"order not marked", "", 3, "처방전 취소", failed},
        {"mileage not marked", "", 4, "처방전 취소", failed},
        {"no commit", "", 5, "처방전 취소", failed},
        {"in production", "UPDATE t_ChubangJun SET CBJ_State = 1 WHERE CBJ_PK = 3", 0, "처방전취소", movedOn},
        {"cancelled elsewhere", "UPDATE t_ChubangJun SET CBJ_IsCanceled = 1 WHERE CBJ_PK = 3", 0,
         "처방전취소", movedOn},
    };
    run([&] {
        for (const Case& test : cases) {
            SCOPED_TRACE(test.name);
            window.pharmacy->run(std::string("UPDATE t_ChubangJun SET CBJ_State = 0;") + test.pharmacyDoes);
            const std::string before = window.stored();
            window.detail.state.ssrCBJmCancel.setVisible(true);
            window.line->failAt(test.failing);
            cancel();
            window.line->failAt(0);
            const screen::MessageBox told = window.desktop.takeBox();
            EXPECT_EQ(told.caption + "|" + told.text, std::string(test.caption) + "|" + test.text);
            EXPECT_EQ(window.stored(), before);
            EXPECT_EQ(window.search.tdbCBJ.rowCount(), 5);
            EXPECT_EQ(window.detail.state.ssrCBJmCancel.visible(), *test.pharmacyDoes == '\0');
        }
    });
}

/// The row changes before any call and at any yield: the order that was asked about is cancelled, no other.
TEST_F(Five, ARowChangeWhileCancellingCancelsNoOther) {
    run([&] {
        const auto move = [&] { window.search.tdbCBJ.setCurrentRow(0); };
        window.line->before = [&](const std::string&) { move(); };
        window.desktop.onEvents = move;
        cancel();
        window.line->before = [](const std::string&) {};
        window.desktop.onEvents = nullptr;
        window.desktop.takeBox();
        EXPECT_EQ(listed(), "1:5 2:4 3:2 4:1 ");
        EXPECT_EQ(window.detail.shownKey(), 5);
    });
    EXPECT_EQ(
        window.pharmacy->value("SELECT group_concat(CBJ_PK) FROM t_ChubangJun WHERE CBJ_IsCanceled = 1"),
        "3");
}

TEST_F(Five, ReuseTakesTheCompositionOfTheOrderInView) {
    window.pharmacy->run(
        "UPDATE t_DrugDanga SET DGD_Danga = 500 WHERE DGL_PK = 2;"
        "UPDATE t_ChubangJun SET CBJ_IsCanceled = 1 WHERE CBJ_PK = 3");
    window.compose();
    window.add("\n");  // an incomplete line of what was being composed is no reason to complain
    window.run([&] {
        window.search.sscCBJcanceled.onPress();
        const std::string before = window.stored();
        window.gate.Set_CostConfirmed(true);
        reuse();
        EXPECT_EQ(window.stored(), before);
        EXPECT_EQ(window.lines(), "당귀|토당귀|2|1|500|500|1|0||볶은 3\n작약|작약(국산)|3|1|18|18|2|0||");
        EXPECT_EQ(window.text("txtChubsu") + " " + window.text("txtDrugPrice"), "20 10,360")
            << "at today's prices";
        EXPECT_EQ(window.text("txtDayTuyak") + window.text("txtTuyakilsu") + window.text("txtPouchAmount") +
                      window.text("txtPouchTotal"),
                  "2.5710317.5");
        EXPECT_EQ(window.text("txtCBJmsg") + window.text("rtxEatGuide") + window.text("txtEatGuideHosName"),
                  "잘 3식후 3우리 3");
        EXPECT_EQ(testing::rowsOf(window.options.m_xaTJAL, 0).substr(0, 4), "-1|1");
        EXPECT_EQ(window.options.m_xaTJML.text(1, 0) + window.options.m_xaJobList.text(0, 0), "-1-1");
        EXPECT_EQ(window.text("txtPatientName"), "김 환자") << "for the patient who is on the tab";
        EXPECT_FALSE(window.gate.costConfirmed());
        EXPECT_EQ(window.shownOrderTab, 1);
    });
}

TEST_F(Five, ReuseOfWhatIsNoLongerOffered) {
    struct Case {
        const char *name, *change, *lines, *packets;
    };
    const char* sound = "당귀|토당귀|2|1|320|320|1|0||볶은 3\n작약|작약(국산)|3|1|18|18|2|0||";
    const Case cases[] = {
        {"type withdrawn", "UPDATE t_ChubangJun SET CBJ_JobList_PK = 8", sound, "20 6,760"},
        {"decoction and add-on gone",
         "UPDATE t_ChubangJun SET CBJ_TJML_PK = 77; DELETE FROM t_TangJunAddList WHERE TJAL_PK = 1", sound,
         "20 6,760"},
        {"herb withdrawn", "UPDATE t_CBJDetail SET DGL_PK = 4 WHERE DGL_PK = 3",
         "당귀|토당귀|2|1|320|320|1|0||볶은 3\n감초|||1|||2|-1||", "20 6,760"},
        {"no herbs", "DELETE FROM t_CBJDetail; UPDATE t_ChubangJun SET CBJ_Chubsu = 0", "before|||||||||",
         " "},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        ManagementWindow fresh;
        fresh.put(3);
        fresh.pharmacy->run(test.change);
        fresh.run([&] {
            fresh.add("before|||||||||");
            fresh.listAll();
            fresh.desktop.answer(Answer::Yes);
            fresh.user.press("ssrCBJreuse");
            fresh.desktop.takeBox();
            EXPECT_EQ(fresh.lines(), test.lines);
            EXPECT_EQ(fresh.text("txtChubsu") + " " + fresh.text("txtDrugPrice"), test.packets);
            EXPECT_EQ(fresh.shownOrderTab, 1);
            const bool typeGone = std::string(test.name) == "type withdrawn";
            EXPECT_EQ(fresh.draft.jobRow(), typeGone ? -1 : 0);
        });
    }
}

TEST_F(Five, ARowChangeWhileReusingMixesNothingIn) {
    window.pharmacy->run("UPDATE t_CBJDetail SET DET_Weight = CBJ_PK");
    run([&] {
        window.desktop.onEvents = [&] { window.search.tdbCBJ.setCurrentRow(0); };
        reuse();
        window.desktop.onEvents = nullptr;
        EXPECT_EQ(window.text("txtCBJmsg") + window.session.g_xaDrug.text(0, 4) +
                      window.session.g_xaDrug.text(1, 4) + window.text("txtPouchAmount"),
                  "잘 333103");
        EXPECT_EQ(window.detail.shownKey(), 5);
    });
}

/// Half an order is not reused; a fault on the way is told once, and the session goes on.
TEST_F(Five, FaultsOfAReuseAreToldOnce) {
    run([&] {
        window.line->failAt(3);
        window.detail.On_CBJRowChange(-1);
        window.desktop.takeBox();
        window.line->failAt(3);
        window.user.press("ssrCBJreuse");
        window.desktop.expectBox("처방전관리", "처방전상세정보 읽는 중 에러 발생", BoxIcon::Critical);
        EXPECT_EQ(window.text("txtChubsu") + window.lines(), "");
        window.line->failAt(0);
        window.detail.reload();
        window.detail.decoction.lblCBJmTJMLPK.setCaption("no key");
        reuse();
        EXPECT_EQ(window.desktop.takeBox().caption, "처방전 재사용");
        EXPECT_EQ(window.desktop.pointer(), screen::Pointer::Normal);
        reuse();
        window.desktop.takeBox();
    });
}

}  // namespace
}  // namespace zelvo::management
