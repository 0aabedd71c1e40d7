#include "components/EatGuideEditor.h"

#include "components/frmEatGuideEditor.h"

namespace zelvo::components {

bool EatGuideEditor::edit(void*, std::string& patientName, std::string& sheetRtf, std::string& hospitalName,
                          std::string& phoneNo) {
    frmEatGuideEditor form(desktop_, patientName);
    placeInFront(form);
    form.rtxSheet.setRtf(sheetRtf);
    form.rtxSheet.caretToEnd();
    form.txtHospName.setText(hospitalName);
    form.txtPhoneNo.setText(phoneNo);
    if (!form.ask()) return false;
    sheetRtf = form.rtxSheet.rtf();
    hospitalName = form.txtHospName.text();
    phoneNo = form.txtPhoneNo.text();
    return true;
}

}  // namespace zelvo::components
