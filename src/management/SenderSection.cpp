#include "management/SenderSection.h"

namespace zelvo::management {

SenderSection::SenderSection(screen::Window& form, DetailFrames& frames)
    : txtCBJmHosPital(form, "txtCBJmHosPital", frames.sspCBJm3.inside()),
      txtCBJmDTRName(form, "txtCBJmDTRName", frames.sspCBJm3.inside()),
      txtCBJmDTRTel(form, "txtCBJmDTRTel", frames.sspCBJm3.inside()),
      txtCBJmDTRCell(form, "txtCBJmDTRCell", frames.sspCBJm3.inside()),
      txtCBJmBalZip(form, "txtCBJmBalZip", frames.sspCBJm3.inside()),
      ssrZipCode3(form, "ssrZipCode(3)", frames.sspCBJm3.inside(), "찾기"),
      txtCBJmBalJuso(form, "txtCBJmBalJuso", frames.sspCBJm3.inside()),
      lblCBJmDTRPK(form, "lblCBJmDTRPK", frames.sspCBJm3.inside(), "0") {
    txtCBJmHosPital.setLabel("한의원명:");
    txtCBJmDTRName.setLabel("한의사:");
    txtCBJmDTRTel.setLabel("Tel:");
    txtCBJmDTRCell.setLabel("핸드폰:");
    txtCBJmBalZip.setLabel("발송주소:");
    txtCBJmBalJuso.setLabel("발송주소:");
    ssrZipCode3.setTipText("우편번호를 찾습니다.");
    lblCBJmDTRPK.setVisible(false);
}

bool SenderSection::load(const DetailRead& read) {
    data::CBJmSender sender;
    if (!data::clsZELVORecordSet().RecordSet_CBJmSendInfo(read.connection, read.CBJ_PK, sender)) return false;
    show(txtCBJmHosPital, sender.CBJ_Send_Hospital);
    lblCBJmDTRPK.setCaption(keyText(sender.DTR_PK));
    show(txtCBJmDTRName, sender.CBJ_Send_Name);
    show(txtCBJmDTRCell, sender.CBJ_Send_Cell);
    show(txtCBJmDTRTel, sender.CBJ_Send_Tel);
    show(txtCBJmBalZip, sender.CBJ_Send_Zip);
    show(txtCBJmBalJuso, sender.CBJ_Send_Address);
    return true;
}

void SenderSection::clear() {
    for (screen::TextField* field : {&txtCBJmHosPital, &txtCBJmDTRName, &txtCBJmDTRTel, &txtCBJmDTRCell,
                                     &txtCBJmBalZip, &txtCBJmBalJuso}) {
        field->setText("");
    }
    lblCBJmDTRPK.setCaption("0");
}

}  // namespace zelvo::management
