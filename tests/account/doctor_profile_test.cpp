#include "account/DoctorProfile.h"

#include "support/TestDesktop.h"

namespace zelvo::account {
namespace {

TEST(DoctorProfile, ShowsAndClearsARecord) {
    testing::TestDesktop desktop;
    session::Session session;
    screen::Window form(desktop, "frmProfile", 9000, 6000);
    composition::OrderFrames frames(form, {});
    composition::SenderBlock sender(form, frames);
    DoctorProfile profile(form, {}, session, sender);
    profile.Form_Load();
    data::DoctorRecord doctor;
    doctor.DTR_ID = "kim ";
    doctor.DTR_Discount = 0.1F;
    doctor.DTR_IsUseBox = 1500;
    doctor.DTR_VIP = -1;
    profile.show(doctor);
    EXPECT_EQ(profile.txtDTRid.text() + profile.txtDTRdiscount.text() + profile.txtDTRbox.text() +
                  profile.txtDTRvip.text() + profile.txtDTRpouch.text(),
              "kim0.11,500OX");
    profile.clear();
    for (const screen::Field* field : form.fields()) {
        const auto* text = dynamic_cast<const screen::TextField*>(field);
        EXPECT_TRUE(!text || text->text().empty()) << field->name();
    }
}

}  // namespace
}  // namespace zelvo::account
