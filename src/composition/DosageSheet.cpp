#include "composition/DosageSheet.h"

#include <exception>

#include "basics/Fault.h"
#include "basics/Text.h"
#include "composition/clsUserSetting.h"

namespace zelvo::composition {

DosageSheet::DosageSheet(screen::Window& form, OrderFrames& frames, session::Session& session,
                         screen::TextField& patientName, OrderWatch& watch)
    : rtxEatGuide(form, "rtxEatGuide", frames.c1tCBJmsg.page(0)),
      txtEatGuideHosName(form, "txtEatGuideHosName", frames.c1tCBJmsg.page(0)),
      txtEatGuideCall(form, "txtEatGuideCall", frames.c1tCBJmsg.page(0)),
      cmdEatGuide(form, "cmdEatGuide", frames.c1tCBJmsg.page(0), "복용법작성"),
      cmdEatGuideReg(form, "cmdEatGuideReg", frames.c1tCBJmsg.page(0), "기본값저장"),
      txtCBJmsg(form, "txtCBJmsg", frames.c1tCBJmsg.page(1)),
      form_(form) {
    rtxEatGuide.setLabel("복용법");
    rtxEatGuide.setMultiLine(true);
    // The sheet is written in its editor. Enter would get stuck here on its way through the form.
    rtxEatGuide.setLocked(true);
    rtxEatGuide.setTabStop(false);
    txtEatGuideHosName.setLabel("한의원명:");
    txtEatGuideCall.setLabel("연락처:");
    txtCBJmsg.setLabel("처방메세지");
    txtCBJmsg.setMultiLine(true);

    cmdEatGuide.onPress.add([this, &session, &patientName] {
        editSheet(form_.desktop(), session,
                  {patientName, rtxEatGuide, txtEatGuideHosName, txtEatGuideCall, cmdEatGuide.caption()});
    });
    cmdEatGuideReg.onPress.add([this] { saveDefaults(); });
    txtCBJmsg.onChange.add([&watch] { watch.priceOutdated(); });
}

void DosageSheet::loadDefaults() {
    const clsUserSetting setting(form_.desktop().settings());
    txtEatGuideHosName.setText(setting.BogYakHospName());
    txtEatGuideCall.setText(setting.BogYakPhoneNo());
}

void DosageSheet::saveDefaults() {
    clsUserSetting setting(form_.desktop().settings());
    try {
        setting.BogYakHospName(basics::trim(txtEatGuideHosName.text()));
        setting.BogYakPhoneNo(basics::trim(txtEatGuideCall.text()));
    } catch (const basics::Fault& fault) {
        form_.desktop().alarm(fault.what(), "기본값저장");
    }
}

void editSheet(screen::Desktop& desktop, const session::Session& session, const SheetFields& fields) {
    std::string patientName = fields.patientName.text(), sheet = fields.sheet.rtf(),
                hospitalName = fields.hospitalName.text(), phoneNo = fields.phoneNo.text();
    try {
        const auto editor = desktop.components().make<screen::EatGuideEditor>();
        if (!editor->edit(session.g_conChart, patientName, sheet, hospitalName, phoneNo)) return;
    } catch (const std::exception& fault) {
        desktop.alarm(fault.what(), fields.caption);
        return;
    }
    fields.sheet.setRtf(sheet);
    fields.hospitalName.setText(hospitalName);
    fields.phoneNo.setText(phoneNo);
}

}  // namespace zelvo::composition
