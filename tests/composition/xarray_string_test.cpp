#include "composition/clsXArrayString.h"

#include <gtest/gtest.h>

#include "basics/Fault.h"

namespace zelvo::composition {
namespace {

TEST(XArrayString, WritesWhatItHasRead) {
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
