#include "screen/ScreenTest.h"

namespace zelvo::screen {
namespace {

/// A field that says when it is left.
struct LoggingField : TextField {
    LoggingField(ScreenTest& test, const std::string& name, Place place = {})
        : TextField(test.form, name, place), says(test.says("leave-" + name)) {
        onFocus.add(test.says("+" + name));
        onLostFocus.add(test.says("-" + name));
    }
    void leave() override {
        says();
        if (whenLeft) whenLeft();
    }
    std::function<void()> says, whenLeft;
};

/// Main tabs with two pages; on page 0 stand a, a further tab control with b and c on its pages, and d in a
/// panel; e on page 1.
struct FocusTest : ScreenTest {
    std::string focused() const { return form.focus() ? form.focus()->name() : "none"; }

    TabControl main{form, "c1tMain", {"0", "1"}};
    LoggingField a{*this, "a", main.page(0)};
    TabControl inner{form, "c1tInner", {"0", "1"}, main.page(0)};
    LoggingField b{*this, "b", inner.page(0)}, c{*this, "c", inner.page(1)};
    Panel panel{form, "c1ePanel", main.page(0)};
    LoggingField d{*this, "d", panel.inside()};
    LoggingField e{*this, "e", main.page(1)};
};

TEST_F(FocusTest, MovesInTheOrderLeaveLostPagesEntering) {
    main.onClick.add(says("click"));
    const auto turned = form.onTouched.listen([&](Field* field) {
        if (field == &main || field == &inner) log += field->name() + " ";
    });
    b.setFocus();
    EXPECT_EQ(take(), "") << "nothing runs before the window is shown";
    desktop.show(form, [&] {
        EXPECT_EQ(take(), "+b ");
        e.setFocus();
        EXPECT_EQ(take(), "leave-b -b c1tMain +e ");
        e.setFocus();
        EXPECT_EQ(take(), "") << "it has it";
        c.setFocus();
        EXPECT_EQ(take(), "leave-e -e c1tInner c1tMain +c ");
        panel.setEnabled(false);
        d.setFocus();
        EXPECT_EQ(take(), "");
        main.setSelectable(1, false);
        take();
        e.setFocus();
        EXPECT_EQ(take(), "") << "a page that can't be turned to";
    });
}

TEST_F(FocusTest, TheLastMoveOfACascadeWins) {
    b.onFocus.add([&] { c.setFocus(); });
    b.onFocus.add(says("stale"));
    a.setEnabled(false);
    desktop.show(form, [&] {
        EXPECT_EQ(take(), "+b leave-b -b +c ") << "the first reachable field sends it on";
        a.setEnabled(true);
        c.whenLeft = [&] {
            if (!d.hasFocus()) d.setFocus();
        };
        a.setFocus();
        EXPECT_EQ(take(), "leave-c +d -c ") << "a is never entered";
        d.whenLeft = [&] { d.setFocus(); };
        a.setFocus();
        EXPECT_EQ(focused(), "d") << "sent back by its own leaving";
        EXPECT_EQ(take(), "leave-d +d ");
        d.whenLeft = nullptr;
        d.onLostFocus.add([&] { form.unload(); });
        a.setFocus();
        EXPECT_EQ(take(), "leave-d -d ") << "nothing is entered in a window that goes";
    });
}

TEST_F(FocusTest, TabMoves) {
    form.setMainTabs(&main);
    form.setTabOrder({"d", "a", "d"});
    const auto fourMoves = [&] {
        std::string path;
        d.setFocus();
        for (int i = 0; i < 4; ++i) {
            keys({"Tab"});
            path += focused();
        }
        return path;
    };
    desktop.show(form, [&] {
        EXPECT_EQ(fourMoves(), "abcd") << "inner pages are turned, main pages are not";
        form.moveFocus(true);
        EXPECT_EQ(focused(), "c") << "backward, round the end: e stands on another main page";
        a.setTabStop(false);
        EXPECT_EQ(fourMoves(), "bcdb");
        inner.setSelectable(1, false);
        EXPECT_EQ(fourMoves(), "bdbd") << "a page that can't be turned to";
        inner.setVisible(false);
        a.setTabStop(true);
        EXPECT_EQ(fourMoves(), "adad") << "a hidden holder";
        for (Field* field : form.fields()) field->setEnabled(false);
        form.moveFocus();
        EXPECT_EQ(focused(), "d") << "nowhere to go";
    });
}

TEST_F(FocusTest, AClickTakesTheFocusFirstAndIsLostWhereThatGoesElsewhere) {
    Button button(form, "sscOne");
    button.onPress.add(says("press"));
    main.onClick.add([&] { log += "click" + std::to_string(main.current()) + " "; });
    main.setSelectable(0, false);
    desktop.show(form, [&] {
        take();
        button.userPress();
        EXPECT_EQ(take(), "leave-a -a press ");
        a.setFocus();
        EXPECT_TRUE(main.userClick(1) && main.userClick(1) && !main.userClick(0));
        EXPECT_EQ(take(), "+a leave-a click1 leave-a -a +e leave-e click1 ");
        main.setSelectable(0, true);
        a.setFocus();
        a.onLostFocus.add([&] { a.setFocus(); });
        button.userPress();
        EXPECT_EQ(take(), "leave-e -e +a leave-a -a +a ");
    });
}

}  // namespace
}  // namespace zelvo::screen
