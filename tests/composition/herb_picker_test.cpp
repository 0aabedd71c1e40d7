#include "composition/OrderDesk.h"
#include "composition/frmYakGukDrug.h"

namespace zelvo::composition {
namespace {

using testing::OrderDesk;
constexpr const char* list = "tdbYakgukDrug";

/// Opens the picker for a name and leaves it as `gestures` do: result, key, name, pharmacy name, price.
std::string open(OrderDesk& desk, const std::string& name, std::int32_t key, std::function<void()> gestures) {
    std::string callSign, internal, price;
    frmYakGukDrug picker(desk.desktop, desk.session);
    desk.desktop.whenShown("frmYakGukDrug", [&](screen::Window&) { gestures(); });
    const std::int16_t result = picker.HanYakGukDrug_DropDownOpen(name, key, callSign, internal, price);
    EXPECT_EQ(desk.desktop.pointer(), screen::Pointer::Normal);
    return basics::join({std::to_string(result), std::to_string(key), callSign, internal, price}, "|");
}

TEST(HerbPicker, GivesWhatWasCurrentUnlessLeftByEsc) {
    OrderDesk desk;
    auto& user = desk.user;
    const auto enter = [&] { user.key(list, {"Enter"}); };
    const auto find = [&](const char* name) {
        user.type("txtDrugFind", name);
        user.key("txtDrugFind", {"Enter"});
    };
    const struct {
        const char *label, *name;
        std::int32_t key;
        std::function<void()> gestures;
        const char* pick;
    } cases[] = {
        {"the recommended one comes first", " 당귀 ", -1, enter, "1|2|당귀|토당귀|320"},
        {"the herb in hand is current", "당귀", 1, enter, "1|1|당귀|일당귀|18"},
        {"moved and closed", "당귀", -1, [&] { user.row(list, 1), user.close(); }, "1|1|당귀|일당귀|18"},
        {"moved and Esc", "당귀", -1, [&] { user.row(list, 1), user.key("txtDrugFind", {"Esc"}); },
         "0|-1|||"},
        {"Enter on an empty list", "인삼", -1, enter, "-1|-1|||"},
        {"a search", "인삼", -1, [&] { find("작"), enter(); }, "1|3|작약|작약(국산)|18"},
        {"then nothing found", "당귀", -1, [&] { find("인삼"), user.close(); }, "1|2|당귀|토당귀|320"},
        {"withdrawn, or without a price today", "감초", -1, [&] { find("천궁"), enter(); }, "-1|-1|||"},
    };
    for (const auto& c : cases) EXPECT_EQ(open(desk, c.name, c.key, c.gestures), c.pick) << c.label;
}

TEST(HerbPicker, AFailedSearchLeavesTheListAsItWas) {
    for (const int call : {1, 2}) {
        OrderDesk desk;
        const std::string pick = open(desk, "당귀", -1, [&] {
            desk.line->failAt(call);
            desk.user.press("cmdFind");
            desk.desktop.expectBox("데이터베이스 접속 오류", "데이터베이스 접속에 오류가 발생했습니다.");
        });
        EXPECT_EQ(pick, "1|2|당귀|토당귀|320");
        desk.line->failAt(call);
        EXPECT_EQ(open(desk, "당귀", -1, [&] { desk.desktop.takeBox(); }), "-1|-1|||");
    }
}

}  // namespace
}  // namespace zelvo::composition
