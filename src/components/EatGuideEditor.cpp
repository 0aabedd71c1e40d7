#include "components/EatGuideEditor.h"

#include "components/frmEatGuideEditor.h"
#include "screen/RtfReader.h"

namespace zelvo::components {

bool EatGuideEditor::edit(void*, std::string& patientName, std::string& sheetRtf, std::string& hospitalName,
                          std::string& phoneNo) {
    frmEatGuideEditor form(desktop_, patientName);
    screen::placeInFront(form);
    form.rtxSheet.setRtf(sheetRtf);
    form.rtxSheet.caretToEnd();
    form.txtHospName.setText(hospitalName);
    form.txtPhoneNo.setText(phoneNo);
    if (!screen::keepsAll(sheetRtf)) {
        desktop_.inform(
            "이 복용법에는 여기서 표시할 수 없는 그림, 표, 첨자가 있습니다. 고쳐서 저장하면 그 부분이 없어집니다.",
            form.caption());
    }
    if (!form.ask()) return false;
    sheetRtf = form.rtxSheet.rtf();
    hospitalName = form.txtHospName.text();
    phoneNo = form.txtPhoneNo.text();
    return true;
}

}  // namespace zelvo::components
