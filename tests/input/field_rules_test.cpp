#include "input/FieldRules.h"

#include "platform/console/UserActions.h"
#include "screen/Fields.h"
#include "support/TestDesktop.h"

namespace zelvo::testing {

namespace {

/// One field for each way of typing.
struct Form {
    TestDesktop desktop;
    screen::Window form{desktop, "frmOrder", 1000, 1000};
    screen::TextField age{form, "txtPatientAge"}, pouches{form, "txtPouchTotal"}, price{form, "txtDrugPrice"},
        besongZip{form, "txtBesongZip"}, balsongZip{form, "txtBalsongZip"}, tel{form, "txtPatientTel"},
        courier{form, "txtBesongMsg"}, search{form, "txtCBJsearchPatient"}, other{form, "txtOther"};
    screen::Button find{form, "sscCBJsearchPatient"};
    input::FieldRules rules{form};
    console::UserActions user{desktop};
    std::string at() const { return form.focus() ? form.focus()->name() : ""; }
};

}  // namespace

TEST(FieldRules, KeysThatAFieldTakes) {
    const struct {
        const char *field, *typed, *text;
    } cases[] = {{"txtPatientAge", "3a-5.", "35"}, {"txtPouchTotal", ".5.a1", ".51"},
                 {"txtBesongZip", "1 2", "1 2"},   {"txtBalsongZip", "1 2 3", "123"},
                 {"txtOther", "3a .", "3a ."},     {"txtCBJsearchPatient", "홍 길", "홍 길"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.field);
        Form form;
        form.desktop.show(form.form, [&] { form.user.type(c.field, c.typed); });
        EXPECT_EQ(dynamic_cast<screen::TextField*>(form.form.field(c.field))->text(), c.text);
    }
}

TEST(FieldRules, EnterMovesOn) {
    const struct {
        const char *field, *goes;
    } cases[] = {{"txtPatientAge", "txtPouchTotal"}, {"txtPouchTotal", "txtDrugPrice"},
                 {"txtDrugPrice", "txtBesongZip"},   {"txtBesongZip", "txtBalsongZip"},
                 {"txtBalsongZip", "txtPatientTel"}, {"txtPatientTel", "txtBesongMsg"},
                 {"txtBesongMsg", "txtBesongMsg"},   {"txtCBJsearchPatient", "txtCBJsearchPatient"}};
    Form form;
    int searches = 0;
    form.find.onPress.add([&] { ++searches; });
    form.besongZip.setReadOnly(true);
    form.desktop.show(form.form, [&] {
        for (const auto& c : cases) {
            form.user.key(c.field, {"Enter"});
            EXPECT_EQ(form.at(), c.goes);
            EXPECT_EQ(dynamic_cast<screen::TextField*>(form.form.field(c.field))->text(), "") << c.field;
        }
    });
    EXPECT_EQ(searches, 1);
}

TEST(FieldRules, WhatEnteringAFieldDoes) {
    Form form;
    form.desktop.show(form.form, [&] {
        for (screen::TextField* field : {&form.tel, &form.search, &form.courier}) {
            form.user.focus("txtOther");
            field->setText("120");
            field->select(0, 0);
            form.user.type(field->name(), "5");
            EXPECT_EQ(field->text(), field == &form.courier ? "1205" : "5") << field->name();
        }
    });
}

}  // namespace zelvo::testing
