#include "account/DoctorProfile.h"

#include "platform/console/UserActions.h"
#include "support/TestDatabase.h"
#include "support/TestDesktop.h"

namespace zelvo::account {
namespace {

TEST(DoctorProfile, ValidPayFlags) {
    const std::pair<const char*, ValidPay> cases[] = {{"", {}},
                                                      {"101", {true, false, true}},
                                                      {"010", {false, true, false}},
                                                      {"1", {true, false, true}},
                                                      {"11", {true, true, true}},
                                                      {"한11", {false, true, true}}};
    for (const auto& [text, flags] : cases) EXPECT_EQ(validPay(text), flags) << text;
}

/// A password dialog that answers.
struct Prompt : screen::AccountPrompt {
    Prompt(std::string fresh, std::string& old) : fresh_(std::move(fresh)), old_(old) {}
    bool Login(std::string&, std::string&) override { return false; }
    bool ChangePassword(const std::string& oldPassword, std::string& newPassword) override {
        old_ = oldPassword;
        newPassword = fresh_;
        return !fresh_.empty();
    }

private:
    std::string fresh_;
    std::string& old_;
};

/// The demo's first doctor at his own record.
class DoctorProfileTest : public ::testing::Test {
protected:
    DoctorProfileTest() {
        auto connection = std::make_unique<testing::FaultyConnection>(pharmacy.connect());
        line = connection.get();
        session.g_conYakGuk = std::move(connection);
        session.m_DTRPK = 1;
        profile.Form_Load();
        data::DoctorRecord doctor;
        doctor.DTR_PK = 1;
        data::clsZELVORecordSet().RecordSet_DoctorInfo(*line, 2, doctor);
        profile.show(doctor);
    }
    std::string stored(const std::string& column) const {
        return pharmacy.value("SELECT " + column + " FROM t_Doctor WHERE DTR_PK = 1");
    }

    testing::TestDesktop desktop;
    testing::TestDatabase pharmacy;
    session::Session session;
    testing::FaultyConnection* line = nullptr;
    screen::Window form{desktop, "frmProfile", 9000, 6000};
    composition::OrderFrames frames{form, {}};
    composition::SenderBlock sender{form, frames};
    DoctorProfile profile{form, {}, session, sender};
    console::UserActions user{desktop};
};

TEST_F(DoctorProfileTest, ShowsAndClearsARecord) {
    EXPECT_EQ(profile.txtDTRid.text() + profile.txtDTRdiscount.text() + profile.txtDTRbox.text() +
                  profile.txtDTRvip.text() + profile.txtDTRpouch.text(),
              "doctor151,500OO");
    profile.clear();
    for (const screen::Field* field : form.fields()) {
        const auto* text = dynamic_cast<const screen::TextField*>(field);
        EXPECT_TRUE(!text || text->text().empty()) << field->name();
    }
}

TEST_F(DoctorProfileTest, StoresWhatMayBeChanged) {
    const char* caption = "한의사정보 변경";
    desktop.show(form, [&] {
        session.m_DTRPK = 0;
        user.press("ssrDTRchang");
        desktop.expectBox(caption, "로그인 후에 사용하십시오.(m_DTRPK = 0)");
        session.m_DTRPK = 1;
        profile.txtDTRname.setText("  ");
        user.press("ssrDTRchang");
        desktop.expectBox(caption, "한의사명을 입력하여 주십시오.");
        profile.txtDTRname.setText(" 김'보'원 ");
        profile.txtDTRlicense.setText("");
        profile.txtDTRaddress.setText("서울'; DROP TABLE t_Doctor --");
        line->failAt(1);
        user.press("ssrDTRchang");
        desktop.expectBox("한의사정보 변경 실패",
                          "한의사 정보 변경 실패 [변경한 내용을 다시 한번 더 확인 바랍니다.]",
                          screen::BoxIcon::Critical);
        EXPECT_EQ(stored("DTR_Name") + sender.txtDoctor.text(), "김보원");
        user.press("ssrDTRchang");
        desktop.expectBox(caption, "한의사 정보를 성공적으로 변경하였습니다.");
    });
    EXPECT_EQ(stored("DTR_Name || '/' || DTR_LicenseNo || '/' || DTR_Address || '/' || DTR_Email"),
              "김보원//서울; DROP TABLE t_Doctor --/bowon@example.com");
    EXPECT_EQ(sender.txtDoctor.text() + sender.txtHospitalName.text() + sender.txtBalsongZip.text(),
              " 김'보'원 보원한의원06236");
    EXPECT_EQ(pharmacy.value("SELECT DTR_Name FROM t_Doctor WHERE DTR_PK = 2"), "이청담");
}

TEST_F(DoctorProfileTest, ChangesThePassword) {
    struct Case {
        const char *name, *fresh, *box;
        screen::BoxIcon icon;
        const char* password;
        std::int32_t doctor = 1;
        int failing = 0;
    };
    using enum screen::BoxIcon;
    const Case cases[] = {
        {"nobody", "new", "로그인 후에 사용하십시오.(m_DTRPK = 0)", Information, "pass1", 0},
        {"cancelled", "", "", Information, "pass1"},
        {"no line", "new", "비밀번호 변경 실패! (한약국 서버 연결 확인)", Critical, "pass1", 1, 1},
        {"changed", "o'new", "비밀번호 변경 성공! ", Information, "o'new"},
    };
    desktop.show(form, [&] {
        user.press("ssrPWDchang");
        EXPECT_EQ(desktop.takeBox().caption, "비밀번호 변경") << "no such component";
        for (const Case& c : cases) {
            SCOPED_TRACE(c.name);
            std::string old;
            desktop.components().add("AccountPrompt.clsAccountPrompt",
                                     [&] { return std::make_unique<Prompt>(c.fresh, old); });
            session.m_DTRPK = c.doctor;
            line->failAt(c.failing);
            user.press("ssrPWDchang");
            if (*c.box) desktop.expectBox("비밀번호 변경", c.box, c.icon);
            EXPECT_EQ(old, c.doctor == 0 ? "" : "pass1");
            EXPECT_EQ(profile.txtDTRpass.text(), c.password);
            EXPECT_EQ(stored("DTR_PWD"), c.password);
        }
    });
}

}  // namespace
}  // namespace zelvo::account
