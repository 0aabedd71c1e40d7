#include "composition/OrderDesk.h"

namespace zelvo::testing {

using screen::BoxIcon;

TEST(DoseFields, PacketsMakeTheHerbPrice) {
    const struct {
        const char *name, *typed, *packets, *price;
        int outdated;
    } cases[] = {
        {"each keystroke is a price of its own", "20", "20", "30,000", 2},
        {"leading zeros go", "007", "7", "10,500", 1},
        {"nothing is written for no packets", "0", "0", "", 0},
        {"a blank between digits goes at once", "1 2", "12", "18,000", 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        OrderDesk desk;
        desk.addHerb("1,200");
        desk.addHerb("300");
        desk.desktop.show(desk.form, [&] { desk.user.type("txtChubsu", c.typed); });
        EXPECT_EQ(desk.text("txtChubsu"), c.packets);
        EXPECT_EQ(desk.text("txtDrugPrice"), c.price);
        EXPECT_EQ(desk.watch.outdated, c.outdated);
    }
}

TEST(DoseFields, PacketsThatCanNotBePriced) {
    const std::string noNumber = "[첩수]를 숫자로 입력해 주십시오.", red = "약재정보를 다시 확인바랍니다.";
    const struct {
        const char *amount, *state, *pasted, *left, *focus, *caption;
        std::string text;
    } cases[] = {{"100", "0", "2a", "", "txtChubsu", "처방전 약재구성", noNumber},
                 {"100", "-1", "20", "", "tdbDGL", "처방전 약재구성", red},
                 {"100", "", "20", "", "tdbDGL", "처방전 약재구성", red},
                 {"2147483647", "0", "20", "20", "txtChubsu", "약재가격 계산 오류", ""},  // the sum
                 {"1073741800", "0", "20", "20", "txtChubsu", "약재가격 계산 오류", ""},  // the product
                 {"백원", "0", "20", "20", "txtChubsu", "약재가격 계산 오류", ""}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.amount) + " " + c.state + " " + c.pasted);
        OrderDesk desk;
        desk.addHerb("100");
        desk.addHerb(c.amount, c.state);
        desk.dose.txtDrugPrice.setText("9,900");
        desk.desktop.show(desk.form, [&] {
            desk.user.paste("txtChubsu", c.pasted);
            EXPECT_EQ(desk.focus(), c.focus);
        });
        EXPECT_EQ(desk.text("txtChubsu"), c.left);
        EXPECT_EQ(desk.text("txtDrugPrice"), "");
        EXPECT_GT(desk.watch.outdated, 0);
        EXPECT_EQ(desk.herbs.tdbDGL.currentRow(), c.text == red ? 1 : 0);
        const screen::MessageBox box = desk.desktop.takeBox();
        EXPECT_EQ(box.caption, c.caption);
        EXPECT_EQ(box.text.substr(0, c.text.size()), c.text);
        EXPECT_EQ(box.icon, c.text == noNumber ? BoxIcon::Information : BoxIcon::Critical);
    }
}

TEST(DoseFields, PacketsNeedHerbs) {
    OrderDesk desk;
    desk.desktop.show(desk.form, [&] {
        desk.user.type("txtChubsu", "20");
        EXPECT_EQ(desk.focus(), "tdbDGL");
    });
    EXPECT_EQ(desk.text("txtChubsu"), "");
    desk.desktop.expectBox("약재 정보", "약재를 구성하여 주십시오.");
}

TEST(DoseFields, CompositionEmptiedWhileItIsPriced) {
    OrderDesk desk;
    desk.addHerb("1,200");
    desk.addHerb("300");
    desk.desktop.onEvents = [&] {
        desk.session.g_xaDrug.reDim(-1, 10);
        desk.herbs.onCompositionChanged();
    };
    desk.desktop.show(desk.form, [&] { desk.user.paste("txtChubsu", "20"); });
    EXPECT_EQ(desk.text("txtChubsu"), "");
    EXPECT_EQ(desk.text("txtDrugPrice"), "");
}

TEST(DoseFields, DaysTimesPacksMakeThePouches) {
    OrderDesk desk;
    desk.desktop.show(desk.form, [&] {
        desk.user.type("txtTuyakilsu", "7");
        EXPECT_EQ(desk.text("txtPouchTotal"), "");
        desk.user.type("txtDayTuyak", "2.5");
        EXPECT_EQ(desk.text("txtPouchTotal"), "17.5");
        desk.user.paste("txtPouchTotal", "0");  // a value by hand stands
        EXPECT_EQ(desk.text("txtPouchTotal"), "17.50");
        desk.user.type("txtTuyakilsu", "0");
        EXPECT_EQ(desk.text("txtPouchTotal"), "175");
        desk.user.key("txtDayTuyak", {"Backspace", "Backspace", "Backspace"});
        EXPECT_EQ(desk.text("txtPouchTotal"), "");
    });
}

TEST(DoseFields, WhatIsNoNumberIsRefused) {
    OrderDesk desk;
    desk.desktop.show(desk.form, [&] {
        using Case = std::pair<const char*, const char*>;
        for (const auto& [field, told] :
             {Case{"txtTuyakilsu", "[복용일]을"}, Case{"txtDayTuyak", "[1일 복용 팩수]를"},
              Case{"txtPouchAmount", "[1팩 용량]을"}, Case{"txtPouchTotal", "[총파우치]를"}}) {
            desk.user.paste(field, " 1x");
            EXPECT_EQ(desk.text(field), "");
            desk.desktop.expectBox("탕전 정보", std::string(told) + " 숫자로 입력해 주십시오.");
        }
    });
}

TEST(DoseFields, OnlyANewPouchTakesTheConfirmationBack) {
    OrderDesk desk;
    const auto outdatedBy = [&](const std::function<void()>& act) {
        desk.watch.outdated = 0;
        act();
        return desk.watch.outdated > 0;
    };
    desk.desktop.show(desk.form, [&] {
        EXPECT_TRUE(outdatedBy([&] { desk.user.type("txtPouchAmount", "9"); }));
        EXPECT_FALSE(outdatedBy([&] { desk.user.type("txtPouchAmount", " "); })) << "a blank goes at once";
        EXPECT_TRUE(outdatedBy([&] { desk.user.key("txtPouchAmount", {"Backspace"}); })) << "emptied";
        EXPECT_FALSE(outdatedBy([&] { desk.user.type("txtPouchAmount", "9"); })) << "the old value";
    });
}

}  // namespace zelvo::testing
