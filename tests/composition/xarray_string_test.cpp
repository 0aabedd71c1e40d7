#include "composition/clsXArrayString.h"

#include "basics/Fault.h"
#include "composition/modHanYakGuk.h"

namespace zelvo::composition {
namespace {

TEST(XArrayString, WritesCellsAndRowsWithTheirSeparatorsBetween) {
    tables::XArrayDB herbs;
    std::string text;
    herbs.reDim(1, 2);
    herbs.set(0, 0, "당귀");
    herbs.set(0, 1, std::int32_t{12345});
    EXPECT_EQ(clsXArrayString().XArrayDB2String(herbs, text, rowSeparator, cellSeparator), 2);
    EXPECT_EQ(text, "당귀/$CD$/12345/$CD$//$RD$//$CD$//$CD$/");
}

TEST(XArrayString, ReadsBack) {
    tables::XArrayDB array;
    const std::pair<const char*, const char*> cases[] = {
        {"", ""}, {"a;b", "a,;b,"}, {"a,b,c", "a,b,c"}, {"a,b;c,d,e", "a,b;c,d"}};
    for (const auto& [read, written] : cases) {
        std::string text;
        const auto rows = clsXArrayString().String2XArrayDB(read, array, ";", ",", 2);
        EXPECT_EQ(clsXArrayString().XArrayDB2String(array, text, ";", ","), rows);
        EXPECT_EQ(text, written);
    }
    EXPECT_THROW(clsXArrayString().String2XArrayDB("a,b;c", array, ";", ",", 2), basics::Fault);
}

}  // namespace
}  // namespace zelvo::composition
