#include "composition/SenderBlock.h"

namespace zelvo::composition {

SenderBlock::SenderBlock(screen::Window& form, OrderFrames& frames)
    : txtHospitalName(form, "txtHospitalName", frames.c1tPatient1.page(0)),
      txtDoctor(form, "txtDoctor", frames.c1tPatient1.page(0)),
      txtDoctorCell(form, "txtDoctorCell", frames.c1tPatient1.page(0)),
      txtHospitalTel(form, "txtHospitalTel", frames.c1tPatient1.page(0)),
      txtBalsongZip(form, "txtBalsongZip", frames.c1tPatient1.page(0)),
      ssrZipCode1(form, "ssrZipCode(1)", frames.c1tPatient1.page(0), "찾기"),
      txtBalsongJuso(form, "txtBalsongJuso", frames.c1tPatient1.page(0)) {
    txtHospitalName.setLabel("한의원명:");
    txtDoctor.setLabel("한의사:");
    txtDoctorCell.setLabel("핸드폰:");
    txtHospitalTel.setLabel("Tel:");
    txtBalsongZip.setLabel("발송주소:");
    txtBalsongZip.setReadOnly(true);
    txtBalsongJuso.setLabel("발송주소:");
    ssrZipCode1.setTipText("우편번호를 찾습니다.");
}

void SenderBlock::clear() {
    for (screen::TextField* const field : texts()) field->setText("");
}

std::vector<screen::TextField*> SenderBlock::texts() {
    return {&txtHospitalName, &txtDoctor, &txtDoctorCell, &txtHospitalTel, &txtBalsongZip, &txtBalsongJuso};
}

}  // namespace zelvo::composition
