#include <gtest/gtest.h>

#include "screen/Fields.h"
#include "screen/TextField.h"
#include "screen/Window.h"
#include "support/TestDesktop.h"

namespace zelvo::screen {
namespace {

struct ButtonsTest : ::testing::Test {
    testing::TestDesktop desktop;
    Window form{desktop, "frmTest", 1000, 1000};
    std::string log;
};

TEST_F(ButtonsTest, APressButtonActsOnceReleasedAndRepainted) {
    TwoStateButton button(form, "ssrOne");
    const auto drawn = form.onTouched.listen([&](Field*) { log += button.value() ? "down " : "up "; });
    usePressed(button, [&] { log += button.value() ? "act-down " : "act "; });
    button.userPress();
    EXPECT_EQ(log.substr(log.find("down")), "down up up act ");
    log.clear();
    button.setValue(true);
    EXPECT_EQ(log, "down up up act ");
}

TEST_F(ButtonsTest, OptionsOfOneArrayExcludeEachOther) {
    OptionButton man(form, "ssoSex(0)"), woman(form, "ssoSex(1)"), other(form, "ssoSexual(0)"),
        alone(form, "ssoSex2");
    for (OptionButton* option : {&man, &woman, &other, &alone}) {
        option->onClick.add([this, option] { log += option->name() + " "; });
    }
    other.setValue(true);
    alone.setValue(true);
    man.userClick();
    man.userClick();
    woman.setValue(true);
    EXPECT_EQ(log, "ssoSexual(0) ssoSex2 ssoSex(0) ssoSex(1) ");
    EXPECT_FALSE(man.value());
    EXPECT_TRUE(woman.value() && other.value() && alone.value());
    woman.setValue(false);
    EXPECT_FALSE(man.value() || woman.value()) << "none is set";
}

TEST_F(ButtonsTest, AClickTakesTheFocusFirstAndIsLostWhereThatGoesElsewhere) {
    TextField before(form, "txtBefore");
    Button button(form, "sscOne");
    button.onPress.add([&] { log += "press "; });
    desktop.show(form, [&] {
        before.onLostFocus.add([&] { log += "left "; });
        button.userPress();
        EXPECT_TRUE(button.hasFocus());
        before.setFocus();
        before.onLostFocus.add([&] { before.setFocus(); });
        button.userPress();
        EXPECT_TRUE(before.hasFocus());
        button.setEnabled(false);
        button.userPress();
    });
    EXPECT_EQ(log, "left press left ");
}

TEST_F(ButtonsTest, KeysPressWhatHasTheFocus) {
    Button button(form, "sscOne");
    CheckButton check(form, "chkOne");
    ComboList combo(form, "cboOne");
    combo.addEntry("a");
    combo.addEntry("b");
    button.onPress.add([&] { log += "press "; });
    check.onClick.add([&] { log += check.value() ? "on " : "off "; });
    combo.onSelect.add([&] { log += combo.text() + " "; });
    const std::vector<std::pair<Field*, std::vector<std::string>>> cases{
        {&button, {"Enter", " ", "x"}},
        {&check, {" ", " ", "Enter"}},
        {&combo, {"Down", "Down", "Down", "Up", "End"}}};
    for (const auto& [field, names] : cases) {
        field->setFocus();
        for (const std::string& name : names) form.userKey(*Key::named(name));
    }
    EXPECT_EQ(log, "press press on off a b a ");
}

TEST_F(ButtonsTest, AnIndexOutOfRangeIsAFault) {
    ComboList combo(form, "cboOne");
    ItemList list(form, "lstOne");
    TabControl tabs(form, "c1tOne", {"a", "b"});
    StatusBar bar(form, "stbOne");
    EXPECT_THROW(combo.select(0), basics::Fault);
    EXPECT_THROW(combo.select(-2), basics::Fault);
    EXPECT_THROW((void)combo.entry(0), basics::Fault);
    EXPECT_THROW(list.setItemChecked(-1, true), basics::Fault);
    EXPECT_THROW(tabs.select(2), basics::Fault);
    EXPECT_THROW(bar.setPanel(0, "x"), basics::Fault);
    EXPECT_THROW(bar.setPanel(4, "x"), basics::Fault);
    EXPECT_FALSE(tabs.userClick(2));
}

}  // namespace
}  // namespace zelvo::screen
