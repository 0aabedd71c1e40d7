#include "management/SheetSection.h"

#include "composition/DosageSheet.h"

namespace zelvo::management {

SheetSection::SheetSection(screen::Window& form, DetailFrames& frames, session::Session& session,
                           screen::TextField& patientName)
    : txtCBJmCBMsg(form, "txtCBJmCBMsg", frames.sspCBJm4.inside()),
      rtxCBJmEatMsg(form, "rtxCBJmEatMsg", frames.sspCBJm5.inside()),
      txtEatGuideHosName2(form, "txtEatGuideHosName2", frames.sspCBJm5.inside()),
      txtEatGuideCall2(form, "txtEatGuideCall2", frames.sspCBJm5.inside()),
      cmdEatGuideUpdate(form, "cmdEatGuideUpdate", frames.sspCBJm5.inside(), "복용법 수정") {
    txtCBJmCBMsg.setLabel("처방메세지");
    txtCBJmCBMsg.setMultiLine(true);
    rtxCBJmEatMsg.setLabel("복용법");
    rtxCBJmEatMsg.setMultiLine(true);
    rtxCBJmEatMsg.setLocked(true);
    rtxCBJmEatMsg.setTabStop(false);
    txtEatGuideHosName2.setLabel("한의원명:");
    txtEatGuideCall2.setLabel("연락처:");
    cmdEatGuideUpdate.onPress.add([this, &form, &session, &patientName] {
        composition::editSheet(
            form.desktop(), session,
            {patientName, rtxCBJmEatMsg, txtEatGuideHosName2, txtEatGuideCall2, cmdEatGuideUpdate.caption()});
    });
    clear();
}

bool SheetSection::load(const DetailRead& read) {
    data::CBJmEatGuide sheet;
    if (!data::clsZELVORecordSet().RecordSet_CBJmEatGuide(read.connection, read.CBJ_PK, sheet)) return false;
    rtxCBJmEatMsg.setRtf(basics::trim(sheet.BogYak));
    show(txtEatGuideHosName2, sheet.HospName);
    show(txtEatGuideCall2, sheet.PhoneNo);
    wasBlank_ = isBlank();
    return true;
}

bool SheetSection::isNew() const {
    return wasBlank_ && !isBlank();
}

bool SheetSection::isBlank() const {
    return basics::isBlank(rtxCBJmEatMsg.rtf() + txtEatGuideHosName2.text() + txtEatGuideCall2.text());
}

void SheetSection::clear() {
    txtCBJmCBMsg.setText("");
    rtxCBJmEatMsg.setRtf("");
    txtEatGuideHosName2.setText("");
    txtEatGuideCall2.setText("");
    setEditable(false);
}

void SheetSection::setEditable(bool editable) {
    cmdEatGuideUpdate.setVisible(editable);
    txtEatGuideHosName2.setEnabled(editable);
    txtEatGuideCall2.setEnabled(editable);
}

}  // namespace zelvo::management
