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
};

}  // namespace

TEST(FieldRules, KeysThatAFieldTakes) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"txtPatientAge", "3a-5.", "35"}, {"txtPouchTotal", ".5.a1", ".51"},
        {"txtBesongZip", "1 2", "1 2"},   {"txtBalsongZip", "1 2 3", "123"},
        {"txtOther", "3a .", "3a ."},     {"txtCBJsearchPatient", "홍 길", "홍 길"}};
    Form form;
    form.desktop.show(form.form, [&] {
        for (const auto& [field, typed, text] : cases) {
            form.user.type(field, typed);
            EXPECT_EQ(dynamic_cast<screen::TextField&>(form.user.find(field)).text(), text);
        }
    });
}

TEST(FieldRules, EnterMovesOn) {
    const std::pair<const char*, const char*> cases[] = {
        {"txtPatientAge", "txtPouchTotal"}, {"txtPouchTotal", "txtDrugPrice"},
        {"txtDrugPrice", "txtBesongZip"},   {"txtBesongZip", "txtBalsongZip"},
        {"txtBalsongZip", "txtPatientTel"}, {"txtPatientTel", "txtBesongMsg"},
        {"txtBesongMsg", "txtBesongMsg"},   {"txtCBJsearchPatient", "txtCBJsearchPatient"}};
    Form form;
    int searches = 0;
    form.find.onPress.add([&] { ++searches; });
    form.besongZip.setReadOnly(true);
    form.desktop.show(form.form, [&] {
        for (const auto& [field, next] : cases) {
            form.user.key(field, {"Enter"});
            EXPECT_EQ(form.form.focus()->name(), next) << field;
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
