#include "input/modTelNumFormat.h"

#include "basics/Text.h"
#include "input/FieldRules.h"
#include "platform/console/UserActions.h"
#include "support/TestDesktop.h"

namespace zelvo::testing {

namespace {

/// A window with one telephone field that has the focus, and a field before it.
struct Telephone {
    TestDesktop desktop;
    screen::Window form{desktop, "frmOrder", 1000, 1000};
    screen::TextField other{form, "txtOther"};
    screen::TextField field{form, "txtPatientTel"};
    input::FieldRules rules{form};
    console::UserActions user{desktop};

    void use(const std::function<void()>& script) { desktop.show(form, script); }
};

}  // namespace

TEST(TelNumFormat, GrowsItsHyphensWhileItIsTyped) {
    const std::pair<std::string, std::string> cases[] = {
        {"0212345678", "0 02- 02-1 02-12 02-123- 02-123-4 02-123-45 02-123-456 02-123-4567 02-1234-5678"},
        {"03123456789",
         "0 03- 03-1 03-12 03-123 031-234- 031-234-5 031-234-56 031-234-567 031-234-5678 031-2345-6789"},
        {"12345678901",
         "1 12 123- 123-4 123-45 123-456 123-4567 1234-5678 1234-5678~9 1234-5678~90 1234-5678~901"},
        {"1234567~8~9",
         "1 12 123- 123-4 123-45 123-456 123-4567 123-4567~ 123-4567~8 123-4567~8 123-4567~89"},
        {"0a 2.3~", "0 0 0 02- 02-. 02-.3 02-.3"},
    };
    for (const auto& [keys, steps] : cases) {
        Telephone tel;
        std::string typed;
        tel.use([&, &keys = keys] {
            for (const char key : keys) {
                tel.user.type("txtPatientTel", std::string(1, key));
                typed += (typed.empty() ? "" : " ") + tel.field.text();
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
        {"010-1234-5678", {"9"}, "010-1234-5678~9"},
        {"1234-5678", {"9"}, "1234-5678~9"},
        {"02-123-4567", {"~", "8"}, "02-123-4567~8"},
        {"02-123-", {"Backspace", "~"}, "02-123"},
        {"123-456", {"~"}, "123-456"},
        {"02-123-", {"Backspace", "4"}, "02-1234-"},
    };
    for (const auto& c : cases) {
        Telephone tel;
        tel.field.setText(c.stands);
        tel.use([&] {
            tel.user.focus("txtPatientTel");
            tel.user.key("txtPatientTel", {"End"});
            tel.user.key("txtPatientTel", c.keys);
        });
        EXPECT_EQ(tel.field.text(), c.text) << c.stands;
    }
}

TEST(TelNumFormat, WholeNumbersKeepAllTheirDigits) {
    const struct {
        const char *comes, *stands;
    } cases[] = {{"021234567", "02-123-4567"},        {"0212345678", "02-1234-5678"},
                 {"0311234567", "031-123-4567"},      {"01012345678", "010-1234-5678"},
                 {"15881234", "1588-1234"},           {"1234567", "123-4567"},
                 {"010123456789", "010-1234-5678~9"}, {"010-12345678", "010-1234-5678"},
                 {"02-12345678", "02-1234-5678"},     {"02-123-4567~8", "02-123-4567~8"},
                 {"02.123.4567", "02.123.4567"},      {"없음", "없음"}};
    for (const auto& c : cases) {
        Telephone tel;
        tel.field.setText(c.comes);
        EXPECT_EQ(tel.field.text(), c.stands) << c.comes;
        tel.field.setText("");
        tel.use([&] { tel.user.paste("txtPatientTel", c.comes); });
        EXPECT_EQ(tel.field.text(), c.stands) << c.comes << " pasted";
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

TEST(TelNumFormat, ABackspaceHoldsUntilTheNextKeyOrPaste) {
    Telephone tel;
    tel.use([&] {
        tel.user.type("txtPatientTel", "02");
        tel.user.key("txtPatientTel", {"Backspace"});
        tel.field.setText("0212345678");
        EXPECT_EQ(tel.field.text(), "0212345678") << "a text set by the program after a Backspace";
        tel.user.key("txtPatientTel", {"Backspace"});
        tel.field.setText("");
        tel.user.paste("txtPatientTel", "0311234567");
        EXPECT_EQ(tel.field.text(), "031-123-4567");
        tel.user.focus("txtOther");
        tel.field.setText("01012345678");
        EXPECT_EQ(tel.form.focus(), &tel.other) << "no key strays into another field";
    });
    EXPECT_EQ(tel.field.text(), "010-1234-5678");
}

}  // namespace zelvo::testing
