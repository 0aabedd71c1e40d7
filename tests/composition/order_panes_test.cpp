#include "composition/OrderDesk.h"

namespace zelvo::testing {
namespace {

/// What is selected of order types, methods and form changes.
std::string marks(const composition::OrderOptions& options) {
    std::string all;
    for (const auto* array : {&options.m_xaJobList, &options.m_xaTJML, &options.m_xaTJAL}) {
        if (!all.empty()) all += ' ';
        for (int row = 0; row <= array->upperRow(); ++row) all += array->isTrue(row, 0) ? '1' : '0';
    }
    return all;
}

}  // namespace

TEST(OrderOptions, PressesSelect) {
    OrderDesk desk;
    EXPECT_EQ(marks(desk.options), "100 00 000") << "in the catalogue's own order, without the withdrawn one";
    EXPECT_EQ(desk.options.m_xaJobList.text(0, 1), "5");
    const struct {
        const char* grid;
        int row;
        const char* marks;
        bool outdated, herbs, decoction;
    } presses[] = {
        {"tdbTJML", 1, "100 01 000", true, true, true},
        {"tdbTJML", 1, "100 01 000", false, true, true},
        {"tdbTJAL", 0, "100 01 100", true, true, true},
        {"tdbTJAL", 2, "100 01 101", true, true, true},
        {"tdbTJAL", 1, "100 01 011", true, true, true},
        {"tdbTJAL", 1, "100 01 001", true, true, true},
        {"tdbJobList", 1, "010 01 001", true, true, false},
        {"tdbJobList", 2, "001 01 001", true, false, false},
    };
    desk.run([&] {
        for (const auto& press : presses) {
            SCOPED_TRACE(press.marks);
            desk.gate.outdated = 0;
            desk.user.row(press.grid, press.row);
            desk.user.cellButton(press.grid, "선택");
            EXPECT_EQ(marks(desk.options), press.marks);
            EXPECT_EQ(desk.gate.outdated > 0, press.outdated);
            EXPECT_EQ(desk.frames.c1eDrug.visible(), press.herbs);
            EXPECT_EQ(desk.frames.c1eTangJun.visible(), press.decoction);
        }
    });
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

}  // namespace zelvo::testing
