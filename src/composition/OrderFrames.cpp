#include "composition/OrderFrames.h"

namespace zelvo::composition {

OrderFrames::OrderFrames(screen::Window& form, screen::Place orderTab)
    : sspCBJsend0(form, "sspCBJsend(0)", orderTab, " 처방전 주문서 정보"),
      sspCBJsend1(form, "sspCBJsend(1)", orderTab, " 탕전 정보"),
      sspCBJsend2(form, "sspCBJsend(2)", orderTab, " 환자정보 및 배송관련정보"),
      c1eDrug(form, "c1eDrug", orderTab),
      c1eTangJun(form, "c1eTangJun", orderTab, " 탕전 정보"),
      c1ePatient(form, "c1ePatient", orderTab, " 환자정보 및 배송관련정보"),
      c1tPatient0(form, "c1tPatient(0)", {"환자(배송)정보"}, c1ePatient.inside()),
      c1tPatient1(form, "c1tPatient(1)", {"발송정보"}, c1ePatient.inside()),
      c1eCBJMsg(form, "c1eCBJMsg", orderTab),
      c1tCBJmsg(form, "c1tCBJmsg", {"복용법작성", "처방메세지"}, c1eCBJMsg.inside()),
      c1eSendmain(form, "c1eSendmain", orderTab),
      c1eCostConfirm(form, "c1eCostConfirm", c1eSendmain.inside()) {}

void placeBeside(screen::Window& small, const screen::Panel& panel) {
    small.openedAt = &panel;
    small.left = panel.window().left + panel.left + 150;
    small.top = panel.window().top + panel.top + 650;
}

}  // namespace zelvo::composition
