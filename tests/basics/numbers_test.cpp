#include "basics/Numbers.h"

#include <gtest/gtest.h>

#include <limits>

#include "basics/Fault.h"
#include "basics/Pictures.h"

namespace zelvo::basics {
namespace {

const std::string nines400(400, '9');

TEST(Numbers, whatCountsAsANumberAndWhatItSays) {
    struct Case {
        std::string text;
        double fromStart, whole;
        std::string bare;
    };
    const Case numbers[] = {
        {"  12.5 ", 12.5, 12.5, "12.5"},
        {"12,500", 12, 12500, "12500"},
        {"1,2,3", 1, 123, "123"},
        {"-.5", -0.5, -0.5, "-.5"},
        {"+7", 7, 7, "7"},
    };
    for (const Case& c : numbers) {
        EXPECT_TRUE(IsNumeric(c.text)) << c.text;
        EXPECT_EQ(numberFromStart(c.text), c.fromStart) << c.text;
        EXPECT_EQ(toNumber(c.text), c.whole) << c.text;
        EXPECT_EQ(bareNumber(c.text), c.bare) << c.text;
    }
    const std::pair<std::string, double> starts[] = {
        {"12abc", 12},
        {"1.2.3", 1.2},
        {"nan", 0},
        {nines400, std::numeric_limits<double>::max()},
    };
    for (const auto& [text, start] : starts) EXPECT_EQ(numberFromStart(text), start) << text;
    const std::string others[] = {"12abc",    "1 2",   "1e5",  "1.2.3", ",5",   "1.5,0", ".",
                                  "- 5",      "--5",   "0x1F", "nan",   "-inf", "１２",  "1; DROP TABLE t",
                                  {"1\0", 2}, nines400};
    for (const std::string& text : others) {
        EXPECT_FALSE(IsNumeric(text)) << text;
        EXPECT_THROW(toNumber(text), Fault) << text;
        EXPECT_THROW(bareNumber(text), Fault) << text;
    }
    EXPECT_FALSE(IsNumeric("  "));
    EXPECT_THROW(toNumber("  "), Fault);
    EXPECT_EQ(bareNumber("  "), "0");
}

TEST(Numbers, wholeNumbersRoundHalvesToTheEvenNeighbourAndStayInRange) {
    const std::pair<const char*, std::int32_t> fits[] = {
        {"0.5", 0},
        {"1.5", 2},
        {"2.5", 2},
        {"12,345.5", 12346},
        {"0.49999999999999994", 0},
        {"2147483647.4", 2147483647},
        {"-2147483648.5", std::numeric_limits<std::int32_t>::min()},
    };
    for (const auto& [text, value] : fits) EXPECT_EQ(toInt32(text), value) << text;
    for (const char* text : {"2147483647.5", "-2147483649", "10000000000000"})
        EXPECT_THROW(toInt32(text), Fault) << text;
    EXPECT_EQ(toInt16("-32768.5"), -32768);
    EXPECT_THROW(toInt16("32767.5"), Fault);
    EXPECT_THROW(toSingle("4" + std::string(38, '0')), Fault);
}

TEST(Numbers, decimalTextReadsBackAndNeverHasAnExponent) {
    for (const float value : {0.1F, 17.5F, 1.0e-7F, 123456.7F, 3.4e38F, -0.333F, 16777216.0F}) {
        const std::string text = decimalText(value);
        EXPECT_EQ(text.find_first_not_of("-.0123456789"), std::string::npos) << text;
        EXPECT_EQ(toSingle(text), value) << text;
    }
    EXPECT_EQ(decimalText(0.1F) + " " + decimalText(4.0F) + " " + decimalText(-0.0F), "0.1 4 0");
    EXPECT_THROW(decimalText(std::numeric_limits<float>::infinity()), Fault);
}

TEST(Pictures, amountsThroughTheThreePictures) {
    struct Case {
        std::string text, plain, separated, separatedZero;
    };
    const Case cases[] = {
        {"-0.4", "", "", "0"},
        {"0.5", "1", "1", "1"},
        {"-2.5", "-3", "-3", "-3"},
        {"999.5", "1000", "1,000", "1,000"},
        {"-123456", "-123456", "-123,456", "-123,456"},
        {"약재", "약재", "약재", "약재"},
        {"", "", "", ""},
        {nines400, nines400, nines400, nines400},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(formatText(c.text, NumberPicture::Plain), c.plain) << c.text;
        EXPECT_EQ(formatText(c.text, NumberPicture::Separated), c.separated) << c.text;
        EXPECT_EQ(formatText(c.text, NumberPicture::SeparatedZero), c.separatedZero) << c.text;
    }
}

}  // namespace
}  // namespace zelvo::basics
