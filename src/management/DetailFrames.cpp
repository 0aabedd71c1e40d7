#include "management/DetailFrames.h"

namespace zelvo::management {

namespace {
constexpr screen::Color editingColor{255, 255, 230}, viewingColor{237, 240, 234};
}

DetailFrames::DetailFrames(screen::Window& form, screen::Place managementTab)
    : c1eCBJm0(form, "c1eCBJm(0)", managementTab),
      sspCBJm0(form, "sspCBJm(0)", c1eCBJm0.inside()),
      c1eCBJm1(form, "c1eCBJm(1)", managementTab),
      sspCBJm1(form, "sspCBJm(1)", c1eCBJm1.inside(), " 진행상태"),
      c1eCBJm2(form, "c1eCBJm(2)", managementTab),
      c1eCBJm3(form, "c1eCBJm(3)", managementTab),
      sspCBJm2(form, "sspCBJm(2)", c1eCBJm3.inside(), " 환자정보 및 배송관련정보"),
      c1eCBJm4(form, "c1eCBJm(4)", managementTab),
      sspCBJm3(form, "sspCBJm(3)", c1eCBJm4.inside(), " 발송정보"),
      c1eCBJm5(form, "c1eCBJm(5)", managementTab),
      sspCBJm4(form, "sspCBJm(4)", c1eCBJm5.inside(), " 처방메세지"),
      c1eCBJm6(form, "c1eCBJm(6)", managementTab),
      sspCBJm5(form, "sspCBJm(5)", c1eCBJm6.inside(), " 복용법"),
      c1eCBJm8(form, "c1eCBJm(8)", managementTab),
      sspCBJm6(form, "sspCBJm(6)", c1eCBJm8.inside(), " 처방전 주문서 정보"),
      c1eCBJm9(form, "c1eCBJm(9)", managementTab),
      sspCBJm7(form, "sspCBJm(7)", c1eCBJm9.inside(), " 탕전 정보"),
      c1eCBJm10(form, "c1eCBJm(10)", managementTab),
      sspCBJm8(form, "sspCBJm(8)", c1eCBJm10.inside(), " 약재 정보"),
      c1eCBJm11(form, "c1eCBJm(11)", managementTab),
      sspCBJm9(form, "sspCBJm(9)", c1eCBJm11.inside(), " 비용 정보") {
    setEditable(false);
}

void DetailFrames::setEditable(bool editable) {
    for (screen::Panel* section : {&c1eCBJm3, &c1eCBJm4, &c1eCBJm5}) section->setEnabled(editable);
    for (screen::Panel* frame : {&sspCBJm2, &sspCBJm3, &sspCBJm4, &sspCBJm5})
        frame->setBackColor(editable ? editingColor : viewingColor);
}

}  // namespace zelvo::management
