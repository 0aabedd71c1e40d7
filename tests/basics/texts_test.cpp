#include <gtest/gtest.h>

#include <tuple>

#include "basics/Dates.h"
#include "basics/Fault.h"
#include "basics/Hangul.h"
#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::basics {
namespace {

TEST(Utf8, everythingThatIsNotUtf8IsReplaced) {
    using namespace std::string_literals;
    const std::pair<std::string, std::string> cases[] = {
        {"당귀 3g\r\n🌿 it''s", "당귀 3g\r\n🌿 it''s"},
        {"0123456789abcdef\0x\0"s, "0123456789abcdefx"},
        {"a\x80z\xff", "a\uFFFDz\uFFFD"},
        {"감\xea\xb0", "감\uFFFD"},
        {"\xea\xb0z", "\uFFFDz"},
        {"\xc0\xaf", "\uFFFD\uFFFD"},                      // overlong
        {"\xed\xa0\x80", "\uFFFD\uFFFD\uFFFD"},            // a surrogate
        {"\xf4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond U+10FFFF
    };
    for (const auto& [dirty, clean] : cases) {
        EXPECT_EQ(cleanUtf8(dirty), clean);
        EXPECT_EQ(isUtf8(dirty), removeAll(dirty, "\0"s) == clean) << clean;
        EXPECT_EQ(characterCount(removeAll(dirty, "\0"s)), characterCount(clean)) << clean;
    }
}

TEST(Hangul, isFoundAsItIsTyped) {
    constexpr std::size_t none = std::string::npos;
    const std::tuple<const char*, const char*, std::size_t> places[] = {
        {"당귀", "ㄷㄱ", 0},    {"토당귀(국산)", "당귀", 1},  {"당귀", "다", 0}, {"당귀", "닥", none},
        {"당귀", "ㄱㄷ", none}, {"Ginseng 삼", "SENG ㅅ", 3}, {"당귀", "", 0},   {"귀", "당귀", none}};
    for (const auto& [text, typed, place] : places) EXPECT_EQ(findTyped(text, typed), place) << text << typed;
    const std::pair<const char*, const char*> keys[] = {
        {"ekdrnl", "당귀"},  {"rka ch", "감 초"}, {"dkswek", "앉다"}, {"rhksrka", "관감"}, {"Tkr", "싹"},
        {"qkfrdms", "밝은"}, {"rktk", "가사"},    {"dhQk", "오빠"},   {"EKD", "땅"},       {"1r", "1ㄱ"}};
    for (const auto& [latin, hangul] : keys) EXPECT_EQ(hangulOfKeys(latin), hangul) << latin;
}

TEST(Dates, whatReadsAsADate) {
    struct Case {
        std::string text, date, dateTime;
    };
    const Case cases[] = {
        {" 2000-02-29 ", "2000-02-29", "2000-02-29 00:00:00"},
        {"2024-02-29 09:05:01.997", "2024-02-29", "2024-02-29 09:05:01"},
        {"2024/02/29 09:05:01", "2024-02-29", "2024-02-29 09:05:01"},
        {"2024-02-29T09:05:01.1234567", "2024-02-29", "2024-02-29 09:05:01"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(formatDate(c.text), c.date);
        EXPECT_EQ(formatDateTime(c.text), c.dateTime);
    }
    for (const char* text :
         {"1900-02-29", "2024-13-01", "2024-04-31", "0000-01-01", "2024-1-1", "2024-01/01", "2024-01-01x",
          "2024-01-01 24:00:00", "2024-01-01 10:00", "2024-01-01 10:00:00.", "", "-1"}) {
        EXPECT_THROW(formatDate(text), Fault) << text;
        EXPECT_THROW(formatDateTime(text), Fault) << text;
    }
    EXPECT_FALSE(parseDate("2024-02-29 10:00:00"));
}

}  // namespace
}  // namespace zelvo::basics
