#include "support/ManagementWindow.h"

namespace zelvo::management {
namespace {

using screen::Answer;
using testing::ManagementWindow;

const std::string
    question = "[2024-05-03 10:00:00] [환자3] [탕전] \r\n처방전을 취소하시겠습니까?",
    canceled =
        "처방전 취소: [2024-05-03 10:00:00] [환자3] [탕전]\r\n\r\n처방전을 성공적으로 취소 하였습니다.";

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
    void cancel() {
        window.desktop.answer(Answer::Yes);
        window.user.press("ssrCBJmCancel");
        window.desktop.expectQuestion("처방전 취소", question);
    }
    /// While `act` runs, the list's row changes to the first before any call and at any yield.
    void moving(const std::function<void()>& act) {
        window.desktop.onEvents = [&] { window.search.tdbCBJ.setCurrentRow(0); };
        window.line->before = [&](const std::string&) { window.desktop.onEvents(); };
        act();
        window.line->before = [](const std::string&) {};
        window.desktop.onEvents = nullptr;
    }
    static void reuse(ManagementWindow& window) {
        window.desktop.answer(Answer::Yes);
        window.user.press("ssrCBJreuse");
        EXPECT_EQ(window.box(),
                  "처방전 재사용: 현재의 처방전 내용을 [처방전 작성 및 전송]에서 다시 사용하시겠습니까?");
    }
    ManagementWindow window;
};

TEST_F(Five, CancelTakesTheOrderOutOfTheListAndTheBalance) {
    run([&] {
        for (const bool rowMoves : {false, true}) {
            window.pharmacy->run("UPDATE t_ChubangJun SET CBJ_IsCanceled = 0");
            window.listAll();
            window.search.tdbCBJ.setCurrentRow(2);
            window.balance.txtUsableStock.setText("old");
            rowMoves ? moving([&] { cancel(); }) : cancel();
            EXPECT_EQ(window.box(), canceled);
            EXPECT_EQ(window.listed(), "1:5 2:4 3:2 4:1 ");
            EXPECT_EQ(window.balance.txtUsableStock.text(), "");
            EXPECT_EQ(window.says({"txtCBJmPatientName"}), rowMoves ? "환자5" : "환자3");
            EXPECT_EQ(window.detail.state.ssrCBJmCancel.visible(), rowMoves);
            EXPECT_EQ(window.pharmacy->value(
                          "SELECT group_concat(a.CBJ_PK || b.CBJ_PK) FROM t_ChubangJun a, t_Stock b"
                          " WHERE a.CBJ_IsCanceled = 1 AND b.CBJ_IsCanceled = 1"),
                      "33");
        }
    });
}

/// Whatever has become of the order, whatever was being composed, and though the list's row moves meanwhile.
TEST_F(Five, ReuseTakesTheCompositionOfTheOrderInView) {
    window.pharmacy->run(
        "UPDATE t_DrugDanga SET DGD_Danga = 500 WHERE DGL_PK = 2;"
        "UPDATE t_ChubangJun SET CBJ_State = 3 WHERE CBJ_PK = 3");
    window.compose();
    window.add("\n");
    run([&] {
        const std::string before = window.stored();
        window.gate.Set_CostConfirmed(true);
        moving([&] { reuse(window); });
        EXPECT_EQ(window.stored(), before);
        EXPECT_EQ(window.lines(), "당귀|토당귀|2|1|500|500|1|0||볶은 3\n작약|작약(국산)|3|1|18|18|2|0||");
        EXPECT_EQ(window.says({"txtChubsu", "txtDrugPrice", "txtDayTuyak", "txtTuyakilsu", "txtPouchAmount",
                               "txtPouchTotal", "txtCBJmsg", "rtxEatGuide", "txtEatGuideHosName",
                               "txtPatientName"}),
                  "20|10,360|2.5|7|103|17.5|잘 3|식후 3|우리 3|김 환자");
        EXPECT_EQ(window.options.m_xaTJAL.text(0, 0) + window.options.m_xaTJML.text(1, 0) +
                      window.options.m_xaJobList.text(0, 0),
                  "-1-1-1");
        EXPECT_FALSE(window.gate.costConfirmed());
        EXPECT_EQ(window.shownOrderTab * 10 + window.detail.shownKey(), 15);
    });
}

TEST_F(Five, ReuseOfWhatIsNoLongerOffered) {
    struct Case {
        const char *change, *lines, *packets;
        int job;
        std::string leftOut = {};
    };
    const std::string told = "한약국의 목록에 없어 가져오지 못한 항목이 있습니다.";
    const char *before = "감초|감초(국산)|4|1|100|100|1|0||",
               *sound = "당귀|토당귀|2|1|320|320|1|0||볶은 3\n작약|작약(국산)|3|1|18|18|2|0||";
    const Case cases[] = {
        {"UPDATE t_ChubangJun SET CBJ_JobList_PK = 8", sound, "20|6,760", -1},
        {"UPDATE t_ChubangJun SET CBJ_TJML_PK = 77; DELETE FROM t_TangJunAddList WHERE TJAL_PK = 1", sound,
         "20|6,760", 0, " [제형변화 1가지]"},
        {"UPDATE t_TangJunAddList SET TJAL_IsValid = '0' WHERE TJAL_PK = 1", sound, "20|6,760", 0,
         " [제형변화 녹용]"},
        {"CREATE TABLE keyless AS SELECT * FROM t_CBJDetail; DROP TABLE t_CBJDetail;"
         "ALTER TABLE keyless RENAME TO t_CBJDetail; UPDATE t_CBJDetail SET DET_PK = NULL",
         sound, "20|6,760", 0},
        {"UPDATE t_CBJDetail SET DGL_PK = 4 WHERE DGL_PK = 3",
         "당귀|토당귀|2|1|320|320|1|0||볶은 3\n감초|||1|||2|-1||", "20|6,760", 0},
        {"DELETE FROM t_CBJDetail; UPDATE t_ChubangJun SET CBJ_Chubsu = 0", before, "|", 0},
        {"UPDATE t_CBJDetail SET DGL_PK = 99", before, "20|2,000", 0, " [약재 당귀 1g] [약재 작약 1g]"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.change);
        ManagementWindow fresh;
        fresh.put(3);
        fresh.pharmacy->run(test.change);
        fresh.options.Load_TangJunAdd();
        fresh.run([&] {
            fresh.add(before);
            fresh.listAll();
            reuse(fresh);
            EXPECT_EQ(fresh.lines(), test.lines);
            EXPECT_EQ(fresh.says({"txtChubsu", "txtDrugPrice"}), test.packets);
            EXPECT_EQ(fresh.draft.jobRow(), test.job);
            EXPECT_EQ(fresh.shownOrderTab, 1);
            EXPECT_EQ(fresh.leftOut.text(), test.leftOut.empty() ? "" : told + test.leftOut);
            if (!test.leftOut.empty()) fresh.user.press("cmdLeftOut");
            EXPECT_FALSE(fresh.leftOut.c1eLeftOut.visible());
        });
    }
}

/// Half an order is not reused; a fault on the way is told once, and the session goes on.
TEST_F(Five, FaultsOfAReuseAreToldOnce) {
    run([&] {
        for (const bool press : {false, true}) {
            window.line->failAt(3);
            press ? window.user.press("ssrCBJreuse") : window.detail.On_CBJRowChange(-1);
            EXPECT_EQ(window.box(), "처방전관리: 처방전상세정보 읽는 중 에러 발생");
        }
        EXPECT_EQ(window.lines(), "");
        window.line->failAt(0);
        window.detail.reload();
        window.pharmacy->run("DELETE FROM t_ChubangJun WHERE CBJ_PK = 3");
        reuse(window);
        EXPECT_EQ(window.box(),
                  "처방전 재사용: 한약국에서 삭제된 처방전입니다. [한약국으로 직접 연락] 바랍니다.");
        EXPECT_EQ(window.lines(), "");
        window.search.tdbCBJ.setCurrentRow(0);
        window.detail.decoction.lblCBJmTJMLPK.setCaption("no key");
        reuse(window);
        EXPECT_TRUE(window.box().starts_with("처방전 재사용: "));
        EXPECT_EQ(window.desktop.pointer(), screen::Pointer::Normal);
    });
}

}  // namespace
}  // namespace zelvo::management
