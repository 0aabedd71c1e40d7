#include "composition/modHanYakGuk.h"

#include "composition/OrderDesk.h"

namespace zelvo::composition {
namespace {

using testing::addRows;
using testing::TestDesktop;

tables::XArrayDB herbsOf(const std::string& rows) {
    tables::XArrayDB herbs;
    herbs.reDim(-1, herb::lastColumn);
    addRows(herbs, herb::name, rows);
    return herbs;
}

TEST(HerbRules, GramsMakeTheAmount) {
    const struct {
        const char *name, *before, *after;
    } cases[] = {
        {"halves upward", "당귀|토당귀|2|0.5|5", "당귀|토당귀|2|0.5|5|3||0||"},
        {"a price with separators", "녹용|녹용|2|2|12,500", "녹용|녹용|2|2|12,500|25000||0||"},
        {"an amount that rounds to nothing", "계피|계피|7|1|0.02|9||0", "계피|계피|7|1|0.02|||-1||"},
        {"grams that are no number", "당귀|토당귀|2|4g|32|128||0", "당귀|토당귀|2||32|||-1||"},
        {"no price", "당귀|토당귀|2|4||128||0", "당귀|토당귀|2|4||||-1||"},
        {"a pharmacy name of blanks", "당귀|  |2|4|32", "당귀|  |2|4|32|128||-1||"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        TestDesktop desktop;
        tables::XArrayDB herbs = herbsOf(c.before);
        EXPECT_EQ(modHanYakGuk::Update_DrugCell(desktop, herb::grams, 0, herbs), 0);
        EXPECT_EQ(testing::rowsOf(herbs, herb::name), c.after);
    }
    TestDesktop desktop;
    tables::XArrayDB herbs = herbsOf("당귀|토당귀|2|9999999|99999999999999999999999999999999999999|5");
    EXPECT_EQ(modHanYakGuk::Update_DrugCell(desktop, herb::grams, 0, herbs), -1);
    EXPECT_TRUE(desktop.takeBox().text.ends_with("/ Colindex=[4] / intRowMark=[0]"));
}

TEST(CostFields, HoldTheSectionsThatTheOrderTypeHas) {
    const std::string none(64, '0');
    std::string both = none;
    both[2] = both[63] = '1';
    const struct {
        const char *name, *sections, *method, *addOns;  // add-ons: mark and slot
        std::string fields;  // job, method, slots, packets, price, millilitres, pouches, cells of the herbs
    } cases[] = {
        {"both", "-1|-1", "-1", "-1|3\n0|4\n-1|64", "12|3|" + both + "|20|500|120|42|11"},
        {"no add-on", "-1|-1", "-1", "", "12|3|" + none + "|20|500|120|42|11"},
        {"herbs only", "-1|0", "0", "-1|3", "12|||20|500|||11"},
        {"decoction only", "0|-1", "-1", "", "12|3|" + none + "|||120|42|1"},
        {"a slot that there is not", "-1|-1", "-1", "-1|65", "fault"},
        {"no slot", "-1|-1", "-1", "-1|\n-1|3", "fault"},
        {"slots count from one", "-1|-1", "-1", "-1|0", "fault"},
        {"no method chosen", "-1|-1", "0", "", "fault"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        tables::XArrayDB jobs, methods, addOns;
        for (tables::XArrayDB* options : {&jobs, &methods, &addOns}) options->reDim(-1, 7);
        addRows(jobs, 0, std::string("0|11||||0|0\n-1|12||||") + c.sections);
        addRows(methods, 0, std::string(c.method) + "|3");
        addRows(addOns, 0, basics::replaceAll(c.addOns, "|", "|||||"));
        modHanYakGuk::CostFields f{{}, {}, {}, {}, "20", "500", "120", "42"};
        const bool built = modHanYakGuk::Build_CostFields(jobs, herbsOf("당귀"), methods, addOns, f) == 0;
        const auto cells = std::to_string(basics::split(f.DrugText, cellSeparator).size());
        const auto fields = basics::join(
            {f.JobListKey, f.TJMLKey, f.TJALSlot, f.Chubsu, f.DrugPrice, f.PouchAmount, f.PouchTotal, cells},
            "|");
        EXPECT_EQ(built ? fields : "fault", c.fields);
    }
}

}  // namespace
}  // namespace zelvo::composition
