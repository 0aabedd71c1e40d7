#include "composition/frmMyChuBang.h"

#include "basics/Text.h"
#include "screen/SmallWindow.h"

namespace zelvo::composition {

frmMyChuBang::frmMyChuBang(screen::Desktop& desktop)
    : Window(desktop, "frmMyChuBang", 420 * screen::twipsPerPixel, 260 * screen::twipsPerPixel),
      Label2(*this, "Label2", {}, "처방명 :"),
      txtCBName(*this, "txtCBName"),
      Label1(*this, "Label1", {}, "처방 메모"),
      rtxNote(*this, "rtxNote"),
      Label3(*this, "Label3", {}, " 창 닫기 = Esc 키"),
      cmdSave(*this, "cmdSave", {}, "저장"),
      cmdCancel(*this, "cmdCancel", {}, "취소") {
    setCaption("내약속처방으로 등록");
    txtCBName.setLabel("처방명");
    txtCBName.setHangul(true);
    rtxNote.setLabel("처방 메모");
    rtxNote.setMultiLine(true);
    rtxNote.setHangul(true);

    txtCBName.onKeyDown.add([this](int& code) {
        if (code != screen::keys::enter) return;
        code = screen::keys::none;
        rtxNote.setFocus();
    });
    cmdSave.onPress.add([this] { save(); });
    cmdCancel.onPress.add([this] { hide(); });
    screen::onEscape(*this, [this] { unload(); });
}

void frmMyChuBang::save() {
    if (basics::isBlank(txtCBName.text())) {
        desktop().inform("처방명을 입력해 주십시오.", "내약속처방 등록");
        txtCBName.setFocus();
        return;
    }
    m_SaveCanceled = 0;
    hide();
}

std::int16_t frmMyChuBang::Show_MyChubangADD(std::string& strMyCBName, std::string& strMyCBMemo) {
    m_SaveCanceled = -1;
    desktop().setPointer(screen::Pointer::Normal);
    showModal();
    if (m_SaveCanceled == 0) {
        strMyCBName = basics::trim(txtCBName.text());
        strMyCBMemo = basics::trim(rtxNote.text());
    }
    unload();
    return m_SaveCanceled;
}

}  // namespace zelvo::composition
