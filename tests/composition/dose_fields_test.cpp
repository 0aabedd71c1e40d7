#include "composition/OrderDesk.h"

namespace zelvo::testing {

using screen::BoxIcon;

TEST(DoseFields, PacketsThatCanNotBePriced) {
    const std::string order = "처방전 약재구성", fault = "약재가격 계산 오류";
    const std::string red = "약재정보를 다시 확인바랍니다.";
    const struct {
        const char *lines, *pasted, *left, *focus;
        std::string caption, text = "";
    } cases[] = {{"|||||100||0", "2a", "", "txtChubsu", order, "[첩수]를 숫자로 입력해 주십시오."},
                 {"|||||100||-1", "20", "", "tdbDGL", order, red},
                 {"|||||100||", "20", "", "tdbDGL", order, red},
                 {"|||||2147483647||0", "20", "20", "txtChubsu", fault},  // the sum
                 {"|||||1073741800||0", "20", "20", "txtChubsu", fault},  // the product
                 {"|||||백원||0", "20", "20", "txtChubsu", fault},
                 {"", "20", "", "tdbDGL", "약재 정보", "약재를 구성하여 주십시오."}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.lines) + " " + c.pasted);
        OrderDesk desk;
        if (*c.lines) desk.add("|||||100||0");
        desk.add(c.lines);
        desk.dose.txtDrugPrice.setText("9,900");
        desk.run([&] {
            desk.user.paste("txtChubsu", c.pasted);
            EXPECT_EQ(desk.focus(), c.focus);
        });
        EXPECT_EQ(desk.text("txtChubsu") + "/" + desk.text("txtDrugPrice"), std::string(c.left) + "/");
        EXPECT_EQ(desk.herbs.tdbDGL.currentRow() == 1, c.text == red);
        const screen::MessageBox box = desk.desktop.takeBox();
        EXPECT_EQ(box.caption, c.caption);
        EXPECT_TRUE(box.text.starts_with(c.text)) << box.text;
        EXPECT_EQ(box.icon, c.text == red || c.caption == fault ? BoxIcon::Critical : BoxIcon::Information);
    }
}

TEST(DoseFields, CompositionEmptiedWhileItIsPriced) {
    OrderDesk desk;
    desk.add("|||||1,200||0\n|||||300||0");
    desk.desktop.onEvents = [&] {
        desk.session.g_xaDrug.reDim(-1, 10);
        desk.herbs.onCompositionChanged();
    };
    desk.run([&] { desk.user.paste("txtChubsu", "20"); });
    EXPECT_EQ(desk.text("txtChubsu") + "/" + desk.text("txtDrugPrice"), "/");
}

}  // namespace zelvo::testing
