#pragma once

#include "composition/PaymentChoice.h"
#include "composition/SenderBlock.h"
#include "data/clsZELVORecordSet.h"
#include "screen/Fields.h"
#include "screen/TextField.h"
#include "session/Session.h"

namespace zelvo::account {

/// The doctor's own record. The first eight fields may be changed and stored, and so may the password; all
/// others belong to the pharmacy.
class DoctorProfile {
public:
    /// `place` is the page "MY OCS"; what is stored goes into the order's sender block as well.
    DoctorProfile(screen::Window& form, screen::Place place, session::Session& session,
                  composition::SenderBlock& sender);

    screen::Label lblDTRinfo;
    screen::TextField txtDTRname, txtDTRlicense, txtDTRcell, txtDTREmail, txtDTRhostel, txtDTRhosname,
        txtDTRhoszip;
    screen::TwoStateButton ssrZipCode4;
    screen::TextField txtDTRaddress;
    screen::TwoStateButton ssrDTRchang;
    screen::TextField txtDTRid, txtDTRpass;
    screen::TwoStateButton ssrPWDchang;
    screen::TextField txtDTRdiscount, txtDTRmileage, txtDTRregdate;
    screen::ItemList ListVpayment;
    screen::TextField txtDTRpouch, txtDTRbox, txtDTRuseform, txtDTRvip;

    /// The three pay methods of the list.
    void Form_Load();
    /// Shows a doctor's record, texts trimmed. What the record fills outside of this tab is the login's.
    void show(const data::DoctorRecord& doctor);
    void clear();

private:
    void labelFields();
    void checkPayments(const composition::ValidPay& valid);
    void saveChanges();
    data::DoctorRecord changedRecord() const;
    void fillSender();
    void changePassword();
    void storePassword(const std::string& password);

    screen::Window& form_;
    session::Session& session_;
    composition::SenderBlock& sender_;
};

}  // namespace zelvo::account
