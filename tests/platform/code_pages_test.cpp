#include <gtest/gtest.h>

#include "platform/text/MachineCodePages.h"

namespace zelvo::text {
namespace {

TEST(MachineCodePages, ReadTheBytesOfOldDocuments) {
    struct Case {
        std::string name, bytes, text;
        int page;
    };
    const screen::CodePages pages = machineCodePages();
    for (const Case& c : std::vector<Case>{
             {"Hangul, the second byte a letter", "a\xb0\xa1\x8c\x63", "a가똠", 949},
             {"what is no pair takes no byte of the next", "\xc9\xa1\xb0\xa1\xc9zz", "\uFFFD가\uFFFDzz", 949},
             {"half a pair at the end", "\xb0\xa1\xb0", "가\uFFFD", 949},
             {"nothing is left over from the text before", "\xa1\xb0", "“", 949},
             {"a western page", "\x93\xe9\x81\x94", "“é\uFFFD”", 1252},
             {"a page that no machine has", "a\xff", "a\uFFFD", 4},
             {"nothing", "", "", 949},
         }) {
        EXPECT_EQ(pages(c.bytes, c.page), c.text) << c.name;
    }
}

}  // namespace
}  // namespace zelvo::text
