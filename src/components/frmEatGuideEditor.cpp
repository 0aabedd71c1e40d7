#include "components/frmEatGuideEditor.h"

#include "basics/Dates.h"
#include "basics/Text.h"

namespace zelvo::components {

namespace {

constexpr double designWidth = 12600, designHeight = 9600;

std::string addressed(const std::string& patientName) {
    const std::string name = basics::trim(patientName);
    return name.empty() ? name : name + " 님";
}

std::string captionFor(const std::string& patientName) {
    const std::string patient = addressed(patientName);
    return patient.empty() ? "복용법작성" : "복용법작성 - " + patient;
}

std::string inWords(const basics::Date& date) {
    return std::to_string(date.year) + "년 " + std::to_string(date.month) + "월 " + std::to_string(date.day) +
           "일";
}

}  // namespace

frmEatGuideEditor::frmEatGuideEditor(screen::Desktop& desktop, const std::string& patientName)
    : AskWindow(desktop, "frmEatGuideEditor", captionFor(patientName), designWidth, designHeight),
      rtxSheet(*this, "rtxSheet"),
      lblPatient(*this, "lblPatient", {}, addressed(patientName)),
      lblDate(*this, "lblDate", {}, inWords(basics::today())),
      txtHospName(*this, "txtHospName"),
      txtPhoneNo(*this, "txtPhoneNo") {
    rtxSheet.setLabel("복용법");
    rtxSheet.setHangul(true);
    txtHospName.setLabel("한의원명:");
    txtHospName.setHangul(true);
    txtPhoneNo.setLabel("연락처:");
    fillInOrder({&txtHospName, &txtPhoneNo});
    onLoad.add([this] { opened_ = page(); });
    setTabOrder({"rtxSheet", "txtHospName", "txtPhoneNo", "cmdOK", "cmdCancel"});
}

bool frmEatGuideEditor::mayClose() {
    return page() == opened_ ||
           desktop().ask("작성한 내용이 반영되지 않습니다. 닫으시겠습니까?", caption(), screen::Answer::No);
}

}  // namespace zelvo::components
