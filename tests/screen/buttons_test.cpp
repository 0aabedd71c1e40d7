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

TEST_F(ButtonsTest, ListsAndTheirEvents) {
    ComboList combo(form, "cboOne");
    ItemList list(form, "ListVpayment");
    combo.onSelect.add([&] { log += combo.text() + " "; });
    list.onItemClick.add([&](int item) { log += list.item(item) + " "; });
    for (const char* text : {"미정", "택배(환자)"}) {
        combo.addEntry(text);
        list.addItem(text);
    }
    combo.select(0);
    combo.select(0);
    combo.select(-1);
    EXPECT_EQ(combo.text(), "");
    combo.userSelect(7);
    combo.userSelect(1);
    list.select(0);
    list.userClick(1);
    EXPECT_EQ(log, "미정 미정 택배(환자) 택배(환자) ");
    combo.clear();
    EXPECT_EQ(combo.selectedIndex(), -1);
}

TEST_F(ButtonsTest, AnIndexOutOfRangeIsAFault) {
    ComboList combo(form, "cboOne");
    ItemList list(form, "lstOne");
    TabControl tabs(form, "c1tOne", {"a", "b"});
    StatusBar bar(form, "stbOne");
    const std::vector<std::function<void()>> calls{[&] { combo.select(0); },
                                                   [&] { combo.select(-2); },
                                                   [&] { (void)combo.entry(0); },
                                                   [&] { list.select(0); },
                                                   [&] { list.setItemChecked(-1, true); },
                                                   [&] { tabs.select(2); },
                                                   [&] { tabs.select(-1); },
                                                   [&] { tabs.setSelectable(2, true); },
                                                   [&] { bar.setPanel(0, "x"); },
                                                   [&] { bar.setPanel(4, "x"); },
                                                   [&] {
                                                       combo.clear();
                                                       combo.select(0);
                                                   }};
    for (std::size_t i = 0; i < calls.size(); ++i) EXPECT_THROW(calls[i](), basics::Fault) << i;
    EXPECT_FALSE(tabs.userClick(2));
}

}  // namespace
}  // namespace zelvo::screen
