#include "support/ManagementWindow.h"

namespace zelvo::management {
namespace {

using testing::ManagementWindow;

struct Detail : ::testing::Test {
    Detail() {
        for (const int key : {1, 2, 3}) window.put(key);
    }
    /// A cost line: label, amount, note.
    std::string cost(int row) const {
        const tables::XArrayDB& costs = window.detail.costs.m_xaCBJmCost;
        return costs.text(row, 0) + "|" + costs.text(row, 1) + "|" + costs.text(row, 3);
    }
    std::string addOns() const {
        const screen::ItemList& list = window.detail.decoction.lstCBJmTJAL;
        return std::to_string(list.itemCount()) + (list.itemCount() > 0 ? list.item(0) : "");
    }
    ManagementWindow window;
};

/// Withdrawn, missing and odd: the panel says what there is and never fails over it.
TEST_F(Detail, ShowsWhatIsLeftOfAnOddOrder) {
    struct Case {
        const char *change, *field, *text;
    };
    const Case cases[] = {
        {"CBJ_IsCanceled = 1", "lblStatecancel", "취소된 처방전"},
        {"CBJ_State = ''", "lblStatecancel", "취소된 처방전"},
        {"CBJ_PayMethod = NULL", "txtCBJmPayMethod", ""},
        {"CBJ_BesongMethod = NULL", "cboCBJmBesongMethod", ""},
        {"CBJ_BesongMethod = 9", "cboCBJmBesongMethod", ""},
        {"Patient_Sex = NULL, Patient_Age = NULL", "ssoCBJmSex(1)", "on"},
        {"CBJ_Reci_Date = NULL", "txtCBJmBesongDate", ""},
        {"CBJ_Reci_Date = '2024-05-09'", "txtCBJmBesongDate", "2024-05-09"},
        {"CBJ_BesongMsg = '  a  '", "txtCBJmBesongMsg", "a"},
        {"Patient_Name = NULL, CBJ_Send_Name = NULL, CBJ_Msg = NULL", "txtCBJmPatientName", ""},
        {"CBJ_JobList_PK = 99", "lblCBJmJobListPK", "0"},
        {"CBJ_JobList_PK = 8", "txtCBJmJobList", "마감"},
        {"CBJ_TJML_PK = NULL", "txtCBJmDayTuyak", ""},
        {"CBJ_Chubsu = 0", "txtCBJmDrugCost", ""},
        {"CBJ_Chubsu = NULL, CBJ_DrugCost = 0", "txtCBJmDrugCost", ""},
    };
    const std::string herb = "* 녹용" + std::string(50, ' ') + "1";
    const std::pair<const char*, std::string> slots[] = {
        {"NULL", "0"}, {"''", "0"}, {"'000'", "0"}, {"'한x1 21' || hex(zeroblob(40)) || '1'", "1" + herb}};
    window.run([&] {
        window.listAll();
        for (const Case& test : cases) {
            window.pharmacy->run(
                "DELETE FROM t_ChubangJun WHERE CBJ_PK = 3; DELETE FROM t_CBJcostDetail; DELETE FROM t_CBJDetail;"
                "DELETE FROM t_EatGuide");
            window.put(3, test.change);
            window.detail.On_CBJRowChange(-1);
            EXPECT_EQ(window.says({test.field}), test.text) << test.change;
            EXPECT_EQ(window.detail.state.sschkCBJmUpdate.visible(), &test - cases > 1);
            EXPECT_EQ(window.detail.frames.sspCBJm1.caption(),
                      &test - cases == 1 ? " 진행상태 - 취소 기록 없음" : " 진행상태");
        }
        window.pharmacy->run(
            "DELETE FROM t_EatGuide; DELETE FROM t_CBJcostDetail; UPDATE t_CBJDetail SET DGL_PK = 99;"
            "UPDATE t_TangJunAddList SET TJAL_IsValid = '0'");
        for (const auto& [slot, shown] : slots) {
            window.pharmacy->run(std::string("UPDATE t_ChubangJun SET CBJ_TJAL_Slot = ") + slot);
            window.detail.On_CBJRowChange(-1);
            EXPECT_EQ(addOns(), shown) << "an order keeps an add-on that was withdrawn: " << slot;
        }
        EXPECT_EQ(cost(0) + cost(2), "         [ 합계비용 ]||처방전 합계비용 =  조제비용||");
        EXPECT_EQ(window.says({"rtxCBJmEatMsg"}), "");
        EXPECT_EQ(window.detail.herbs.tdbCBJmDGL.rowCount(), 0);
        EXPECT_EQ(window.detail.herbs.tdbCBJmDGL.caption(),
                  "한약국의 목록에서 삭제된 약재: [당귀 1g] [작약 1g]");
    });
}

TEST_F(Detail, EveryFailedReadIsToldAndOffersNothing) {
    window.run([&] {
        window.listAll();
        window.line->statements.clear();
        window.detail.On_CBJRowChange(-1);
        for (auto failing = static_cast<int>(window.line->statements.size()); failing > 0; --failing) {
            window.line->failAt(failing);
            window.search.tdbCBJ.setCurrentRow(failing % 2 + 1);
            window.line->failAt(0);
            EXPECT_EQ(window.box(), "처방전관리: 처방전상세정보 읽는 중 에러 발생") << failing;
            EXPECT_FALSE(window.detail.shownKey() || window.detail.state.sschkCBJmUpdate.visible() ||
                         window.detail.state.ssrCBJmCancel.visible());
        }
        window.search.tdbCBJ.userRow(window.search.tdbCBJ.currentRow());
        EXPECT_NE(window.detail.shownKey(), 0) << "a press on the row in view reads it again";
    });
}

/// The row changes before any statement and at any yield of a load: at the end the newer order stands there
/// alone.
TEST_F(Detail, ARowChangeWhileLoadingLeavesNoMixture) {
    window.run([&] {
        window.listAll();
        window.search.tdbCBJ.setCurrentRow(2);
        const std::string alone = window.panel();
        for (int moment = 1; moment <= 14; ++moment) {
            window.search.tdbCBJ.setCurrentRow(0);
            EXPECT_NE(window.panel(), alone);
            int left = moment;
            window.desktop.onEvents = [&] {
                if (--left == 0) window.search.tdbCBJ.setCurrentRow(2);
            };
            window.line->before = [&](const std::string&) { window.desktop.onEvents(); };
            window.detail.On_CBJRowChange(-1);
            window.line->before = [](const std::string&) {};
            window.desktop.onEvents = nullptr;
            ASSERT_EQ(window.search.tdbCBJ.currentRow(), 2) << moment;
            EXPECT_EQ(window.panel(), alone) << "moved at " << moment;
        }
    });
}

}  // namespace
}  // namespace zelvo::management
