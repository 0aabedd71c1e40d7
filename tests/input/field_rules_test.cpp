#include "input/FieldRules.h"

#include "basics/Text.h"
#include "input/modTelNumFormat.h"
#include "platform/console/UserActions.h"
#include "screen/Fields.h"
#include "support/TestDesktop.h"

namespace zelvo::testing {

namespace {

/// The main window's table, for the fields that a form has.
input::FieldTable fieldsOf(const screen::Window& form) {
    input::FieldTable table = input::mainWindowFields();
    const auto missing = [&form](std::string_view name) { return !form.field(name); };
    for (input::FieldRule& rule : table.rules) std::erase_if(rule.fields, missing);
    std::erase_if(table.hangul, missing);
    return table;
}

/// One field for each way of typing.
struct Form {
    TestDesktop desktop;
    screen::Window form{desktop, "frmOrder", 1000, 1000};
    screen::TextField age{form, "txtPatientAge"}, pouches{form, "txtPouchTotal"}, price{form, "txtDrugPrice"},
        besongZip{form, "txtBesongZip"}, balsongZip{form, "txtBalsongZip"}, tel{form, "txtPatientTel"},
        courier{form, "txtBesongMsg"}, search{form, "txtCBJsearchPatient"}, other{form, "txtOther"};
    screen::ComboList method{form, "cboBesongMethod"};
    screen::Button find{form, "sscCBJsearchPatient"};
    input::FieldRules rules{form, fieldsOf(form)};
    console::UserActions user{desktop};
    void run(std::function<void()> script) { desktop.show(form, std::move(script)); }
};

}  // namespace

TEST(FieldRules, KeysThatAFieldTakes) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"txtPatientAge", "3a-5.", "35"}, {"txtPouchTotal", ".5.a1", ".51"},
        {"txtBesongZip", "1 2", "1 2"},   {"txtBalsongZip", "1 2 3", "123"},
        {"txtOther", "3a .", "3a ."},     {"txtCBJsearchPatient", "홍 길", "홍 길"}};
    Form form;
    form.run([&] {
        for (const auto& [field, typed, text] : cases) {
            form.user.type(field, typed);
            EXPECT_EQ(dynamic_cast<screen::TextField&>(form.user.find(field)).text(), text);
        }
    });
}

TEST(FieldRules, EnterMovesOn) {
    const std::pair<const char*, const char*> cases[] = {
        {"txtPatientAge", "txtPouchTotal"},      {"txtPouchTotal", "txtDrugPrice"},
        {"txtDrugPrice", "txtBesongZip"},        {"txtBesongZip", "txtBalsongZip"},
        {"txtBalsongZip", "txtPatientTel"},      {"txtPatientTel", "txtBesongMsg"},
        {"txtBesongMsg", "txtCBJsearchPatient"}, {"txtCBJsearchPatient", "txtCBJsearchPatient"},
        {"txtOther", "cboBesongMethod"},         {"cboBesongMethod", "sscCBJsearchPatient"}};
    Form form;
    int searches = 0;
    form.find.onPress.add([&] { ++searches; });
    form.besongZip.setReadOnly(true);
    form.run([&] {
        for (const auto& [field, next] : cases) {
            form.user.key(field, {"Enter"});
            EXPECT_EQ(form.form.focus()->name(), next) << field;
        }
    });
    EXPECT_EQ(searches, 1);
}

TEST(FieldRules, WhatEnteringAFieldDoes) {
    Form form;
    form.run([&] {
        for (screen::TextField* field : {&form.tel, &form.search, &form.courier, &form.balsongZip}) {
            form.user.focus("txtOther");
            field->setText("12 0");
            field->select(0, 0);
            form.user.type(field->name(), "5");
            EXPECT_EQ(field->text(), field == &form.courier ? "12 05" : "5") << field->name();
        }
    });
}

TEST(TelNumFormat, GrowsItsHyphensWhileItIsTyped) {
    const std::pair<std::string, std::string> cases[] = {
        {"0212345678", "0 02- 02-1 02-12 02-123- 02-123-4 02-123-45 02-123-456 02-123-4567 02-1234-5678"},
        {"03123456789",
         "0 03- 03-1 03-12 03-123 031-234- 031-234-5 031-234-56 031-234-567 031-234-5678 031-2345-6789"},
        {"12345678901",
         "1 12 123- 123-4 123-45 123-456 123-4567 1234-5678 1234-5678~9 1234-5678~90 1234-5678~901"},
        {"1234567~8~9",
         "1 12 123- 123-4 123-45 123-456 123-4567 123-4567~ 123-4567~8 123-4567~8 123-4567~89"},
        {"0a 2~", "0 0 0 02- 02-"},
    };
    for (const auto& [keys, steps] : cases) {
        Form form;
        std::string typed;
        form.run([&, &keys = keys] {
            for (const char key : keys) {
                form.user.type("txtPatientTel", std::string(1, key));
                typed += (typed.empty() ? "" : " ") + form.tel.text();
            }
        });
        EXPECT_EQ(typed, steps);
    }
}

TEST(TelNumFormat, GoesOnFromWhatStandsThere) {
    const struct {
        const char* stands;
        std::vector<std::string> keys;
        const char* text;
    } cases[] = {
        {"010-1234-5678", {"9"}, "010-1234-5678~9"}, {"02-123-4567", {"~", "8"}, "02-123-4567~8"},
        {"02-123-", {"Backspace", "~"}, "02-123"},   {"없음이", {"~"}, "없음이"},
        {"02-123-", {"Backspace", "4"}, "02-1234-"},
    };
    for (const auto& c : cases) {
        Form form;
        form.tel.setText(c.stands);
        form.run([&] {
            form.user.focus("txtPatientTel");
            form.user.key("txtPatientTel", {"End"});
            form.user.key("txtPatientTel", c.keys);
        });
        EXPECT_EQ(form.tel.text(), c.text) << c.stands;
    }
}

TEST(TelNumFormat, WholeNumbersKeepAllTheirDigits) {
    const std::pair<const char*, const char*> cases[] = {
        {"021234567", "02-123-4567"},        {"0212345678", "02-1234-5678"},
        {"0311234567", "031-123-4567"},      {"01012345678", "010-1234-5678"},
        {"15881234", "1588-1234"},           {"1234567", "123-4567"},
        {"010123456789", "010-1234-5678~9"}, {"010-12345678", "010-1234-5678"},
        {"02-12345678", "02-1234-5678"},     {"02-123-4567~8", "02-123-4567~8"},
        {"02.123.4567", "02.123.4567"},      {"없음", "없음"}};
    for (const auto& [comes, stands] : cases) {
        Form form;
        form.tel.setText(comes);
        EXPECT_EQ(form.tel.text(), stands) << comes;
        form.tel.setText("");
        form.run([&, &comes = comes] { form.user.paste("txtPatientTel", comes); });
        EXPECT_EQ(form.tel.text(), stands) << comes << " pasted";
    }
}

TEST(TelNumFormat, SettlesAtOnceAndLosesNothing) {
    for (const std::string start : {"02", "031", "0", "15"}) {
        std::string digits = start;
        for (; digits.size() < 40; digits += "0123456789"[digits.size() % 10]) {
            for (std::size_t hyphen = 0; hyphen <= digits.size(); ++hyphen) {
                std::string text = digits;
                if (hyphen > 0) text.insert(hyphen, "-");
                const std::string once = input::modTelNumFormat::formatted(text);
                ASSERT_EQ(basics::removeAll(basics::removeAll(once, "-"), "~"), digits) << text;
                ASSERT_EQ(input::modTelNumFormat::formatted(once), once) << text;
            }
        }
    }
}

}  // namespace zelvo::testing
