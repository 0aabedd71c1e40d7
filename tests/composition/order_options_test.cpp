#include "composition/OrderDesk.h"

namespace zelvo::testing {

namespace {

std::string marks(const tables::XArrayDB& options) {
    std::string all;
    for (int row = 0; row <= options.upperRow(); ++row) all += options.isTrue(row, 0) ? '1' : '0';
    return all;
}

void load(OrderDesk& desk) {
    desk.options.Load_JobList();
    desk.options.Load_TangJun();
    desk.options.Load_TangJunAdd();
    desk.watch.outdated = 0;
}

}  // namespace

TEST(OrderOptions, FirstOrderTypeIsSelectedAtTheStart) {
    OrderDesk desk;
    load(desk);
    EXPECT_EQ(marks(desk.options.m_xaJobList), "100")
        << "in the catalogue's own order, without the withdrawn one";
    EXPECT_EQ(desk.options.m_xaJobList.text(0, 1), "5");
    EXPECT_EQ(marks(desk.options.m_xaTJML), "00");
    EXPECT_EQ(marks(desk.options.m_xaTJAL), "000");
    EXPECT_TRUE(desk.frames.c1eTangJun.visible());
    EXPECT_EQ(desk.options.tdbJobList.rowStyle(0), "styCBJselect");
    EXPECT_EQ(desk.options.tdbJobList.rowStyle(1), "");
}

TEST(OrderOptions, PressesSelect) {
    OrderDesk desk;
    load(desk);
    const struct {
        const char* name;
        const char* grid;
        int row;
        const char* marks;  // order types, methods, form changes
        bool outdated, herbs, decoction;
    } presses[] = {
        {"the selected order type", "tdbJobList", 0, "100 00 000", false, true, true},
        {"the second method", "tdbTJML", 1, "100 01 000", true, true, true},
        {"the same method", "tdbTJML", 1, "100 01 000", false, true, true},
        {"a form change", "tdbTJAL", 0, "100 01 100", true, true, true},
        {"one of another type", "tdbTJAL", 2, "100 01 101", true, true, true},
        {"another of the first type", "tdbTJAL", 1, "100 01 011", true, true, true},
        {"the same one again", "tdbTJAL", 1, "100 01 001", true, true, true},
        {"an order type without decoction", "tdbJobList", 1, "010 01 001", true, true, false},
        {"one without herbs", "tdbJobList", 2, "001 01 001", true, false, false},
    };
    desk.desktop.show(desk.form, [&] {
        for (const auto& press : presses) {
            SCOPED_TRACE(press.name);
            desk.watch.outdated = 0;
            desk.user.row(press.grid, press.row);
            desk.user.cellButton(press.grid, "선택");
            EXPECT_EQ(marks(desk.options.m_xaJobList) + " " + marks(desk.options.m_xaTJML) + " " +
                          marks(desk.options.m_xaTJAL),
                      press.marks);
            EXPECT_EQ(desk.watch.outdated > 0, press.outdated);
            EXPECT_EQ(desk.frames.c1eDrug.visible(), press.herbs);
            EXPECT_EQ(desk.frames.c1eTangJun.visible(), press.decoction);
        }
    });
    EXPECT_EQ(composition::OrderOptions::selectedRow(desk.options.m_xaJobList), 2);
}

TEST(OrderOptions, DetailsAreReadBesideTheirPanel) {
    OrderDesk desk;
    load(desk);
    desk.form.left = 1000;
    desk.frames.c1ePatient.left = 200;
    desk.frames.c1eCostConfirm.left = 300;
    desk.desktop.show(desk.form, [&] {
        struct Case {
            const char *grid, *caption, *text;
            double left;
        };
        for (const Case& c :
             {Case{"tdbJobList", "첩약", "달이지 않습니다.", 1350},
              Case{"tdbTJML", "압력탕전", "2시간", 1450}, Case{"tdbTJAL", "산", "분말", 1450}}) {
            desk.user.row(c.grid, 1);
            desk.desktop.whenShown("frmMessage", [&](screen::Window& note) {
                EXPECT_EQ(note.caption(), c.caption);
                EXPECT_EQ(dynamic_cast<screen::RichTextField*>(note.field("rtxMessage"))->text(), c.text);
                EXPECT_EQ(note.left, c.left);
            });
            desk.user.cellButton(c.grid, "자세히");
        }
    });
    EXPECT_EQ(desk.watch.outdated, 0);
    EXPECT_EQ(marks(desk.options.m_xaJobList), "100") << "reading selects nothing";
}

TEST(OrderOptions, CatalogueThatCanNotBeRead) {
    OrderDesk desk;
    desk.connection->staysBroken = true;
    desk.connection->failAt(1);
    load(desk);
    desk.options.pressJobList(0);
    desk.options.pressTJML(3);
    desk.options.pressTJAL(0);
    EXPECT_EQ(desk.options.tdbTJML.rowCount(), 0);
    EXPECT_EQ(desk.watch.outdated, 0);
}

}  // namespace zelvo::testing
