#include "screen/Window.h"

#include "screen/ScreenTest.h"

namespace zelvo::screen {
namespace {

struct WindowTest : ScreenTest {
    WindowTest() {
        combo.addEntry("entry");
        go.onPress.add([this] {
            log += "go{ ";
            desktop.yield();
            if (during) std::exchange(during, nullptr)();
            log += "} ";
        });
        form.onUnload.add(says("unload"));
        form.onResize.add(says("resize"));
        text.onFocus.add(says("focus"));
        text.onKeyPress.add([this](char32_t&) { log += "key "; });
        text.onChange.add(says("change"));
        check.onClick.add(says("check"));
        combo.onSelect.add(says("combo"));
        tabs.onClick.add(says("tab"));
        date.onChange.add(says("date"));
    }
    /// At the next pass of the event loop, and at that one only.
    void atYield(std::function<void()> act) {
        desktop.onEvents = [this, run = std::move(act)] {
            desktop.onEvents = nullptr;
            run();
        };
    }
    /// Shows the window and forgets how it came up.
    void show(const std::function<void()>& script) {
        desktop.show(form, [&] {
            take();
            script();
        });
    }

    std::function<void()> during;
    TextField text{form, "txtOne"};
    Button go{form, "sscGo"};
    CheckButton check{form, "chkOne"};
    ComboList combo{form, "cboOne"};
    TabControl tabs{form, "c1tOne", {"a", "b"}};
    DateField date{form, "dtpOne"};
};

TEST_F(WindowTest, InputDuringAnActionWaitsUntilItHasEnded) {
    show([&] {
        atYield([&] {
            go.userPress();
            form.userResize(500, 400);
            check.userClick();
            combo.userSelect(0);
            tabs.userClick(1);
            date.userSetValue({2024, 5, 6});
            text.userInsert("x");
            form.userFocus(text);
            form.userKey(Key::typed(U'y'));
        });
        go.userPress();
        EXPECT_EQ(take(), "go{ } go{ } resize check combo tab date change focus key change ")
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
    during = [&] {
        const Window::InputAllowed allowed(form);
        log += "wait ";
        atYield([&] { go.userPress(); });  // its own yield brings the next click
        desktop.processEvents(true);
        atYield([&] { combo.userSelect(0); });
        go.userPress();
        log += "waited ";
    };
    show([&] {
        atYield([&] { check.userClick(); });
        go.userPress();
        EXPECT_EQ(take(), "go{ check wait go{ } go{ } combo waited } ");
    });
}

TEST_F(WindowTest, ClosesAtEveryMomentOnceTheActionHasEnded) {
    enum Moment { FirstFocus, Preview, KeyDown, KeyPress, Change, LostFocus, Press, Moments };
    const std::vector<std::function<void(Window&)>> ways{&Window::userClose, &Window::unload, &Window::hide};
    for (int each = 0; each < Moments * 3; ++each) {
        const int moment = each / 3, way = each % 3;
        SCOPED_TRACE("moment " + std::to_string(moment) + ", way " + std::to_string(way));
        Window window(desktop, "frmOther", 10, 10);
        TextField field(window, "txt");
        Button button(window, "ssc");
        int unloads = 0, ran = 0, presses = 0;
        window.onUnload.add([&] { ++unloads; });
        const auto goes = [&, moment](int now) {
            if (now != moment) return;
            ++ran;
            button.userPress();  // waits, and is dropped
            ways[way](window);
            window.userClose();
            desktop.yield();
            EXPECT_FALSE(window.leaving()) << "the action still runs";
            EXPECT_EQ(unloads, 0);
        };
        field.onFocus.add([&] { goes(FirstFocus); });
        window.onKeyPreview.add([&](int&) { goes(Preview); });
        field.onKeyDown.add([&](int&) { goes(KeyDown); });
        field.onKeyPress.add([&](char32_t&) { goes(KeyPress); });
        field.onChange.add([&] { goes(Change); });
        field.onLostFocus.add([&] { goes(LostFocus); });
        button.onPress.add([&] { goes(Press), ++presses; });
        const auto script = [&] {
            window.userKey(Key::typed(U'x'));
            button.userPress();
            EXPECT_TRUE(window.leaving());
            button.userPress();
        };
        moment == FirstFocus ? window.showModal() : desktop.show(window, script);
        EXPECT_EQ(ran, 1);
        EXPECT_EQ(presses, moment == Press ? 1 : 0);
        window.unload();
        window.unload();
        EXPECT_EQ(unloads, 1);
    }
}

TEST_F(WindowTest, AWindowInFrontTakesTheInputAndReturningIsNoEntering) {
    text.onKeyDown.add([&](int& code) {
        code = 0;
        Window note(desktop, "frmNote", 1, 1);
        TextField inside(note, "txtNote");
        inside.onFocus.add(says("inside"));
        desktop.show(note, [&] {
            form.userClose();
            note.userKey(Key::typed(U'n'));
            log += inside.text() + " ";
        });
        log += "back ";
    });
    show([&] {
        keys({"x"});
        EXPECT_EQ(take(), "inside n back ");
    });
    EXPECT_EQ(take(), "unload ");
}

TEST_F(WindowTest, AFaultEndsItsInputOnly) {
    during = [&] {
        check.userClick();
        throw basics::Fault("x");
    };
    const auto script = [&] {
        EXPECT_THROW(go.userPress(), basics::Fault);
        go.userPress();
        EXPECT_EQ(take(), "go{ check go{ } ");
        throw basics::Fault("y");
    };
    EXPECT_THROW(show(script), basics::Fault);
    EXPECT_EQ(take(), "unload ") << "it closes, however it closes";
    EXPECT_EQ(desktop.front(), nullptr);
}

TEST_F(WindowTest, InjectedKeysArriveAfterTheEventThatSentThem) {
    desktop.sendKeys("{TAB}");
    text.onFocus.add([&] { desktop.sendKeys("{end}"); });
    text.onKeyDown.add([&](int& code) {
        if (code != screen::keys::enter) return;
        desktop.sendKeys("{TAB}");
        desktop.deliverKeys();
        EXPECT_TRUE(text.hasFocus()) << "not inside the running event";
    });
    text.setText("abc");
    text.select(0, 0);
    int rounds = 0;
    go.onKeyDown.add([&](int&) {
        ++rounds;
        desktop.sendKeys("{END}");
    });
    show([&] {
        EXPECT_TRUE(text.hasFocus()) << "what was sent while no window stood is lost";
        EXPECT_EQ(text.selectionStart(), 3U) << "the key of the first focus came before the user's";
        keys({"Enter"});
        EXPECT_TRUE(go.hasFocus());
        desktop.sendKeys("{END}");
        desktop.deliverKeys();
        EXPECT_EQ(rounds, 1000) << "keys that send keys come to an end";
    });
}

TEST(Event, BearsThatListenersAndItsOwnerComeAndGoWhileItRuns) {
    auto event = std::make_unique<Event<>>();
    std::string log;
    Event<>::Subscription self, later;
    self = event->listen([&, kept = std::string(100, 'x')] {
        self.end();
        later.end();
        event->add([&] { log += "new "; });
        log += kept.substr(0, 1) + " ";
    });
    event->add([&] { log += "stays "; });
    later = event->listen([&] { log += "gone "; });
    (*event)();
    EXPECT_EQ(log, "x stays ");
    (*event)();
    EXPECT_EQ(std::exchange(log, {}), "x stays stays new ");
    event->add([&, kept = std::string(100, 'y')] {
        event.reset();
        log += kept.substr(0, 1);
    });
    event->add([&] { log += " last"; });
    (*event)();
    EXPECT_EQ(log, "stays new y last");
}

}  // namespace
}  // namespace zelvo::screen
