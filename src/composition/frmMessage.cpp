#include "composition/frmMessage.h"

#include "basics/Text.h"
#include "screen/SmallWindow.h"

namespace zelvo::composition {

frmMessage::frmMessage(screen::Desktop& desktop)
    : Window(desktop, "frmMessage", 480 * screen::twipsPerPixel, 320 * screen::twipsPerPixel),
      sspMessage(*this, "sspMessage", {}, " 창 닫기 = Esc 키"),
      rtxMessage(*this, "rtxMessage", sspMessage.inside()),
      cmdReg(*this, "cmdReg", sspMessage.inside(), "저장") {
    rtxMessage.setMultiLine(true);
    rtxMessage.setLocked(true);
    rtxMessage.setLabel("내용");
    cmdReg.setVisible(false);

    rtxMessage.onFocus.add([this] { rtxMessage.caretToEnd(); });
    cmdReg.onPress.add([this] {
        m_Note = rtxMessage.text();
        hide();
    });
    screen::addZoomKeys(*this);
    screen::onEscape(*this, [this] { unload(); });
}

void frmMessage::read(std::string_view caption, std::string_view text) {
    setCaption(caption);
    rtxMessage.setText(text);
    showModal();
    unload();
}

std::string frmMessage::BigoInfo() {
    m_Note = rtxMessage.text();
    rtxMessage.setLocked(false);
    cmdReg.setVisible(true);
    showModal();
    return basics::trim(m_Note);
}

}  // namespace zelvo::composition
