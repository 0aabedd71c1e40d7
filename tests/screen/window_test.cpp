#include "screen/Window.h"

#include <gtest/gtest.h>

#include "screen/Fields.h"
#include "screen/TextField.h"
#include "support/TestDesktop.h"

namespace zelvo::screen {
namespace {

struct WindowTest : ::testing::Test {
    WindowTest() {
        combo.addEntry("entry");
        list.addItem("item");
        form.onUnload.add([this] { log += "unload "; });
        go.onPress.add([this] {
            log += "go{ ";
            desktop.yield();
            if (during) during();
            log += "} ";
        });
        form.onResize.add([this] { log += "resize "; });
        text.onKeyPress.add([this](char32_t&) { log += "key "; });
        text.onChange.add([this] { log += "change "; });
        check.onClick.add([this] { log += "check "; });
        combo.onSelect.add([this] { log += "combo "; });
        list.onItemClick.add([this](int) { log += "list "; });
        tabs.onClick.add([this] { log += "tab "; });
        date.onChange.add([this] { log += "date "; });
    }
    std::string take() { return std::exchange(log, {}); }
    /// At the next pass of the event loop, and at that one only.
    void atYield(std::function<void()> act) {
        desktop.onEvents = [this, run = std::move(act)] {
            desktop.onEvents = nullptr;
            run();
        };
    }

    std::string log;
    std::function<void()> during;
    testing::TestDesktop desktop;
    Window form{desktop, "frmTest", 1000, 1000};
    TextField text{form, "txtOne"};
    Button go{form, "sscGo"};
    CheckButton check{form, "chkOne"};
    ComboList combo{form, "cboOne"};
    ItemList list{form, "lstOne"};
    TabControl tabs{form, "c1tOne", {"a", "b"}};
    DateField date{form, "dtpOne"};
};

TEST_F(WindowTest, InputDuringAnActionWaitsUntilItHasEnded) {
    const basics::Date day{2024, 5, 6};
    text.onFocus.add([&] { log += "focus "; });
    const std::vector<std::pair<std::string, std::function<void()>>> inputs{
        {"go{ } ", [&] { go.userPress(); }},
        {"resize ", [&] { form.userResize(500, 400); }},
        {"check ", [&] { check.userClick(); }},
        {"combo ", [&] { combo.userSelect(0); }},
        {"list ", [&] { list.userClick(0); }},
        {"tab ", [&] { tabs.userClick(1); }},
        {"date ", [&] { date.userSetValue(day); }},
        {"change ", [&] { text.userInsert("x"); }},
        {"focus key change ", [&] { form.userFocus(text), form.userKey(Key::typed(U'y')); }},
    };
    desktop.show(form, [&] {
        take();
        for (const auto& [result, input] : inputs) {
            atYield(input);
            go.userPress();
            EXPECT_EQ(take(), "go{ } " + result);
        }
        atYield([&] {
            for (const auto& [result, input] : inputs) input();
            EXPECT_TRUE(form.busy());
        });
        text.setText("");
        date.setValue({});
        take();
        go.userPress();
        EXPECT_EQ(take(), "go{ } go{ } resize check combo list tab date change focus key change ")
            << "in their order";
        {
            const Window::Action action(form);
            check.userClick();
            text.setText("direct");
            EXPECT_EQ(take(), "change ");
        }
        EXPECT_EQ(take(), "check ");
    });
}

TEST_F(WindowTest, AWaitThatAllowsInputLetsItInButNotIntoThatInputsOwnAction) {
    desktop.show(form, [&] {
        atYield([&] { check.userClick(); });
        during = [&] {
            during = nullptr;
            const Window::InputAllowed allowed(form);
            log += "wait ";
            atYield([&] {
                go.userPress();  // its own yield brings the next click
            });
            desktop.processEvents(true);
            atYield([&] { combo.userSelect(0); });
            go.userPress();
            log += "waited ";
        };
        go.userPress();
        EXPECT_EQ(take(), "go{ check wait go{ } go{ } combo waited } ");
    });
}

TEST_F(WindowTest, ClosesAtEveryMomentOnceTheActionHasEnded) {
    enum Moment { FirstFocus, Preview, KeyDown, KeyPress, Change, LostFocus, Press, Moments };
    const std::vector<std::function<void(Window&)>> ways{&Window::userClose, &Window::unload, &Window::hide};
    for (int moment = FirstFocus; moment < Moments; ++moment) {
        for (std::size_t way = 0; way < ways.size(); ++way) {
            SCOPED_TRACE("moment " + std::to_string(moment) + ", way " + std::to_string(way));
            Window window(desktop, "frmOther", 10, 10);
            TextField field(window, "txt");
            Button button(window, "ssc");
            int unloads = 0, ran = 0, presses = 0;
            window.onUnload.add([&] { ++unloads; });
            bool told = false;
            const auto touched = window.onTouched.listen([&](Field*) { told = told || window.leaving(); });
            const auto goes = [&, moment](int now) {
                if (now != moment) return;
                ++ran;
                button.userPress();  // waits, and is dropped
                ways[way](window);
                EXPECT_FALSE(window.leaving()) << "the action still runs";
                EXPECT_EQ(unloads, 0);
            };
            field.onFocus.add([&] { goes(FirstFocus); });
            window.onKeyPreview.add([&](int&) { goes(Preview); });
            field.onKeyDown.add([&](int&) { goes(KeyDown); });
            field.onKeyPress.add([&](char32_t&) { goes(KeyPress); });
            field.onChange.add([&] { goes(Change); });
            field.onLostFocus.add([&] { goes(LostFocus); });
            button.onPress.add([&] { goes(Press); });
            button.onPress.add([&] { ++presses; });
            const auto script = [&] {
                window.userKey(Key::typed(U'x'));
                button.userPress();
                EXPECT_TRUE(window.leaving());
                button.userPress();
            };
            moment == FirstFocus ? window.showModal() : desktop.show(window, script);
            EXPECT_EQ(ran, 1);
            EXPECT_TRUE(told) << "the toolkit learns that its run ends";
            EXPECT_EQ(presses, moment == Press ? 1 : 0);
            EXPECT_EQ(desktop.front(), nullptr);
            window.unload();
            window.unload();
            EXPECT_EQ(unloads, 1);
            window.showModal();  // an unloaded window is not shown again: its script would be missed
        }
    }
}

TEST_F(WindowTest, ACloseAtEveryYieldOfALongActionWaitsForItsEnd) {
    during = [&] {
        for (int row = 0; row < 3; ++row) {
            desktop.yield();
            EXPECT_FALSE(form.leaving());
        }
        log += form.closing() ? "asked " : "";
    };
    desktop.onEvents = [&] {
        go.userPress();
        form.userClose();
        form.userKey(*Key::named("Esc"));
    };
    desktop.show(form, [&] { go.userPress(); });
    EXPECT_EQ(take(), "go{ asked } unload ");
}

TEST_F(WindowTest, AWindowInFrontTakesTheInputAndReturningIsNoEntering) {
    text.onFocus.add([&] { log += "focus "; });
    desktop.show(form, [&] {
        take();
        text.onKeyDown.add([&](int& code) {
            code = 0;
            Window note(desktop, "frmNote", 1, 1);
            TextField inside(note, "txtNote");
            inside.onFocus.add([&] { log += "inside "; });
            desktop.show(note, [&] {
                EXPECT_EQ(desktop.front(), &note);
                form.userClose();
                note.userKey(Key::typed(U'n'));
                log += inside.text() + " ";
            });
            EXPECT_EQ(desktop.front(), &form);
            desktop.inform("a", "b");
            desktop.expectBox("b", "a");
            log += "back ";
        });
        form.userKey(Key::typed(U'x'));
        EXPECT_TRUE(form.leaving());
        EXPECT_EQ(take(), "inside n back ");
    });
    EXPECT_EQ(take(), "unload ");
}

TEST_F(WindowTest, AWindowShownInsideItsOwnActionRunsAndEndsWithThatAction) {
    {
        const Window::Action flow(form);
        desktop.show(form, [&] {
            EXPECT_FALSE(form.busy());
            check.userClick();
            form.userClose();
            EXPECT_TRUE(form.leaving());
        });
        EXPECT_FALSE(form.shown());
        EXPECT_EQ(take(), "check ") << "still in the flow";
    }
    EXPECT_EQ(take(), "unload ");
}

TEST_F(WindowTest, AFaultEndsItsInputOnly) {
    desktop.show(form, [&] {
        during = [&] {
            during = nullptr;
            check.userClick();
            throw basics::Fault("x");
        };
        EXPECT_THROW(go.userPress(), basics::Fault);
        EXPECT_FALSE(form.busy());
        go.userPress();
        EXPECT_EQ(take(), "go{ check go{ } ");
    });
    take();
    Window broken(desktop, "frmBroken", 1, 1);
    broken.onUnload.add([&] { log += "unload "; });
    EXPECT_THROW(desktop.show(broken, [] { throw basics::Fault("y"); }), basics::Fault);
    EXPECT_EQ(take(), "unload ") << "it closes, however it closes";
    EXPECT_EQ(desktop.front(), nullptr);
}

TEST_F(WindowTest, AKeyRunsItsStepsUntilOneSwallowsIt) {
    text.onKeyPress.add([&](char32_t& character) { log += std::to_string(character) + " "; });
    int swallow = 0;
    const auto step = [&](int number, const std::string& name) {
        return [&, number, name](auto& key) {
            log += name + " ";
            if (swallow == number) key = 0;
        };
    };
    form.onKeyPreview.add(step(1, "preview"));
    text.onKeyDown.add(step(2, "down"));
    text.onKeyPress.add(step(3, "press"));
    text.setMultiLine(true);
    desktop.show(form, [&] {
        const std::vector<std::pair<Key, std::string>> keys{
            {Key::typed(U'a'), "preview down key 97 press change "},
            {*Key::named("Enter"), "preview down key 13 press change "},
            {*Key::named("Backspace"), "preview down key 8 press change "},
            {*Key::named("Esc"), "preview down key 27 press "},
            {*Key::named("Left"), "preview down "},
            {*Key::named("Delete"), "preview down change "},
            {*Key::named("Tab"), "preview down "},
        };
        text.setText("a");
        take();
        for (const auto& [key, steps] : keys) {
            text.setFocus();
            form.userKey(key);
            EXPECT_EQ(take(), steps) << key.code;
        }
        EXPECT_TRUE(go.hasFocus());
        text.setFocus();
        for (const auto& [number, steps] : std::vector<std::pair<int, std::string>>{
                 {1, "preview "}, {2, "preview down "}, {3, "preview down key 120 press "}}) {
            swallow = number;
            form.userKey(Key::typed(U'x'));
            EXPECT_EQ(take(), steps);
        }
        swallow = 2;
        form.userKey(*Key::named("Tab"));
        EXPECT_TRUE(text.hasFocus());
        take();
    });
}

TEST_F(WindowTest, AKeyBelongsToTheFieldThatHadTheFocusAndMayBeChanged) {
    TextField second(form, "txtTwo");
    text.onKeyDown.add([&](int&) { second.setFocus(); });
    text.onKeyPress.add([&](char32_t& character) { character = U'b'; });
    desktop.show(form, [&] {
        form.userKey(Key::typed(U'a'));
        EXPECT_EQ(text.text(), "b");
        EXPECT_EQ(second.text(), "");
    });
}

TEST_F(WindowTest, InjectedKeysArriveAfterTheEventThatSentThem) {
    desktop.sendKeys("{TAB}");
    TextField second(form, "txtTwo");
    form.setTabOrder({"txtOne", "txtTwo"});
    text.onFocus.add([&] { desktop.sendKeys("{end}"); });
    text.onKeyDown.add([&](int& code) {
        if (code != keys::enter) return;
        code = 0;
        desktop.sendKeys("{TAB}");
        EXPECT_TRUE(text.hasFocus());
        desktop.deliverKeys();
        EXPECT_TRUE(text.hasFocus()) << "not inside the running event";
    });
    text.setText("abc");
    text.select(0, 0);
    desktop.show(form, [&] {
        EXPECT_TRUE(text.hasFocus()) << "what was sent while no window stood is lost";
        EXPECT_EQ(text.selectionStart(), 3u) << "the key of the first focus came before the user's";
        form.userKey(*Key::named("Enter"));
        desktop.deliverKeys();
        EXPECT_TRUE(second.hasFocus());
        int rounds = 0;
        second.onKeyDown.add([&](int&) {
            ++rounds;
            desktop.sendKeys("{END}");
        });
        desktop.sendKeys("{END}");
        desktop.deliverKeys();
        EXPECT_EQ(rounds, 1000) << "keys that send keys come to an end";
        desktop.deliverKeys();
        EXPECT_EQ(rounds, 1000);
    });
}

}  // namespace
}  // namespace zelvo::screen
