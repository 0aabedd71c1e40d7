// A composition stored as a prescription of the doctor's own, and what a killed program leaves of it.
#include <gtest/gtest.h>

#include "LibraryDesk.h"
#include "support/Killing.h"

namespace zelvo::composition {
namespace {

using screen::Answer;
using screen::BoxIcon;
using testing::LibraryDesk;

TEST(SavedPrescription, IsStoredAsItWasComposedOrNotAtAll) {
    struct Case {
        std::string name, rows;
        const char *caption, *text;
        int failing = 0;  ///< the call that fails
        bool stored = false;
        std::optional<data::CommitOutcome> commit = {};
    };
    const std::string sound = "당귀|토당귀|2|5.5|320|1760|1|0||볶'은\n작약|작약(국산)|3|4|18|72|2|0|1|";
    const char
        *own = "내약속처방 등록",
        *header = "내약속처방으로 등록중 오류가 발생했습니다.", *herbs = "처방약재 추가오류",
        *lines = "처방약재 추가 중 오류가 발생했습니다.",
        *unknown =
            "등록 결과를 확인할 수 없습니다. ZELVO를 다시 시작하여 [처방읽어오기]에서 확인하여 주십시오.";
    std::vector<Case> cases{
        {"whole", sound, "내약속처방등록", "내약속처방에 등록되었습니다.", 0, true},
        {"a row that nothing has checked", "|||||||||\n" + sound, herbs, lines},
        {"too much for an order number", "당귀|토당귀|2|5|1|5|40000|0||", herbs, lines},
        {"its answer is lost", sound, own, unknown, 0, true, data::CommitOutcome::Unknown},
    };
    // Begin, time, header, its key, two lines, commit.
    for (int call = 1; call <= 7; ++call) {
        const bool atLines = call == 5 || call == 6;
        cases.push_back({std::to_string(call), sound, atLines ? herbs : own, atLines ? lines : header, call});
    }
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        LibraryDesk desk;
        desk.add(each.rows);
        desk.gate.outdated = 0;
        desk.line->tellsKeys = false;
        const std::string before = desk.stored(), composed = desk.lines();
        desk.line->nextCommit = each.commit;
        desk.run([&] {
            desk.line->failAt(each.failing);
            desk.save(" O'Neil 50%_[x] ", " it's\r\n50% ");
        });
        desk.desktop.expectBox(each.caption, each.text,
                               each.name == "whole" ? BoxIcon::Information : BoxIcon::Critical);
        EXPECT_EQ(
            desk.stored(),
            before + (each.stored ? "7|1|O'Neil 50%_[x]|it's\r\n50%|당귀 2 5.5 1 볶'은,작약 3 4 2 \n" : ""));
        EXPECT_EQ(desk.lines(), composed);
        EXPECT_EQ(desk.gate.outdated, 0);
    }
}

TEST(SavedPrescription, NeedsHerbsANameAndADoctor) {
    LibraryDesk desk;
    const std::string before = desk.stored();
    desk.run([&] {
        desk.user.press("sscMyChubangReg");  // nothing is composed: nobody asks
        desk.add("당귀|토당귀|2|5|320|1600|1|0||");
        desk.desktop.whenShown("frmMyChuBang", [&](screen::Window&) {
            desk.user.paste("txtCBName", " \t");
            desk.user.press("cmdSave");
            desk.desktop.expectBox("내약속처방 등록", "처방명을 입력해 주십시오.");
            desk.user.press("cmdCancel");
        });
        desk.user.press("sscMyChubangReg");
        EXPECT_EQ(desk.stored(), before);
        desk.save("나방");
        desk.desktop.takeBox();
        desk.session.m_DTRPK = 0;
        desk.user.press("sscMyChubangReg");
        desk.desktop.expectBox("내약속처방으로 등록", "로그인 후에 사용하십시오.(m_DTRPK = 0)");
    });
    EXPECT_EQ(desk.pharmacy->value("SELECT count(*) FROM t_UserChubang WHERE UCB_Name = '나방'"), "2");
}

/// Killed before each call of the two units of work, and behind them: whole or nothing.
TEST(SavedPrescription, AKillLeavesAllOrNothing) {
    if (!testing::canDie()) GTEST_SKIP();
    for (const bool deleting : {false, true}) {
        const int calls = deleting ? 3 : 6;
        for (int at = 1; at <= calls + 1; ++at) {
            SCOPED_TRACE((deleting ? "delete, " : "save, ") + std::to_string(at));
            LibraryDesk desk;
            const std::string before = desk.stored();
            ASSERT_TRUE(testing::diesIn([&] {
                LibraryDesk victim(desk.pharmacy);
                victim.add("당귀|토당귀|2|5|320|1600|1|0||\n작약|작약(국산)|3|4|18|72|2|0||");
                const auto dying = [&](const std::function<void()>& act) {
                    testing::dieAt(*victim.line, at);
                    act();
                    testing::die();
                };
                const auto removal = [&] {
                    victim.listMine();
                    victim.desktop.answer(Answer::Yes);
                    dying([&] { victim.user.press("sscDelete"); });
                };
                victim.run(
                    [&] { deleting ? victim.library({removal}) : dying([&] { victim.save("새방"); }); });
            }));
            const std::string after = desk.stored();
            if (at <= calls) {
                EXPECT_EQ(after, before);
            } else if (deleting) {
                EXPECT_EQ(after.find("\n3|"), std::string::npos);
            } else {
                EXPECT_EQ(after, before + "7|1|새방||당귀 2 5 1 ,작약 3 4 2 \n");
            }
            EXPECT_EQ(desk.pharmacy->value("SELECT count(*) FROM t_UserDetail WHERE UCB_PK NOT IN"
                                           " (SELECT UCB_PK FROM t_UserChubang)"),
                      "0");
        }
    }
}

}  // namespace
}  // namespace zelvo::composition
