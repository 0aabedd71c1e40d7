#include "account/DoctorProfile.h"

#include "support/TestDesktop.h"

namespace zelvo::account {
namespace {

TEST(DoctorProfile, ValidPayFlags) {
    const struct {
        const char* text;
        ValidPay flags;
    } cases[] = {{"", {}},
                 {"000", {}},
                 {"101", {true, false, true}},
                 {"010", {false, true, false}},
                 {"1", {true, false, true}},
                 {"11", {true, true, true}},
                 {"한11", {false, true, true}}};
    for (const auto& test : cases) EXPECT_EQ(validPay(test.text), test.flags) << test.text;
}

TEST(DoctorProfile, ShowsAndClearsARecord) {
    testing::TestDesktop desktop;
    screen::Window form(desktop, "frmProfile", 9000, 6000);
    DoctorProfile profile(form, {});
    profile.Form_Load();
    data::DoctorRecord doctor;
    doctor.DTR_ID = "kim ";
    doctor.DTR_Discount = 0.1F;
    doctor.DTR_IsUseBox = 1500;
    doctor.DTR_VIP = -1;
    doctor.DTR_ValidPay = "101";
    profile.show(doctor);
    EXPECT_EQ(profile.txtDTRid.text(), "kim");
    EXPECT_EQ(profile.txtDTRdiscount.text() + profile.txtDTRmileage.text(), "0.10");
    EXPECT_EQ(profile.txtDTRbox.text(), "1,500");
    EXPECT_EQ(profile.txtDTRvip.text() + profile.txtDTRpouch.text(), "OX");
    EXPECT_TRUE(profile.ListVpayment.itemChecked(0) && profile.ListVpayment.itemChecked(2));
    EXPECT_FALSE(profile.ListVpayment.itemChecked(1));
    profile.clear();
    for (const screen::Field* field : form.fields()) {
        if (const auto* text = dynamic_cast<const screen::TextField*>(field)) {
            EXPECT_EQ(text->text(), "") << text->name();
        }
    }
    for (int item = 0; item < 3; ++item) EXPECT_FALSE(profile.ListVpayment.itemChecked(item));
}

}  // namespace
}  // namespace zelvo::account
