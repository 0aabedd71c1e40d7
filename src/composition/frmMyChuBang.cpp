#include "composition/frmMyChuBang.h"

#include "basics/Text.h"
#include "screen/SmallWindow.h"

namespace zelvo::composition {

frmMyChuBang::frmMyChuBang(screen::Desktop& desktop)
    : AskWindow(desktop, "frmMyChuBang", "내약속처방으로 등록", 420 * screen::twipsPerPixel,
                260 * screen::twipsPerPixel, {"cmdSave", "저장"}),
      Label2(*this, "Label2", {}, "처방명 :"),
      txtCBName(*this, "txtCBName"),
      Label1(*this, "Label1", {}, "처방 메모"),
      rtxNote(*this, "rtxNote"),
      Label3(*this, "Label3", {}, " 창 닫기 = Esc 키") {
    txtCBName.setLabel("처방명");
    txtCBName.setHangul(true);
    rtxNote.setLabel("처방 메모");
    rtxNote.setMultiLine(true);
    rtxNote.setHangul(true);
    setTabOrder({"txtCBName", "rtxNote", "cmdSave", "cmdCancel"});

    txtCBName.onKeyDown.add([this](int& code) {
        if (code != screen::keys::enter) return;
        code = screen::keys::none;
        rtxNote.setFocus();
    });
}

bool frmMyChuBang::confirm() {
    if (!basics::isBlank(txtCBName.text())) return true;
    return refuse("처방명을 입력해 주십시오.", txtCBName, "내약속처방 등록");
}

std::int16_t frmMyChuBang::Show_MyChubangADD(std::string& strMyCBName, std::string& strMyCBMemo) {
    m_SaveCanceled = ask() ? 0 : -1;
    if (m_SaveCanceled == 0) {
        strMyCBName = basics::trim(txtCBName.text());
        strMyCBMemo = basics::trim(rtxNote.text());
    }
    return m_SaveCanceled;
}

}  // namespace zelvo::composition
