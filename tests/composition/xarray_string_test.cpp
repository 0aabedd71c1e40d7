#include "composition/clsXArrayString.h"

#include "basics/Fault.h"
#include "composition/modHanYakGuk.h"

namespace zelvo::composition {
namespace {

TEST(XArrayString, WritesCellsAndRowsWithTheirSeparatorsBetween) {
    const clsXArrayString form;
    tables::XArrayDB herbs;
    std::string text = "former";
    herbs.reDim(-1, 10);
    EXPECT_EQ(form.XArrayDB2String(herbs, text, rowSeparator, cellSeparator), 0);
    EXPECT_EQ(text, "");

    herbs.reDim(1, 3);
    herbs.set(0, 0, "당귀");
    herbs.set(0, 1, std::int32_t{12345});
    herbs.set(0, 3, true);
    EXPECT_EQ(form.XArrayDB2String(herbs, text, rowSeparator, cellSeparator), 2);
    EXPECT_EQ(text, "당귀/$CD$/12345/$CD$//$CD$/-1/$RD$//$CD$//$CD$//$CD$/");
}

TEST(XArrayString, ReadsBack) {
    struct Case {
        const char *name, *text;
        std::int16_t columns;
        int rows, lastColumn;
        const char* writtenAgain;
    };
    const Case cases[] = {
        {"nothing", "", 3, 0, 2, ""},
        {"more columns than cells", "a,b;c,d", 3, 2, 2, "a,b,;c,d,"},
        {"more cells than columns", "a,b,c", 2, 1, 2, "a,b,c"},
        {"a longer later row is cut", "a;b,c", 1, 2, 0, "a;b"},
    };
    tables::XArrayDB array;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::string text;
        EXPECT_EQ(clsXArrayString().String2XArrayDB(c.text, array, ";", ",", c.columns), c.rows);
        EXPECT_EQ(array.upperColumn(), c.lastColumn);
        EXPECT_EQ(clsXArrayString().XArrayDB2String(array, text, ";", ","), c.rows);
        EXPECT_EQ(text, c.writtenAgain);
    }
    EXPECT_THROW(clsXArrayString().String2XArrayDB("a,b;c", array, ";", ",", 2), basics::Fault);
}

}  // namespace
}  // namespace zelvo::composition
