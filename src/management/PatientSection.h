#pragma once

#include <string>

#include "management/DetailFrames.h"
#include "management/DetailRead.h"
#include "screen/Fields.h"
#include "screen/TextField.h"

namespace zelvo::management {

/// Who the order in view is for, where it goes and how.
class PatientSection {
public:
    PatientSection(screen::Window& form, DetailFrames& frames);

    screen::TextField txtCBJmPatientName, txtCBJmJumin, txtCBJmAge;
    screen::OptionButton ssoCBJmSex0, ssoCBJmSex1;
    screen::TextField txtCBJmPaTel, txtCBJmPaCell, txtCBJmPaEmail, txtCBJmBeZip;
    screen::TwoStateButton ssrZipCode2;
    screen::TextField txtCBJmBeJuso, txtCBJmBesongMsg;
    screen::ComboList cboCBJmBesongMethod;
    screen::TextField txtCBJmBesongDate;    ///< the wanted date as it stands, while viewing
    screen::CheckButton chkCBJmBesongDate;  ///< another one is wanted, while editing
    screen::DateField dtpCBJmBesongDate;
    screen::Label lblCBJmPatientPK;
    screen::Label lblCBJmBesongMethod;  ///< the delivery method as it stood when editing began

    /// The four delivery methods, the first selected.
    void Form_Load();
    bool load(const DetailRead& read);
    void clear();
    void setEditable(bool editable);
    /// Remembers what the price depends on, and shows the wanted date where a new one is chosen.
    void beginEditing();

    /// Sex and age as the order stores them, "" for one that it does not hold and that nobody has entered.
    std::string sex() const;
    std::string age() const;
    /// The wanted date as the order stores it: "yyyy-mm-dd", "1900-01-01" for none.
    std::string deliveryDate() const;

private:
    void dressFields();
    void show(const data::CBJmPatient& patient);

    bool hasSex_ = false, hasAge_ = false;
};

}  // namespace zelvo::management
