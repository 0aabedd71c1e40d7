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
        const char *text, *writtenAgain;
        int rows, lastColumn;
    };
    tables::XArrayDB array;
    for (const Case& c : {Case{"", "", 0, 1},
                          {"a;b", "a,;b,", 2, 1},
                          {"a,b,c", "a,b,c", 1, 2},
                          {"a,b;c,d,e", "a,b;c,d", 2, 1}}) {
        SCOPED_TRACE(c.text);
        std::string text;
        EXPECT_EQ(clsXArrayString().String2XArrayDB(c.text, array, ";", ",", 2), c.rows);
        EXPECT_EQ(array.upperColumn(), c.lastColumn);
        clsXArrayString().XArrayDB2String(array, text, ";", ",");
        EXPECT_EQ(text, c.writtenAgain);
    }
    EXPECT_THROW(clsXArrayString().String2XArrayDB("a,b;c", array, ";", ",", 2), basics::Fault);
}

}  // namespace
}  // namespace zelvo::composition
