#include "composition/OrderDesk.h"
#include "screen/Rtf.h"

namespace zelvo::testing {

namespace {

/// An editor that writes over everything, and accepts or not.
struct WritingEditor : screen::EatGuideEditor {
    explicit WritingEditor(bool accept) : accepts(accept) {}
    bool edit(void*, std::string& patient, std::string& sheet, std::string& hospital,
              std::string& phone) override {
        EXPECT_EQ(patient + "/" + sheet + "/" + hospital + "/" + phone, "홍길동//한의원/");
        patient = "남";
        sheet = screen::plainToRtf("식후 30분");
        hospital = "새한의원";
        phone = "02-1111-2222";
        return accepts;
    }
    bool accepts;
};

}  // namespace

TEST(DosageSheet, EditorGivesBackWhatWasAccepted) {
    for (const bool accepts : {true, false}) {
        SCOPED_TRACE(accepts);
        OrderDesk desk;
        desk.desktop.components().add("EatGuideEditor",
                                      [&] { return std::make_unique<WritingEditor>(accepts); });
        desk.patient.txtPatientName.setText("홍길동");
        desk.sheet.txtEatGuideHosName.setText("한의원");
        desk.desktop.show(desk.form, [&] { desk.user.press("cmdEatGuide"); });
        EXPECT_EQ(desk.text("rtxEatGuide"), accepts ? "식후 30분" : "");
        EXPECT_EQ(desk.text("txtEatGuideHosName"), accepts ? "새한의원" : "한의원");
        EXPECT_EQ(desk.text("txtEatGuideCall"), accepts ? "02-1111-2222" : "");
        EXPECT_EQ(desk.text("txtPatientName"), "홍길동");
        EXPECT_EQ(desk.watch.outdated, 0);
    }
}

TEST(DosageSheet, EditorThatIsNotThere) {
    OrderDesk desk;
    desk.desktop.show(desk.form, [&] { desk.user.press("cmdEatGuide"); });
    const screen::MessageBox box = desk.desktop.takeBox();
    EXPECT_EQ(box.caption, "복용법작성");
    EXPECT_EQ(box.icon, screen::BoxIcon::Critical);
}

TEST(DosageSheet, DefaultsAreKeptWithoutTheirOuterBlanks) {
    OrderDesk desk;
    desk.desktop.show(desk.form, [&] {
        desk.user.type("txtEatGuideHosName", " 동의 한의원 ");
        desk.user.type("txtEatGuideCall", "123-4567 ");
        desk.user.press("cmdEatGuideReg");
        desk.user.type("rtxEatGuide", "x");
    });
    EXPECT_EQ(desk.text("txtEatGuideHosName"), " 동의 한의원 ");
    EXPECT_EQ(desk.text("rtxEatGuide"), "") << "the sheet is written in its editor";
    EXPECT_EQ(desk.desktop.settings().read("Vexora", "벡 소라", "복용법 추가메모1", "?"), "동의 한의원");
    desk.sheet.loadDefaults();
    EXPECT_EQ(desk.text("txtEatGuideHosName") + "/" + desk.text("txtEatGuideCall"), "동의 한의원/123-4567");
}

TEST(DosageSheet, MessageTakesTheConfirmationBack) {
    OrderDesk desk;
    desk.desktop.show(desk.form, [&] {
        desk.user.tab("c1tCBJmsg", 1);
        desk.user.type("txtCBJmsg", "빨리\n");
    });
    EXPECT_EQ(desk.text("txtCBJmsg"), "빨리\r\n");
    EXPECT_EQ(desk.watch.outdated, 3);
}

}  // namespace zelvo::testing
