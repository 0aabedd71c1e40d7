#include <gtest/gtest.h>

#include "basics/Dates.h"
#include "basics/Fault.h"
#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::basics {
namespace {

TEST(Utf8, everythingThatIsNotUtf8IsReplaced) {
    struct Case {
        std::string name, dirty, clean;
    };
    using namespace std::string_literals;
    const std::vector<Case> cases{
        {"sound", "당귀 3g\r\n🌿 it''s", "당귀 3g\r\n🌿 it''s"},
        {"U+0000", "a\0b\0"s, "ab"},
        {"U+0000 deep in a long text", "0123456789abcdef\0x"s, "0123456789abcdefx"},
        {"lone tail byte", "a\x80z", "a\uFFFDz"},
        {"bytes of no character", "\xff\xfe", "\uFFFD\uFFFD"},
        {"cut at the end", "감\xea\xb0", "감\uFFFD"},
        {"cut in the middle", "\xea\xb0z", "\uFFFDz"},
        {"overlong", "\xc0\xaf\xe0\x80\xaf", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"surrogate", "\xed\xa0\x80", "\uFFFD\uFFFD\uFFFD"},
        {"beyond U+10FFFF", "\xf4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"four bytes cut", "\xf0\x9f\x8c", "\uFFFD"},
        {"code page 949", "\xb4\xe7\xb1\xcd", "\uFFFD\uFFFD\uFFFD"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(cleanUtf8(c.dirty), c.clean) << c.name;
        EXPECT_TRUE(isUtf8(c.clean)) << c.name;
        EXPECT_EQ(isUtf8(c.dirty), removeAll(c.dirty, "\0"s) == c.clean) << c.name;
        EXPECT_EQ(characterCount(removeAll(c.dirty, "\0"s)), characterCount(c.clean)) << c.name;
    }
}

TEST(Utf8, partsAreCutBetweenCharacters) {
    const std::string text = "가a🌿나";
    EXPECT_EQ(characterCount(text), 4U);
    EXPECT_EQ(byteOffset(text, 2), 4U);
    EXPECT_EQ(byteOffset(text, 9), text.size());
    EXPECT_EQ(part(text, 1, 2), "a🌿");
    EXPECT_EQ(part(text, 3), "나");
    EXPECT_EQ(part(text, 4, 1), "");
    EXPECT_EQ(characterAt(text, 4), U'🌿');
    EXPECT_EQ(characterAt(text, 5), char32_t{0xFFFD});
    EXPECT_EQ(characterAt(text, text.size()), char32_t{0xFFFD});
    for (const char32_t c : {U'A', U'é', U'가', U'🌿'}) EXPECT_EQ(characterAt(toUtf8(c), 0), c);
    EXPECT_EQ(toUtf8(0xD800), "\uFFFD");
    EXPECT_EQ(foldCase("aBÉ가"), "abÉ가");
}

TEST(Text, cuttingAndJoining) {
    EXPECT_EQ(trim("  a b\t "), "a b\t");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(removeBlanks(" a b "), "ab");
    EXPECT_EQ(replaceAll("'a''", "'", "''"), "''a''''");
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");

    const std::vector<std::pair<std::string, std::vector<std::string>>> lists{
        {"", {""}},
        {"a", {"a"}},
        {"/$CD$/", {"", ""}},
        {"a/$CD$/b/$CD$/", {"a", "b", ""}},
        {"/$CD/$CD$/x", {"/$CD", "x"}},
    };
    for (const auto& [text, parts] : lists) {
        EXPECT_EQ(split(text, "/$CD$/"), parts) << text;
        EXPECT_EQ(join(parts, "/$CD$/"), text);
    }
}

TEST(Dates, whatReadsAsADate) {
    struct Case {
        std::string text, date, dateTime;
    };
    const std::vector<Case> cases{
        {"2024-02-29", "2024-02-29", "2024-02-29 00:00:00"},
        {"2024-02-29 23:59:59", "2024-02-29", "2024-02-29 23:59:59"},
        {"2024-02-29 09:05:01.997", "2024-02-29", "2024-02-29 09:05:01"},
        {"2024/02/29 09:05:01", "2024-02-29", "2024-02-29 09:05:01"},
        {"2024-02-29T09:05:01.1234567", "2024-02-29", "2024-02-29 09:05:01"},
        {" 2000-02-29 ", "2000-02-29", "2000-02-29 00:00:00"},
        {"2023-02-29", "", ""},
        {"1900-02-29", "", ""},
        {"2024-13-01", "", ""},
        {"2024-00-10", "", ""},
        {"2024-04-31", "", ""},
        {"0000-01-01", "", ""},
        {"2024-1-1", "", ""},
        {"2024-01/01", "", ""},
        {"2024-01-01x", "", ""},
        {"2024-01-01 24:00:00", "", ""},
        {"2024-01-01 10:60:00", "", ""},
        {"2024-01-01 10:00", "", ""},
        {"2024-01-01 10:00:00.", "", ""},
        {"", "", ""},
        {"-1", "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        if (c.date.empty()) {
            EXPECT_THROW(formatDate(c.text), Fault);
            EXPECT_THROW(formatDateTime(c.text), Fault);
            continue;
        }
        EXPECT_EQ(formatDate(c.text), c.date);
        EXPECT_EQ(formatDateTime(c.text), c.dateTime);
        EXPECT_EQ(plainDateTimeText(*parseDateTime(c.text)),
                  c.dateTime.ends_with("00:00:00") ? c.date : c.dateTime);
    }
    EXPECT_FALSE(parseDate("2024-02-29 10:00:00"));
    EXPECT_FALSE(parseDate("2024/02/29"));
    EXPECT_EQ(parseDate(dateText(today())), today());
}

}  // namespace
}  // namespace zelvo::basics
