#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "account/DoctorProfile.h"
#include "composition/PaymentChoice.h"
#include "composition/SenderBlock.h"
#include "data/clsZELVORecordSet.h"
#include "screen/Fields.h"
#include "session/Session.h"

namespace zelvo::host {

/// Where a doctor's record shows in the main window.
struct DoctorViews {
    screen::TabControl& c1tMain;
    screen::StatusBar& stbMain;
    account::DoctorProfile& profile;
    composition::SenderBlock& sender;
    composition::PaymentChoice& payment;
    screen::ComboList& cbodtrList;  ///< a nurse's doctors: key "/" name
};

enum class LoginJob { Initialize, Login, Nurse };

/// Checks an account and brings the doctor's record into the window.
class DoctorLogin {
public:
    DoctorLogin(screen::Window& form, screen::Place noticeTab, session::Session& session, DoctorViews views);

    screen::TwoStateButton ssrLogIN;

    /// 1 found and shown, 0 no such account, -1 failure or an account text without its separator. `DTRPK`
    /// brings the key at Login and returns the record's, 0 if there is none; a nurse's list leaves it alone.
    std::int16_t Load_DoctorInfo(LoginJob job, std::int32_t& DTRPK);
    /// Empties every field that the doctor's record fills.
    void Clear_DoctorInfo();

    /// A doctor is logged in: what shows a doctor's orders and money is to be read afresh.
    std::function<void()> whenLoggedIn = [] {};
    /// The doctor who was logged in is so no longer: that one's patients go out of view.
    std::function<void()> whenDoctorLeaves = [] {};

private:
    void logIn();
    bool askAccount(std::string& id, std::string& password) const;
    void checkAccount(const std::string& id, const std::string& password);
    void loggedIn(const std::string& id, const std::string& password, std::int32_t key);
    void logOut();
    void setDoctor(std::int32_t key);
    std::int16_t loadDoctor(LoginJob job, std::int32_t& DTRPK);
    void listNurseDoctors();
    void showDoctor(LoginJob job, const data::DoctorRecord& doctor);

    screen::Window& form_;
    session::Session& session_;
    DoctorViews views_;
};

}  // namespace zelvo::host
