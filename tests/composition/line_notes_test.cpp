#include "composition/frmMessage.h"
#include "platform/console/UserActions.h"
#include "support/TestDesktop.h"

namespace zelvo::composition {
namespace {

TEST(LineNotes, ANoteIsEdited) {
    struct Case {
        const char *name, *typed, *pressed, *note;
    };
    const Case cases[] = {
        {"saved, behind what stood there", " 나중", "cmdReg", "먼저 나중"},
        {"left by Esc", " 나중", "", "먼저"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        testing::TestDesktop desktop;
        console::UserActions user(desktop);
        frmMessage note(desktop);
        note.rtxMessage.setText(" 먼저");
        desktop.whenShown("frmMessage", [&](screen::Window&) {
            user.type("rtxMessage", c.typed);
            if (*c.pressed) return user.press(c.pressed);
            user.key("rtxMessage", {"Esc"});
        });
        EXPECT_EQ(note.BigoInfo(), c.note);
    }
}

TEST(LineNotes, ATextForReadingTakesNoTyping) {
    testing::TestDesktop desktop;
    console::UserActions user(desktop);
    frmMessage note(desktop);
    desktop.whenShown("frmMessage", [&](screen::Window&) {
        EXPECT_EQ(note.caption(), "첩약");
        EXPECT_FALSE(note.cmdReg.visible());
        user.type("rtxMessage", "더");
        EXPECT_EQ(note.rtxMessage.text(), "20첩 기준");
        user.key("rtxMessage", {"Esc"});
        EXPECT_TRUE(note.leaving());
    });
    note.read("첩약", "20첩 기준");
    EXPECT_TRUE(note.unloaded());
}

}  // namespace
}  // namespace zelvo::composition
