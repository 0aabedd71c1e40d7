#include "basics/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "basics/Fault.h"
#include "basics/Pictures.h"

namespace zelvo::basics {
namespace {

const std::string nines400(400, '9');

TEST(Numbers, whatCountsAsANumberAndWhatItSays) {
    struct Case {
        std::string text;
        bool numeric;
        double fromStart, whole;
        std::string bare;
    };
    const std::vector<Case> cases{
        {"20", true, 20, 20, "20"},
        {"  12.5 ", true, 12.5, 12.5, "12.5"},
        {"12,500", true, 12, 12500, "12500"},
        {"1,2,3", true, 1, 123, "123"},
        {"-7", true, -7, -7, "-7"},
        {"+7", true, 7, 7, "7"},
        {".5", true, 0.5, 0.5, ".5"},
        {"-.5", true, -0.5, -0.5, "-.5"},
        {"5.", true, 5, 5, "5."},
        {"007", true, 7, 7, "007"},
        {"0." + std::string(400, '0') + "1", true, 0, 0, "0." + std::string(400, '0') + "1"},
        {"", false, 0, 0, "0"},
        {"   ", false, 0, 0, "0"},
        {"abc", false, 0, 0, "fault"},
        {"12abc", false, 12, 0, "fault"},
        {"1 2", false, 1, 0, "fault"},
        {"1e5", false, 1, 0, "fault"},
        {"1.2.3", false, 1.2, 0, "fault"},
        {",5", false, 0, 0, "fault"},
        {"1.5,0", false, 1.5, 0, "fault"},
        {".", false, 0, 0, "fault"},
        {"-", false, 0, 0, "fault"},
        {"- 5", false, 0, 0, "fault"},
        {"--5", false, 0, 0, "fault"},
        {"5-", false, 5, 0, "fault"},
        {"0x1F", false, 0, 0, "fault"},
        {"nan", false, 0, 0, "fault"},
        {"-inf", false, 0, 0, "fault"},
        {"１２", false, 0, 0, "fault"},
        {"1; DROP TABLE t", false, 1, 0, "fault"},
        {std::string("1\0", 2), false, 1, 0, "fault"},
        {nines400, false, std::numeric_limits<double>::max(), 0, "fault"},
        {"-" + nines400, false, std::numeric_limits<double>::lowest(), 0, "fault"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE("'" + c.text + "'");
        EXPECT_EQ(IsNumeric(c.text), c.numeric);
        EXPECT_EQ(numberFromStart(c.text), c.fromStart);
        if (c.numeric) {
            EXPECT_EQ(toNumber(c.text), c.whole);
        } else {
            EXPECT_THROW(toNumber(c.text), Fault);
        }
        if (c.bare == "fault") {
            EXPECT_THROW(bareNumber(c.text), Fault);
        } else {
            EXPECT_EQ(bareNumber(c.text), c.bare);
        }
    }
}

TEST(Numbers, wholeNumbersRoundHalvesToTheEvenNeighbourAndStayInRange) {
    const std::vector<std::pair<std::string, std::int32_t>> fits{
        {"0.5", 0},
        {"1.5", 2},
        {"2.5", 2},
        {"-0.5", 0},
        {"-1.5", -2},
        {"-2.5", -2},
        {"12,345.5", 12346},
        {"0.49999999999999994", 0},
        {"2147483647.4", 2147483647},
        {"-2147483648.5", std::numeric_limits<std::int32_t>::min()},
    };
    for (const auto& [text, value] : fits) EXPECT_EQ(toInt32(text), value) << text;
    for (const char* text : {"2147483647.5", "2147483648", "-2147483649",
                             "1"
                             "0000000000000"}) {
        EXPECT_THROW(toInt32(text), Fault) << text;
    }
    EXPECT_EQ(toInt16("32767.4"), 32767);
    EXPECT_EQ(toInt16("-32768.5"), -32768);
    EXPECT_THROW(toInt16("32767.5"), Fault);
    EXPECT_THROW(toInt16("-32769"), Fault);
    EXPECT_THROW(toInt32(std::nan("")), Fault);
    EXPECT_THROW(toSingle("4" + std::string(38, '0')), Fault);
}

TEST(Numbers, decimalTextReadsBackAndNeverHasAnExponent) {
    for (const float value : {0.1F, 17.5F, 4.0F, 1.0e-7F, 123456.7F, 3.4e38F, -0.333F, 16777216.0F}) {
        const std::string text = decimalText(value);
        EXPECT_EQ(text.find_first_not_of("-.0123456789"), std::string::npos) << text;
        EXPECT_EQ(toSingle(text), value) << text;
    }
    EXPECT_EQ(decimalText(0.1F), "0.1");
    EXPECT_EQ(decimalText(4.0F), "4");
    EXPECT_EQ(decimalText(-0.0F), "0");
    EXPECT_EQ(decimalText(std::numeric_limits<double>::denorm_min()).size(), 326U);
    EXPECT_THROW(decimalText(std::numeric_limits<float>::infinity()), Fault);
}

TEST(Numbers, checkedArithmeticThrowsAtTheEdges) {
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(addChecked(most - 1, 1), most);
    EXPECT_THROW(addChecked(most, 1), Fault);
    EXPECT_EQ(subtractChecked(least + 1, 1), least);
    EXPECT_THROW(subtractChecked(least, 1), Fault);
    EXPECT_THROW(multiplyChecked(65536, 32768), Fault);
    EXPECT_THROW(multiplyChecked(least, -1), Fault);
}

TEST(Pictures, amountsThroughTheThreePictures) {
    struct Case {
        std::string text, plain, separated, separatedZero;
    };
    const std::vector<Case> cases{
        {"0", "", "", "0"},
        {"0.4", "", "", "0"},
        {"-0.4", "", "", "0"},
        {"0.5", "1", "1", "1"},
        {"2.5", "3", "3", "3"},
        {"-2.5", "-3", "-3", "-3"},
        {"999.5", "1000", "1,000", "1,000"},
        {"100", "100", "100", "100"},
        {"1234567", "1234567", "1,234,567", "1,234,567"},
        {"-123456", "-123456", "-123,456", "-123,456"},
        {" 1,2,3 ", "123", "123", "123"},
        {"약재", "약재", "약재", "약재"},
        {"", "", "", ""},
        {nines400, nines400, nines400, nines400},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(formatText(c.text, NumberPicture::Plain), c.plain);
        EXPECT_EQ(formatText(c.text, NumberPicture::Separated), c.separated);
        EXPECT_EQ(formatText(c.text, NumberPicture::SeparatedZero), c.separatedZero);
    }
    EXPECT_EQ(formatNumber(std::numeric_limits<double>::max(), NumberPicture::Separated).size(), 309U + 102U);
}

}  // namespace
}  // namespace zelvo::basics
