#include "composition/OrderDesk.h"
#include "screen/RtfWriter.h"

namespace zelvo::testing {
namespace {

/// An editor that writes over everything, and accepts or not.
struct WritingEditor : screen::EatGuideEditor {
    explicit WritingEditor(bool accept) : accepts(accept) {}
    bool edit(void*, std::string& patient, std::string& sheet, std::string& hospital,
              std::string& phone) override {
        patient += "?";
        sheet = screen::plainToRtf("식후 30분");
        hospital = "새한의원";
        phone = "02-1111-2222";
        return accepts;
    }
    bool accepts;
};

TEST(DosageSheet, EditorGivesBackWhatWasAccepted) {
    for (const bool accepts : {true, false}) {
        OrderDesk desk;
        desk.desktop.components().add("EatGuideEditor",
                                      [&] { return std::make_unique<WritingEditor>(accepts); });
        desk.patient.txtPatientName.setText("홍길동");
        desk.sheet.txtEatGuideHosName.setText("한의원");
        desk.run([&] { desk.user.press("cmdEatGuide"); });
        EXPECT_EQ(desk.text("rtxEatGuide") + "/" + desk.text("txtEatGuideHosName") + "/" +
                      desk.text("txtEatGuideCall") + "/" + desk.text("txtPatientName"),
                  accepts ? "식후 30분/새한의원/02-1111-2222/홍길동" : "/한의원//홍길동");
    }
}

TEST(DosageSheet, DefaultsAreKept) {
    OrderDesk desk;
    desk.run([&] {
        desk.user.type("txtEatGuideHosName", " 동의 한의원 ");
        desk.user.press("cmdEatGuideReg");
    });
    EXPECT_EQ(desk.desktop.settings().read("Vexora", "벡 소라", "복용법 추가메모1", "?"), "동의 한의원");
    desk.sheet.loadDefaults();
    EXPECT_EQ(desk.text("txtEatGuideHosName"), "동의 한의원");
}

}  // namespace
}  // namespace zelvo::testing
