#include <gtest/gtest.h>

#include "screen/Fields.h"
#include "screen/TextField.h"
#include "screen/Window.h"
#include "support/TestDesktop.h"

namespace zelvo::screen {
namespace {

/// A field that says when it is left.
struct LoggingField : TextField {
    LoggingField(Window& form, const std::string& name, std::string& log, Place place = {})
        : TextField(form, name, place), log_(log) {
        onFocus.add([this] { log_ += "+" + this->name() + " "; });
        onLostFocus.add([this] { log_ += "-" + this->name() + " "; });
    }
    void leave() override {
        log_ += "leave-" + name() + " ";
        if (whenLeft) whenLeft();
    }
    std::function<void()> whenLeft;

private:
    std::string& log_;
};

/// Main tabs with two pages; on page 0 stand a, a further tab control with b and c on its pages, and d in a
/// panel; e on page 1.
struct FocusTest : ::testing::Test {
    std::string take() { return std::exchange(log, {}); }
    void tabKey() { form.userKey(*Key::named("Tab")); }
    std::string focused() const { return form.focus() ? form.focus()->name() : "none"; }

    std::string log;
    testing::TestDesktop desktop;
    Window form{desktop, "frmTest", 1000, 1000};
    TabControl main{form, "c1tMain", {"0", "1"}};
    LoggingField a{form, "a", log, main.page(0)};
    TabControl inner{form, "c1tInner", {"0", "1"}, main.page(0)};
    LoggingField b{form, "b", log, inner.page(0)}, c{form, "c", log, inner.page(1)};
    Panel panel{form, "c1ePanel", main.page(0)};
    LoggingField d{form, "d", log, panel.inside()};
    LoggingField e{form, "e", log, main.page(1)};
};

TEST_F(FocusTest, GoesToTheFirstReachableFieldOrTheOneThatWasGivenItBefore) {
    a.setEnabled(false);
    desktop.show(form, [&] { EXPECT_EQ(take(), "+b "); });
    Window other(desktop, "frmOther", 1, 1);
    LoggingField first(other, "first", log), second(other, "second", log);
    second.setFocus();
    EXPECT_TRUE(second.hasFocus());
    EXPECT_EQ(take(), "") << "nothing runs before the window is shown";
    desktop.show(other, [&] {
        EXPECT_EQ(take(), "+second ");
        other.hide();
    });
    second.setVisible(false);
    desktop.show(other, [&] { EXPECT_EQ(take(), "+first "); });
}

TEST_F(FocusTest, MovesInTheOrderLeaveLostPagesEntering) {
    main.onClick.add([&] { log += "click "; });
    const auto turned = form.onTouched.listen([&](Field* field) {
        if (field == &main || field == &inner) log += field->name() + " ";
    });
    desktop.show(form, [&] {
        take();
        e.setFocus();
        EXPECT_EQ(take(), "leave-a -a c1tMain +e ");
        e.setFocus();
        EXPECT_EQ(take(), "") << "it has it";
        c.setFocus();
        EXPECT_EQ(take(), "leave-e -e c1tInner c1tMain +c ");
        panel.setEnabled(false);
        d.setFocus();
        panel.setFocus();
        EXPECT_EQ(take(), "");
        main.setSelectable(1, false);
        take();
        e.setFocus();
        EXPECT_EQ(take(), "") << "a page that can't be turned to";
        form.userFocus(b);
        EXPECT_EQ(take(), "") << "a user can't reach the other page";
    });
}

TEST_F(FocusTest, TheLastMoveOfACascadeWins) {
    b.onFocus.add([&] { c.setFocus(); });
    b.onFocus.add([&] { log += "stale "; });
    desktop.show(form, [&] {
        take();
        b.setFocus();
        EXPECT_EQ(take(), "leave-a -a +b leave-b -b +c ");
        EXPECT_EQ(focused(), "c");

        c.whenLeft = [&] {
            if (!d.hasFocus()) d.setFocus();
        };
        a.setFocus();
        EXPECT_EQ(take(), "leave-c +d -c ") << "a is never entered";
        EXPECT_EQ(focused(), "d");

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
    form.setTabOrder({"d", "nothing of this name", "a", "d"});
    struct Case {
        std::string name;
        std::function<void()> given;
        std::string path;  // from d on, four moves
    };
    const std::vector<Case> cases{
        {"inner pages are turned, main pages are not", [] {}, "abcd"},
        {"no tab stop", [&] { a.setTabStop(false); }, "bcdb"},
        {"hidden",
         [&] {
             a.setTabStop(true);
             b.setVisible(false);
         },
         "acda"},
        {"holder disabled, from where the focus stood", [&] { panel.setEnabled(false); }, "acac"},
        {"page not selectable",
         [&] {
             panel.setEnabled(true);
             b.setVisible(true);
             inner.select(0);
             inner.setSelectable(1, false);
         },
         "abda"},
        {"holder hidden", [&] { inner.setVisible(false); }, "adad"},
    };
    desktop.show(form, [&] {
        for (const Case& way : cases) {
            SCOPED_TRACE(way.name);
            d.setFocus();
            ASSERT_EQ(focused(), "d");
            way.given();
            std::string path;
            for (int i = 0; i < 4; ++i) {
                tabKey();
                path += focused();
            }
            EXPECT_EQ(path, way.path);
            panel.setEnabled(true);
        }
        inner.setVisible(true);
        d.setFocus();
        form.moveFocus(true);
        EXPECT_EQ(focused(), "b") << "backward, round the end: e stands on another main page";
        for (Field* field : form.fields()) field->setEnabled(false);
        form.moveFocus();
        EXPECT_EQ(focused(), "b") << "nowhere to go";
    });
}

TEST_F(FocusTest, KeysToAFieldThatIsOutOfReachDoNothing) {
    desktop.show(form, [&] {
        const std::vector<std::pair<std::string, std::function<void(bool)>>> ways{
            {"hidden", [&](bool out) { d.setVisible(!out); }},
            {"disabled holder", [&](bool out) { panel.setEnabled(!out); }},
            {"other page", [&](bool out) { main.select(out ? 1 : 0); }}};
        d.onKeyDown.add([&](int&) { log += "key "; });
        for (const auto& [name, way] : ways) {
            SCOPED_TRACE(name);
            d.setFocus();
            take();
            way(true);
            form.userKey(Key::typed(U'x'));
            d.userInsert("y");
            EXPECT_EQ(d.text(), "");
            EXPECT_EQ(take(), "");
            EXPECT_EQ(focused(), "d");
            way(false);
            form.userKey(Key::typed(U'x'));
            EXPECT_EQ(take(), "key ");
            EXPECT_EQ(d.text(), "x");
            d.setText("");
        }
    });
}

TEST_F(FocusTest, AClickOnATabEndsTheEditAndRunsItsEvent) {
    main.onClick.add([&] { log += "click" + std::to_string(main.current()) + " "; });
    main.setSelectable(0, false);
    desktop.show(form, [&] {
        take();
        EXPECT_TRUE(main.userClick(1));
        EXPECT_TRUE(main.userClick(1));
        EXPECT_FALSE(main.userClick(0));
        EXPECT_FALSE(inner.userClick(1)) << "not in front";
        main.select(0);
        EXPECT_EQ(take(), "leave-a click1 leave-a click1 ");
    });
}

TEST_F(FocusTest, AFieldThatGoesAwayLeavesNoTrace) {
    auto gone = std::make_unique<LoggingField>(form, "gone", log);
    EXPECT_THROW(LoggingField(form, "gone", log), basics::Fault) << "a name stands for one field";
    EXPECT_EQ(form.field("gone"), static_cast<Field*>(gone.get()));
    desktop.show(form, [&] {
        gone->setFocus();
        gone->onKeyDown.add([&](int&) { gone.reset(); });
        form.userKey(Key::typed(U'x'));
        EXPECT_EQ(focused(), "none");
        tabKey();
        EXPECT_EQ(focused(), "a");
    });
    EXPECT_EQ(form.field("gone"), nullptr);
}

}  // namespace
}  // namespace zelvo::screen
