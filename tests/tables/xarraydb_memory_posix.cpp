#include <gtest/gtest.h>
#include <sys/resource.h>

#include "tables/XArrayDB.h"

namespace zelvo::tables {
namespace {

TEST(XArrayDB, aTextThatIsRewrittenForAWholeDayNeedsNoMoreMemory) {
    const auto peakMegabytes = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss / 1024;
    };
    XArrayDB array;
    array.reDim(9, 1);
    array.set(9, 1, "a text that lives on, longer than its cell");
    const long before = peakMegabytes();
    for (int i = 0; i < 50'000; ++i) array.set(i % 9, 0, std::string(10'000, 'x'));  // half a gigabyte in all
    EXPECT_LT(peakMegabytes() - before, 350);
    EXPECT_EQ(array.text(9, 1), "a text that lives on, longer than its cell");
}

}  // namespace
}  // namespace zelvo::tables
