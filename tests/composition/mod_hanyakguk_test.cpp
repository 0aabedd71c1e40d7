#include "composition/modHanYakGuk.h"

#include "composition/HerbDesk.h"

namespace zelvo::composition {
namespace {

using testing::addRows;
using testing::rowsOf;
using testing::TestDesktop;

tables::XArrayDB herbsOf(const std::string& rows) {
    tables::XArrayDB herbs;
    herbs.reDim(-1, herb::lastColumn);
    addRows(herbs, herb::name, rows);
    return herbs;
}

TEST(HerbRules, ACellChangesItsRow) {
    struct Case {
        const char* name;
        int mode;
        const char *before, *after;
    };
    const Case cases[] = {
        {"a new name takes all that hung on the old", 1, "인삼|당귀|2|4|32|128||0", "인삼|||||||-1||"},
        {"grams at a price", 4, "당귀|토당귀|2|4.5|32", "당귀|토당귀|2|4.5|32|144||0||"},
        {"halves upward", 4, "당귀|토당귀|2|0.5|5", "당귀|토당귀|2|0.5|5|3||0||"},
        {"a price with separators", 4, "녹용|녹용|2|2|12,500", "녹용|녹용|2|2|12,500|25000||0||"},
        {"an amount that rounds to nothing", 4, "계피|계피|7|1|0.02|9||0", "계피|계피|7|1|0.02|||-1||"},
        {"grams that are no number", 4, "당귀|토당귀|2|4g|32|128||0", "당귀|토당귀|2||32|||-1||"},
        {"no price", 4, "당귀|토당귀|2|4||128||0", "당귀|토당귀|2|4||||-1||"},
        {"a pharmacy name of blanks", 4, "당귀|  |2|4|32", "당귀|  |2|4|32|128||-1||"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TestDesktop desktop;
        tables::XArrayDB herbs = herbsOf(c.before);
        EXPECT_EQ(modHanYakGuk::Update_DrugCell(desktop, c.mode, 0, herbs), 0);
        EXPECT_EQ(rowsOf(herbs, herb::name), c.after);
    }
}

TEST(HerbRules, ADuplicateIsAnyOtherRowWithTheSameText) {
    struct Case {
        const char *name, *rows;
        int row, answer;
    };
    const Case cases[] = {
        {"a table of one row", "|작약", 0, 0},      {"none", "|작약\n|당귀", 1, 0},
        {"before", "|작약\n|당귀\n|작약", 2, 1},    {"behind", "|당귀\n|작약\n|작약", 1, 3},
        {"blanks are no duplicates", "|\n|", 1, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TestDesktop desktop;
        tables::XArrayDB herbs = herbsOf(c.rows);
        const std::string before = herbs.text(c.row, 2);
        EXPECT_EQ(modHanYakGuk::Find_DuplicateDrug(desktop, herbs, c.row, 2, -1), c.answer);
        EXPECT_EQ(herbs.text(c.row, 2), before);
        EXPECT_EQ(modHanYakGuk::Find_DuplicateDrug(desktop, herbs, c.row, 2, 0), c.answer);
        EXPECT_EQ(herbs.text(c.row, 2), c.answer == 0 ? before : "");
    }
}

TEST(HerbRules, AFaultIsShownAndAnswersMinusOne) {
    TestDesktop desktop;
    tables::XArrayDB herbs = herbsOf("당귀|토당귀|2|9999999|99999999999999999999999999999999999999|5");
    EXPECT_EQ(modHanYakGuk::Update_DrugCell(desktop, 4, 0, herbs), -1);
    const screen::MessageBox box = desktop.takeBox();
    EXPECT_EQ(box.caption, "처방전 약재구성 에러");
    EXPECT_TRUE(box.text.ends_with("/ Colindex=[4] / intRowMark=[0]")) << box.text;
    EXPECT_EQ(modHanYakGuk::Find_DuplicateDrug(desktop, herbs, 7, 2, 0), -1);
    EXPECT_EQ(desktop.takeBox().caption, "약재구성");
}

TEST(CostFields, HoldTheSectionsThatTheOrderTypeHas) {
    const std::string none(64, '0');
    std::string both = none, third = none;
    both[2] = both[63] = third[2] = '1';
    struct Case {
        const char *name, *sections, *method, *addOns;  // add-ons: mark and slot
        std::string fields;  // job, method, slots, packets, price, millilitres, pouches, cells of the herbs
    };
    const Case cases[] = {
        {"both", "-1|-1", "-1", "-1|3\n0|4\n-1|64", "12|3|" + both + "|20|500|120|42|11"},
        {"no add-on", "-1|-1", "-1", "", "12|3|" + none + "|20|500|120|42|11"},
        {"an add-on without a slot", "-1|-1", "-1", "-1|3\n-1|\n-1|64",
         "12|3|" + third + "|20|500|120|42|11"},
        {"herbs only", "-1|0", "0", "-1|3", "12|||20|500|||11"},
        {"decoction only", "0|-1", "-1", "", "12|3|" + none + "|||120|42|1"},
        {"a slot that there is not", "-1|-1", "-1", "-1|65", "fault"},
        {"slots count from one", "-1|-1", "-1", "-1|0", "fault"},
        {"no method chosen", "-1|-1", "0", "", "fault"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        tables::XArrayDB jobs, methods, addOns;
        for (tables::XArrayDB* options : {&jobs, &methods, &addOns}) options->reDim(-1, 7);
        addRows(jobs, 0, std::string("0|11||||0|0\n-1|12||||") + c.sections);
        addRows(methods, 0, std::string(c.method) + "|3");
        addRows(addOns, 0, basics::replaceAll(c.addOns, "|", "|||||"));
        modHanYakGuk::CostFields f{{}, {}, {}, {}, "20", "500", "120", "42", false};
        const bool built = modHanYakGuk::Build_CostFields(jobs, herbsOf("당귀"), methods, addOns, f) == 0;
        const auto cells = std::to_string(basics::split(f.DrugText, cellSeparator).size());
        const std::vector<std::string> fields = {f.JobListKey, f.TJMLKey,     f.TJALSlot,   f.Chubsu,
                                                 f.DrugPrice,  f.PouchAmount, f.PouchTotal, cells};
        EXPECT_EQ(built ? basics::join(fields, "|") : "fault", c.fields);
    }
}

}  // namespace
}  // namespace zelvo::composition
