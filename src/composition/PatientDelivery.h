#pragma once

#include <string>
#include <vector>

#include "composition/OrderFrames.h"
#include "composition/OrderWatch.h"
#include "screen/Fields.h"
#include "screen/TextField.h"

namespace zelvo::composition {

/// Who the order is for, where it goes and how.
class PatientDelivery {
public:
    PatientDelivery(screen::Window& form, OrderFrames& frames, OrderWatch& watch);

    screen::Label lblPatientPK;
    screen::TextField txtPatientName, txtPatientJumin;
    screen::OptionButton ssoSex0, ssoSex1;
    screen::TextField txtPatientAge, txtPatientCell, txtPatientTel, txtPatientEmail, txtBesongZip;
    screen::TwoStateButton ssrZipCode0;
    screen::TextField txtBesongJuso, txtBesongMsg;
    screen::ComboList cboBesongMethod;
    screen::CheckButton chkBesongDate;
    screen::DateField dtpBesongDate;
    screen::TwoStateButton sscBesongReset;

    /// The four delivery methods, the first selected; the wanted date is today.
    void Form_Load();
    /// All that is typed here: what a reset empties, and what is kept of an order in the making.
    std::vector<screen::TextField*> texts();

private:
    void labelFields();
    void methodSelected();
    void resetPatient();

    screen::Window& form_;
    OrderWatch& watch_;
    std::string m_LastBesongMethod;
};

}  // namespace zelvo::composition
