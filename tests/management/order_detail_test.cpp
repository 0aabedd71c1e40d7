#include "support/ManagementWindow.h"

namespace zelvo::management {
namespace {

using testing::ManagementWindow;

/// A cost line: label, amount, note.
struct CostLines {
    explicit CostLines(const ManagementWindow& window) : lines(window.detail.costs.m_xaCBJmCost) {}
    std::string row(int row) const {
        return lines.text(row, 0) + "|" + lines.text(row, 1) + "|" + lines.text(row, 3);
    }
    const tables::XArrayDB& lines;
};

struct Detail : ::testing::Test {
    Detail() {
        for (const int key : {1, 2, 3}) window.put(key);
    }
    /// Calls on the connection while `act` runs.
    int calls(const std::function<void()>& act) {
        window.line->statements.clear();
        act();
        return static_cast<int>(window.line->statements.size());
    }
    ManagementWindow window;
};

TEST_F(Detail, ShowsEverySectionOfAnOrder) {
    window.run([&] {
        EXPECT_EQ(calls([&] { window.listAll(); }), 1 + 11) << "the search, and the statements of one order";
        const std::pair<const char*, const char*> fields[] = {
            {"txtCBJmIsPaid", "지불"},       {"txtCBJmPayMethod", "적립"},
            {"txtCBJmCBMsg", "잘 3"},        {"lblCBJmPatientPK", "4003"},
            {"txtCBJmPatientName", "환자3"}, {"ssoCBJmSex(0)", "on"},
            {"txtCBJmPaTel", "02-800-0003"}, {"txtCBJmPaCell", "010-800-0003"},
            {"txtCBJmPaEmail", "p3@x.kr"},   {"cboCBJmBesongMethod", "택배(환자)"},
            {"txtCBJmBesongDate", ""},       {"txtCBJmHosPital", "한의원3"},
            {"lblCBJmDTRPK", "1"},           {"txtCBJmBalZip", "03003"},
            {"rtxCBJmEatMsg", "식후 3"},     {"txtEatGuideCall2", "02-1-3"},
            {"lblCBJmJobListPK", "5"},       {"txtCBJmJobList", "탕전"},
            {"lblCBJmTJMLPK", "2"},          {"txtCBJmTJML", "압력탕전"},
            {"txtCBJmPouchTotal", "17.5"},   {"txtCBJmChubsu", "20"},
            {"txtCBJmDrugCost", "6,760"},
        };
        for (const auto& [field, text] : fields) EXPECT_EQ(window.say(field), text) << field;
        EXPECT_EQ(window.say("lstCBJmTJAL"), "* 녹용" + std::string(50, ' ') + "1;");
        const CostLines costs(window);
        EXPECT_EQ(costs.row(0), "         [ 합계비용 ]|14,880|처방전 합계비용 = 14,880");
        EXPECT_EQ(
            costs.row(1),
            " 한약국에서 입력한 비용|120|한약국에서 직접 입력한 비용입니다.\r\n[VAT] with\r\n[no VAT] without");
        EXPECT_EQ(costs.row(2) + costs.row(4) + costs.row(11), " 조제비용|3,003|조제 3 탕전비용|| 기타|-3|");
        EXPECT_EQ(window.detail.herbs.tdbCBJmDGL.shownText(0, 6), "320");
    });
}

/// Withdrawn, missing and odd: the panel says what there is and never fails over it.
TEST_F(Detail, ShowsWhatIsLeftOfAnOddOrder) {
    struct Case {
        const char *name, *change, *field, *text;
    };
    const Case cases[] = {
        {"cancelled while waiting", "CBJ_IsCanceled = 1", "lblStatecancel", "취소된 처방전"},
        {"no payment columns", "CBJ_PayMethod = NULL", "txtCBJmPayMethod", ""},
        {"no delivery method", "CBJ_BesongMethod = NULL", "cboCBJmBesongMethod", ""},
        {"unknown delivery method", "CBJ_BesongMethod = 9", "cboCBJmBesongMethod", ""},
        {"no sex", "Patient_Sex = NULL", "ssoCBJmSex(1)", "on"},
        {"no date", "CBJ_Reci_Date = NULL", "txtCBJmBesongDate", ""},
        {"a date", "CBJ_Reci_Date = '2024-05-09'", "txtCBJmBesongDate", "2024-05-09"},
        {"texts with blanks", "CBJ_Msg = '  a  '", "txtCBJmCBMsg", "a"},
        {"no texts", "Patient_Name = NULL, CBJ_Send_Name = NULL, CBJ_Msg = NULL", "txtCBJmPatientName", ""},
        {"type gone", "CBJ_JobList_PK = 99", "lblCBJmJobListPK", "0"},
        {"type withdrawn", "CBJ_JobList_PK = 8", "txtCBJmJobList", "마감"},
        {"decoction gone", "CBJ_TJML_PK = NULL", "txtCBJmDayTuyak", ""},
        {"no slots", "CBJ_TJAL_Slot = NULL", "lstCBJmTJAL", ""},
        {"all slots free", "CBJ_TJAL_Slot = '000'", "lstCBJmTJAL", ""},
        {"slots too long, with other characters", "CBJ_TJAL_Slot = '한x0 21'", "lstCBJmTJAL", ""},
        {"no packets", "CBJ_Chubsu = 0", "txtCBJmDrugCost", ""},
        {"packets unknown", "CBJ_Chubsu = NULL, CBJ_DrugCost = 0", "txtCBJmDrugCost", ""},
    };
    window.run([&] {
        window.listAll();
        for (const Case& test : cases) {
            SCOPED_TRACE(test.name);
            window.pharmacy->run(
                "DELETE FROM t_ChubangJun WHERE CBJ_PK = 3; DELETE FROM t_CBJcostDetail WHERE CBJ_PK = 3;"
                "DELETE FROM t_EatGuide WHERE CBJ_PK = 3; DELETE FROM t_CBJDetail WHERE CBJ_PK = 3");
            window.put(3, test.change);
            window.detail.On_CBJRowChange(-1);
            EXPECT_EQ(window.say(test.field), test.text);
            EXPECT_EQ(window.detail.state.sschkCBJmUpdate.visible(),
                      std::string(test.change) != "CBJ_IsCanceled = 1");
        }
        window.pharmacy->run(
            "DELETE FROM t_EatGuide; DELETE FROM t_CBJcostDetail; UPDATE t_CBJDetail SET DGL_PK = 99;"
            "UPDATE t_TangJunAddList SET TJAL_IsValid = '0';"
            "UPDATE t_ChubangJun SET CBJ_TJAL_Slot = '001' WHERE CBJ_PK = 3");
        window.detail.On_CBJRowChange(-1);
        EXPECT_EQ(CostLines(window).row(0) + CostLines(window).row(2),
                  "         [ 합계비용 ]||처방전 합계비용 =  조제비용||");
        EXPECT_EQ(window.say("rtxCBJmEatMsg") + window.say("tdbCBJmDGL"), "");
        EXPECT_NE(window.say("lstCBJmTJAL"), "") << "an order keeps an add-on that was withdrawn";
    });
}

TEST_F(Detail, EveryFailedReadIsToldAndOffersNothing) {
    window.run([&] {
        window.listAll();
        const int statements = calls([&] { window.detail.On_CBJRowChange(-1); });
        for (int failing = 1; failing <= statements; ++failing) {
            SCOPED_TRACE(failing);
            window.line->failAt(failing);
            window.search.tdbCBJ.setCurrentRow(failing % 2 + 1);
            window.line->failAt(0);
            window.desktop.expectBox("처방전관리", "처방전상세정보 읽는 중 에러 발생",
                                     screen::BoxIcon::Critical);
            EXPECT_EQ(window.detail.shownKey(), 0);
            EXPECT_FALSE(window.detail.state.sschkCBJmUpdate.visible() ||
                         window.detail.state.ssrCBJmCancel.visible());
            EXPECT_EQ(window.desktop.pointer(), screen::Pointer::Normal);
        }
        window.search.tdbCBJ.userRow(window.search.tdbCBJ.currentRow());
        EXPECT_NE(window.detail.shownKey(), 0) << "a press on the row in view reads it again";
    });
}

/// The row changes before any statement and at any yield of a load: what stands at the end is the newer order
/// alone.
TEST_F(Detail, ARowChangeWhileLoadingLeavesNoMixture) {
    window.run([&] {
        window.listAll();
        window.search.tdbCBJ.setCurrentRow(2);
        const std::string alone = window.panel();
        for (int moment = 1; moment <= 14; ++moment) {
            window.search.tdbCBJ.setCurrentRow(0);
            auto move = [&, left = moment]() mutable {
                if (--left == 0) window.search.tdbCBJ.setCurrentRow(2);
            };
            window.desktop.onEvents = std::ref(move);
            window.line->before = [&](const std::string&) { move(); };
            window.detail.On_CBJRowChange(-1);
            window.line->before = [](const std::string&) {};
            window.desktop.onEvents = nullptr;
            ASSERT_EQ(window.search.tdbCBJ.currentRow(), 2) << moment;
            EXPECT_EQ(window.panel(), alone) << "moved at " << moment;
        }
    });
}

TEST_F(Detail, LongTextsOpenInASmallWindow) {
    window.pharmacy->run("UPDATE t_ChubangJun SET CBJ_TJAL_Slot = '0011'");
    std::string opened;
    const auto note = [&](screen::Window& shown) {
        opened = shown.caption() + ": " + dynamic_cast<screen::EditField&>(*shown.field("rtxMessage")).text();
    };
    window.run([&] {
        window.listAll();
        const std::pair<const char*, std::function<void()>> notes[] = {
            {"탕전: 달입니다.", [&] { window.user.press("sscCBJmJobListDetail"); }},
            {"압력탕전: 2시간", [&] { window.user.press("sscCBJmTJMLDetail"); }},
            {"* 녹용: 8g", [&] { window.user.press("sscCBJmTJALDetail"); }},
            {"당귀: 볶은 3", [&] { window.user.cellButton("tdbCBJmDGL", "비고"); }},
            {" 조제비용: 조제 3",
             [&] {
                 window.user.row("tdbCBJmCost", 2);
                 window.user.cellButton("tdbCBJmCost", "자세히");
             }},
        };
        for (const auto& [text, press] : notes) {
            window.desktop.whenShown("frmMessage", note);
            press();
            EXPECT_EQ(opened, text);
        }
        EXPECT_EQ(window.say("lblCBJmTJALDetail"), "");
        window.line->failAt(1);
        window.detail.decoction.lstCBJmTJAL.userClick(0);
        window.desktop.expectBox("처방전 관리", "제형변화의 상세 내용을 가져오는중 에러 발생",
                                 screen::BoxIcon::Critical);
    });
}

}  // namespace
}  // namespace zelvo::management
