// The library of stored prescriptions: its window, and what goes from it into a composition.
#include <gtest/gtest.h>

#include "LibraryDesk.h"

namespace zelvo::composition {
namespace {

using screen::Answer;
using screen::BoxIcon;
using testing::LibraryDesk;

constexpr const char* unread = "데이터베이스 접속에 오류가 발생했습니다.";

TEST(StoredPrescriptions, FindsByNameOrMemoAndOnlyItsOwners) {
    const struct {
        int tab;
        const char *field, *word, *caption, *found, *focus;
    } cases[] = {
        {0, "txtMyChubang", " 방 ", "처방명 = '방' 검색결과", "가방;나방;", "tdbMyChubang"},
        {0, "txtMyChubang", "'50%_[x", "처방명 = ''50%_[x' 검색결과", "다'50%_[x];", "tdbMyChubang"},
        {0, "txtMyChubang", "남의", "처방명 = '남의' 검색결과", "", "txtMyChubang"},
        {0, "txtMyChubangMemo", "겨울", "메모 = '겨울' 검색결과", "나방;", "tdbMyChubang"},
        {1, "txtYakGukChubangRefer", "공", "참고사항 = '공' 검색결과", "한약국방;", "tdbYakGukChubang"},
    };
    LibraryDesk desk;
    desk.run([&] {
        desk.library({[&] {
            for (const auto& each : cases) {
                SCOPED_TRACE(std::string(each.field) + " " + each.word);
                desk.user.tab("c1tabChubangRead", each.tab);
                const std::string list = each.tab == 0 ? "tdbMyChubang" : "tdbYakGukChubang";
                dynamic_cast<screen::EditField&>(*desk.shown->field(each.field)).setText(each.word);
                desk.user.key(each.field, {"Enter"});
                EXPECT_EQ(desk.grid(list).caption(), each.caption);
                EXPECT_EQ(desk.column(list, 1), each.found);
                EXPECT_EQ(desk.shown->focus()->name(), each.focus);
                const bool found = *each.found != '\0';
                EXPECT_EQ(desk.grid(list + "Detail").caption() != " 구성약재", found);
                if (!found) {
                    EXPECT_EQ(desk.grid(list + "Detail").rowCount(), 0);
                }
            }
        }});
    });
}

/// Without herbs in view it only drops the marks; a herb that has left the catalogue is named, and so not
/// lost without a word.
TEST(StoredPrescriptions, AMergeTakesTheHerbsInView) {
    LibraryDesk desk;
    desk.add("당귀|토당귀|2|5|320|1600|1|0|1|");
    desk.run([&] {
        desk.library({[&] {
            desk.merge(0);
            EXPECT_EQ(desk.shown, desk.desktop.front());
            EXPECT_EQ(desk.lines(), "당귀|토당귀|2|5|320|1600|1|0||");
            desk.user.key("txtMyChubang", {"Esc"});
        }});
        EXPECT_EQ(desk.gate.outdated, 0);
        desk.library({[&] {
                          desk.user.type("txtMyChubang", "가방");
                          desk.user.press("sscMyCBsearch");
                          desk.merge(0);
                      },
                      [&] { desk.user.key("txtMyChubang", {"Esc"}); }});
        EXPECT_EQ(desk.leftOut.text(),
                  "한약국의 목록에 없어 가져오지 못한 항목이 있습니다. [약재 없는약 1g]");
        desk.session.m_DTRPK = 0;
        desk.user.press("sscCBJRead");
    });
    desk.desktop.expectBox("처방 읽어오기", "로그인 후에 사용 하십시오.(m_DTRPK = 0)");
}

TEST(StoredPrescriptions, KeepsMemoAndNoteOfTheRowsInHand) {
    const struct {
        const char *name, *refuses;  ///< the table whose changes the database refuses
        std::string memo, note;
    } cases[] = {{"both", "", "it's 50%_[x]\r\n", "'"},
                 {"no memo", "t_UserChubang", "여름", "'"},
                 {"no note", "t_UserDetail", "it's 50%_[x]\r\n", "달인"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        LibraryDesk desk;
        if (*each.refuses) {
            desk.pharmacy->run(std::string("CREATE TRIGGER no BEFORE UPDATE ON ") + each.refuses +
                               " BEGIN SELECT RAISE(ABORT, 'no'); END");
        }
        desk.run([&] {
            desk.library({[&] {
                desk.user.press("sscMemoSave");  // no row: nothing to keep
                desk.listMine();
                dynamic_cast<screen::EditField&>(*desk.shown->field("rtxMyCBMemo"))
                    .setText("it's 50%_[x]\r\n");
                dynamic_cast<screen::EditField&>(*desk.shown->field("rtxMyCBBigo")).setText("'");
                desk.user.press("sscMemoSave");
                EXPECT_EQ(desk.grid("tdbMyChubang").valueAt(0, 3), each.memo);
                EXPECT_EQ(desk.grid("tdbMyChubangDetail").valueAt(0, 7), each.note);
            }});
        });
        if (*each.refuses)
            desk.desktop.expectBox("내약속처방", "메모내용 저장중 오류가 발생했습니다.", BoxIcon::Critical);
        EXPECT_EQ(desk.pharmacy->value("SELECT UCB_Note FROM t_UserChubang WHERE UCB_PK = 3"), each.memo);
        EXPECT_EQ(desk.pharmacy->value("SELECT UDET_Note FROM t_UserDetail WHERE UDET_PK = 31"), each.note);
        EXPECT_EQ(desk.pharmacy->value("SELECT group_concat(UCB_Note) FROM t_UserChubang WHERE UCB_PK <> 3"),
                  "겨울,봄,공용,겨울");
    }
}

TEST(StoredPrescriptions, WhatFailsIsToldAndLeavesTheStoreAsItWas) {
    const char *deleting = "내약속처방 삭제중 오류가 발생했습니다.", *deleted = "내약속처방 삭제";
    const struct {
        const char *name, *act;
        int failing;
        bool stays;
        const char *trigger, *text, *caption;
        BoxIcon icon;
        int rows, herbs;  ///< what the doctor's lists show then
    } cases[] = {
        {"the search", "search", 1, false, "", unread, "내약속처방", BoxIcon::Information, 3, 0},
        {"the search of the pharmacy's", "search1", 1, false, "", unread, "한약국약속처방",
         BoxIcon::Information, 3, 1},
        {"the herbs of a row", "row", 1, false, "", unread, "내약속처방", BoxIcon::Information, 3, 0},
        {"the begin", "delete", 1, false, "", deleting, deleted, BoxIcon::Critical, 3, 1},
        {"the lines", "delete", 2, false, "", deleting, deleted, BoxIcon::Critical, 3, 1},
        {"the header", "delete", 0, false, "t_UserChubang", deleting, deleted, BoxIcon::Critical, 3, 1},
        {"the commit", "delete", 3, false, "", deleting, deleted, BoxIcon::Critical, 3, 1},
        {"another desk", "delete", 0, false, "elsewhere", deleting, deleted, BoxIcon::Critical, 2, 1},
        {"the line at the lines", "delete", 2, true, "", deleting, deleted, BoxIcon::Critical, 3, 1},
        {"the line at the commit", "delete", 3, true, "",
         "삭제 결과를 확인할 수 없습니다. ZELVO를 다시 시작하여 확인하여 주십시오.", deleted,
         BoxIcon::Critical, 0, 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        LibraryDesk desk;
        const std::string before = desk.stored();
        const std::string trigger = each.trigger;
        if (trigger.starts_with("t_")) {
            desk.pharmacy->run(std::string("CREATE TRIGGER no BEFORE DELETE ON ") + each.trigger +
                               " BEGIN SELECT RAISE(ABORT, 'no'); END");
        }
        desk.run([&] {
            desk.library({[&] {
                desk.listMine();
                const std::string act = each.act;
                desk.user.tab("c1tabChubangRead", act == "search1" ? 1 : 0);
                desk.line->staysBroken = each.stays;
                desk.line->failAt(each.failing);
                if (act == "search") desk.user.press("sscMyCBsearch");
                if (act == "search1") desk.user.press("sscYakGukCBsearch");
                if (act == "row") desk.user.row("tdbMyChubang", 1);
                if (trigger == "elsewhere") {
                    desk.pharmacy->run("DELETE FROM t_UserChubang WHERE UCB_PK = " +
                                       desk.grid("tdbMyChubang").value(0));
                }
                if (act == "delete") {
                    desk.desktop.answer(Answer::Yes);
                    desk.user.press("sscDelete");
                    desk.desktop.takeBox();
                }
                desk.desktop.expectBox(each.caption, each.text, each.icon);
                EXPECT_EQ(desk.grid("tdbMyChubang").rowCount(), each.rows);
                EXPECT_EQ(desk.grid("tdbMyChubangDetail").rowCount() > 0, each.herbs > 0);
                EXPECT_EQ(desk.desktop.pointer(), screen::Pointer::Normal);
                if (each.stays || act == "search1") return;
                desk.user.row("tdbMyChubang", desk.grid("tdbMyChubang").currentRow());
                EXPECT_GT(desk.grid("tdbMyChubangDetail").rowCount(), 0)
                    << "a press on the row reads it again";
            }});
        });
        if (trigger != "elsewhere") {
            EXPECT_EQ(desk.stored(), before);
        }
    }
}

}  // namespace
}  // namespace zelvo::composition
