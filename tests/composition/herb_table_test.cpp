#include "composition/HerbUndo.h"
#include "composition/OrderDesk.h"

namespace zelvo::composition {
namespace {

using testing::OrderDesk;

const std::string angelica = "당귀|토당귀|2|4|320|1280|1|0||", peony = "작약|작약(국산)|3|4|18|72|2|0||";

void pick(OrderDesk& desk) {
    desk.desktop.whenShown("frmYakGukDrug",
                           [&](screen::Window&) { desk.user.key("tdbYakgukDrug", {"Enter"}); });
    desk.user.cellKey("tdbDGL", "약재명", "Enter");
}

TEST(HerbTable, AChangeTellsOn) {
    using enum screen::Answer;
    const auto cell = [](const char* column, const char* text) {
        return [=](OrderDesk& desk) { desk.user.cell("tdbDGL", column, text); };
    };
    const auto note = [](OrderDesk& desk) {
        desk.desktop.whenShown("frmMessage", [&](screen::Window& window) {
            EXPECT_EQ(window.caption(), "당귀");
            desk.user.type("rtxMessage", "술에 씻어");
            desk.user.press("cmdReg");
        });
        desk.user.cellButton("tdbDGL", "비고");
    };
    const struct {
        const char* label;
        std::function<void(OrderDesk&)> gesture;
        std::string line;
        int changed, outdated;
    } cases[] = {
        {"another name", cell("약재명", "인삼"), "인삼||||||1|-1||", 2, 1},
        {"no name", cell("약재명", ""), "|토당귀|2|4|320|1280|1|-1||", 1, 1},
        {"grams", cell("용량(g)", "5.5"), "당귀|토당귀|2|5.5|320|1760|1|0||", 2, 1},
        {"keys that grams don't take", cell("용량(g)", "1-.g 2.3"), "당귀|토당귀|2|1.23|320|394|1|0||", 2, 1},
        {"seven characters at most", cell("용량(g)", "000000012"), "당귀|토당귀|2|0000000|320||1|-1||", 2, 1},
        {"a note", cell("비고", "술"), angelica + "술", 1, 1},
        {"a note by its button", note, angelica + "술에 씻어", 0, 0},
        {"a row behind the last", [](OrderDesk& desk) { desk.user.cellKey("tdbDGL", "비고", "Enter"); },
         angelica + "\n|||||||||", 0, 0},
        {"a herb for the same grams", pick, "당귀|토당귀|2|4|320|1,280|1|0||", 1, 1},
        {"not deleted",
         [](OrderDesk& desk) {
             desk.add(peony);
             desk.desktop.answer(No);
             desk.user.press("sscDrugDelete");
             desk.desktop.takeBox();
         },
         angelica + "\n" + peony, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        OrderDesk desk;
        desk.add(angelica);
        desk.run([&] { c.gesture(desk); });
        EXPECT_EQ(desk.lines(), c.line);
        EXPECT_EQ(desk.changed, c.changed);
        EXPECT_EQ(desk.gate.outdated, c.outdated);
    }
}

TEST(LeftOut, AResetTakesTheHerbsOutOfItAndAnUndoBringsThemBack) {
    const std::string told = "한약국의 목록에 없어 가져오지 못한 항목이 있습니다.",
                      herbs = " [약재 감초 4g] [약재 이름 없음]";
    for (const std::string addOn : {"", " [제형변화 녹용]"}) {
        OrderDesk desk;
        HerbUndo undo(desk.form, desk.session, desk.herbs, desk.dose.txtChubsu, desk.leftOut, desk.gate);
        desk.add(angelica);
        desk.leftOut.setText(told + " [약재 감초 4g]" + addOn);
        desk.leftOut.tellHerbs({{"", ""}});
        desk.run([&] {
            desk.desktop.answer(screen::Answer::Yes);
            desk.user.press("sscDrugReset");
            desk.desktop.takeBox();
            EXPECT_EQ(desk.leftOut.text(), addOn.empty() ? "" : told + addOn);
            EXPECT_EQ(desk.leftOut.c1eLeftOut.visible(), !addOn.empty());
            desk.user.shortcut("Ctrl+Z");
            EXPECT_EQ(desk.leftOut.text(), told + addOn + herbs);
        });
    }
}

TEST(HerbMerge, BringsStoredHerbsToTodaysCatalogue) {
    const std::string merged = "당귀|토당귀|2|4|320|1280|1|0|1|";
    const struct {
        const char* label;
        std::string before, stored, after;  // stored: name, key, grams, note
        int failAt = 0;
    } cases[] = {
        {"a plain copy", "", "당귀|2|4|\n당귀|2|6|술", angelica + "\n당귀|토당귀|2|6|320|1920|2|0||술"},
        {"no longer sold", "", "감초|4|1|구워", "감초|||1|||1|-1||구워"},
        {"without a price today", "", "천궁|5|2|", "천궁|||2|||1|-1||"},
        {"without a pharmacy name", "", "녹각|6|3|", "녹각||||||1|-1||"},
        {"without grams", "", "당귀|2||", "당귀|토당귀|2||320||1|-1||"},
        {"less than half a won", "", "계피|7|4|", "계피|계피(베트남)|7|4|0.02||1|-1||"},
        {"a larger older one", angelica + "\n" + peony, "참당귀|2|3.9|", merged + "\n" + peony},
        {"an equal one", angelica, "참당귀|2|4.0|", merged},
        {"a larger new one", angelica, "참당귀|2|10|", "참당귀|토당귀|2|10|320|3200|1|0|1|"},
        {"an older one without grams", "당귀|토당귀|2||320", "당귀|2|4|", merged},
        {"others", angelica, "감초|4|1|\n작약|3|4|",
         angelica + "\n감초|||1|||2|-1|1|\n작약|작약(국산)|3|4|18|72|3|0|1|"},
        {"no date from the database", "", "당귀|2|4|", "당귀|||4|||1|-1||", 1},
        {"no price from the database", "", "당귀|2|4|", "당귀|||4|||1|-1||", 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        OrderDesk desk;
        desk.add(c.before);
        tables::XArrayDB rows;
        rows.reDim(-1, 3);
        testing::addRows(rows, 0, c.stored);
        screen::Grid detail(desk.form, "tdbDetail", {},
                            {{"약재명"}, {"한약국약재PK"}, {"용량(g)"}, {"비고"}});
        detail.bind(&rows);
        desk.line->failAt(c.failAt);
        desk.herbs.Load_DrugFromGrid(detail);
        EXPECT_EQ(desk.lines(), c.after);
    }
}

}  // namespace
}  // namespace zelvo::composition
