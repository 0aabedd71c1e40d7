#include "ordering/SendGate.h"

namespace zelvo::ordering {

SendGate::SendGate(screen::Window& form, composition::OrderFrames& frames)
    : ssrCBJSend(form, "ssrCBJSend", frames.c1eSendmain.inside(), "처방전 전송") {
    ssrCBJSend.setVisible(false);
}

void SendGate::Set_CostConfirmed(bool flag) {
    m_CostConfirmed = flag;
    ssrCBJSend.setVisible(flag);
    onSet();
}

}  // namespace zelvo::ordering
