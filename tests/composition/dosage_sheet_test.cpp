#include "composition/OrderDesk.h"
#include "composition/clsUserSetting.h"
#include "screen/Rtf.h"

namespace zelvo::testing {

namespace {

/// An editor that writes over everything, and accepts or not.
class WritingEditor : public screen::EatGuideEditor {
public:
    WritingEditor(bool accepts, std::vector<std::string>& got) : accepts_(accepts), got_(got) {}
    bool edit(void* conSQL, std::string& patientName, std::string& sheetRtf, std::string& hospitalName,
              std::string& phoneNo) override {
        got_ = {conSQL ? "host" : "", patientName, sheetRtf, hospitalName, phoneNo};
        patientName = "남";
        sheetRtf = screen::plainToRtf("식후 30분");
        hospitalName = "새한의원";
        phoneNo = "02-1111-2222";
        return accepts_;
    }

private:
    bool accepts_;
    std::vector<std::string>& got_;
};

}  // namespace

TEST(DosageSheet, EditorGivesBackWhatWasAccepted) {
    for (const bool accepts : {true, false}) {
        SCOPED_TRACE(accepts);
        OrderDesk desk;
        std::vector<std::string> got;
        desk.desktop.components().add("EatGuideEditor",
                                      [&] { return std::make_unique<WritingEditor>(accepts, got); });
        int host = 0;
        desk.session.g_conChart = &host;
        desk.patient.txtPatientName.setText("홍길동");
        desk.sheet.txtEatGuideHosName.setText("한의원");
        desk.sheet.txtEatGuideCall.setText("123-4567");
        desk.desktop.show(desk.form, [&] { desk.user.press("cmdEatGuide"); });
        EXPECT_EQ(got, (std::vector<std::string>{"host", "홍길동", "", "한의원", "123-4567"}));
        EXPECT_EQ(desk.sheet.rtxEatGuide.rtf(), accepts ? screen::plainToRtf("식후 30분") : "");
        EXPECT_EQ(desk.sheet.txtEatGuideHosName.text(), accepts ? "새한의원" : "한의원");
        EXPECT_EQ(desk.sheet.txtEatGuideCall.text(), accepts ? "02-1111-2222" : "123-4567");
        EXPECT_EQ(desk.patient.txtPatientName.text(), "홍길동");
        EXPECT_EQ(desk.watch.outdated, 0);
    }
}

TEST(DosageSheet, EditorThatIsNotThere) {
    OrderDesk desk;
    desk.desktop.show(desk.form, [&] { desk.user.press("cmdEatGuide"); });
    const screen::MessageBox box = desk.desktop.takeBox();
    EXPECT_EQ(box.caption, "복용법작성");
    EXPECT_EQ(box.icon, screen::BoxIcon::Critical);
    EXPECT_FALSE(box.text.empty());
}

TEST(DosageSheet, DefaultsAreKeptWithoutTheirOuterBlanks) {
    OrderDesk desk;
    desk.sheet.loadDefaults();
    EXPECT_EQ(desk.text("txtEatGuideHosName"), "");
    desk.desktop.show(desk.form, [&] {
        desk.user.type("txtEatGuideHosName", " 동의 한의원 ");
        desk.user.type("txtEatGuideCall", "123-4567 ");
        desk.user.press("cmdEatGuideReg");
        desk.user.type("rtxEatGuide", "x");
    });
    EXPECT_EQ(desk.text("txtEatGuideHosName"), " 동의 한의원 ");
    EXPECT_EQ(desk.text("rtxEatGuide"), "") << "the sheet is written in its editor";
    const screen::SettingsStore& store = desk.desktop.settings();
    EXPECT_EQ(store.read("Vexora", "벡 소라", "복용법 추가메모1", "?"), "동의 한의원");
    EXPECT_EQ(store.read("Vexora", "벡 소라", "복용법 추가메모2", "?"), "123-4567");
    desk.sheet.loadDefaults();
    EXPECT_EQ(desk.text("txtEatGuideHosName"), "동의 한의원");
}

TEST(DosageSheet, MessageTakesTheConfirmationBack) {
    OrderDesk desk;
    desk.desktop.show(desk.form, [&] {
        desk.user.tab("c1tCBJmsg", 1);
        desk.user.type("txtCBJmsg", "빨리");
        EXPECT_EQ(desk.watch.outdated, 2);
        desk.user.key("txtCBJmsg", {"Enter"});
    });
    EXPECT_EQ(desk.text("txtCBJmsg"), "빨리\r\n");
}

}  // namespace zelvo::testing
