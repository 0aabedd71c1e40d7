#include "composition/HerbDesk.h"
#include "composition/frmYakGukDrug.h"

namespace zelvo::composition {
namespace {

using testing::HerbDesk;
constexpr const char* list = "tdbYakgukDrug";

/// Opens the picker for a name and leaves it as `gestures` do: result, key, name, pharmacy name, price.
std::string open(HerbDesk& desk, const std::string& name, std::int32_t key,
                 std::function<void(frmYakGukDrug&)> gestures) {
    std::string callSign, internal, price;
    frmYakGukDrug picker(desk.desktop, desk.session);
    desk.desktop.whenShown("frmYakGukDrug", [&](screen::Window&) { gestures(picker); });
    const std::int16_t result = picker.HanYakGukDrug_DropDownOpen(name, key, callSign, internal, price);
    EXPECT_EQ(desk.desktop.pointer(), screen::Pointer::Normal);
    return basics::join({std::to_string(result), std::to_string(key), callSign, internal, price}, "|");
}

TEST(HerbPicker, GivesWhatWasCurrentUnlessLeftByEsc) {
    HerbDesk desk;
    auto& user = desk.user;
    const auto enter = [&] { user.key(list, {"Enter"}); };
    const auto find = [&](const char* name) {
        user.type("txtDrugFind", name);
        user.press("cmdFind");
    };
    struct Case {
        const char *label, *name;
        std::int32_t key;
        std::function<void()> gestures;
        std::string pick;
    };
    const std::vector<Case> cases = {
        {"the recommended one comes first", " 당귀 ", -1, enter, "1|2|당귀|토당귀|320"},
        {"the herb in hand is current", "당귀", 1, enter, "1|1|당귀|일당귀|18"},
        {"a key that is not on sale", "당귀", 99, enter, "1|2|당귀|토당귀|320"},
        {"moved and closed", "당귀", -1, [&] { user.row(list, 1), user.close(); }, "1|1|당귀|일당귀|18"},
        {"moved and Esc", "당귀", -1, [&] { user.row(list, 1), user.key("txtDrugFind", {"Esc"}); },
         "0|-1|||"},
        {"Enter on an empty list", "인삼", -1, enter, "-1|-1|||"},
        {"Enter in the search", "인삼", -1,
         [&] {
             user.type("txtDrugFind", "작"), user.key("txtDrugFind", {"Enter"}), user.key(list, {"Enter"});
         },
         "1|3|작약|작약(국산)|18"},
        {"then nothing found", "당귀", -1, [&] { find("인삼"), user.close(); }, "-1|-1|||"},
        {"withdrawn, or without a price today", "감초", -1, [&] { find("천궁"), enter(); }, "-1|-1|||"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(open(desk, c.name, c.key, [&](frmYakGukDrug&) { c.gestures(); }), c.pick);
    }
}

TEST(HerbPicker, AFailedSearchLeavesTheListAsItWas) {
    for (const int call : {1, 2}) {
        HerbDesk desk;
        const std::string pick = open(desk, "당귀", -1, [&](frmYakGukDrug& picker) {
            desk.connection->failAt(call);
            desk.user.press("cmdFind");
            desk.desktop.expectBox("데이터베이스 접속 오류", "데이터베이스 접속에 오류가 발생했습니다.");
            EXPECT_EQ(picker.tdbYakgukDrug.rowCount(), 2);
        });
        EXPECT_EQ(pick, "1|2|당귀|토당귀|320");
        desk.connection->failAt(call);
        EXPECT_EQ(open(desk, "당귀", -1, [&](frmYakGukDrug&) { desk.desktop.takeBox(); }), "-1|-1|||");
    }
}

}  // namespace
}  // namespace zelvo::composition
