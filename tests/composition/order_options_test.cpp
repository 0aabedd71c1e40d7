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
    EXPECT_EQ(desk.options.tdbJobList.rowStyle(0) + desk.options.tdbJobList.rowStyle(1), "styCBJselect");
    const struct {
        const char* grid;
        int row;
        const char* marks;
        bool outdated, herbs, decoction;
    } presses[] = {
        {"tdbJobList", 0, "100 00 000", false, true, true},
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

TEST(OrderOptions, DetailsAreReadBesideTheirPanel) {
    OrderDesk desk;
    desk.frames.c1ePatient.left = 200;
    desk.run([&] {
        desk.user.row("tdbJobList", 1);
        desk.desktop.whenShown("frmMessage", [&](screen::Window& note) {
            EXPECT_EQ(note.caption(), "첩약");
            EXPECT_EQ(note.left, 350);
            desk.user.type("rtxMessage", "더");
            EXPECT_EQ(dynamic_cast<screen::EditField&>(*note.field("rtxMessage")).text(), "달이지 않습니다.");
        });
        desk.user.cellButton("tdbJobList", "자세히");
    });
    EXPECT_EQ(marks(desk.options), "100 00 000") << "reading selects nothing";
}

}  // namespace zelvo::testing
