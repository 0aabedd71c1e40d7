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
        {"left by Esc", " 나중", "Esc", "먼저"},
        {"closed", " 나중", "", "먼저"},
        {"nothing but blanks", "\b\b\b  ", "cmdReg", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        testing::TestDesktop desktop;
        console::UserActions user(desktop);
        frmMessage note(desktop);
        note.rtxMessage.setText(" 먼저");
        desktop.whenShown("frmMessage", [&](screen::Window&) {
            for (const char* key = c.typed; *key == '\b'; ++key) user.key("rtxMessage", {"Backspace"});
            user.type("rtxMessage", c.typed + std::string(c.typed).find_first_not_of('\b'));
            if (*c.pressed == 'E') user.key("rtxMessage", {"Esc"});
            if (*c.pressed == 'c') user.press("cmdReg");
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
