#include <gtest/gtest.h>

#include "platform/text/MachineCodePages.h"
#include "screen/RtfReader.h"
#include "screen/RtfWriter.h"

namespace zelvo::screen {
namespace {

std::string rtfToPlain(std::string_view rtf) {
    return plainText(readRtf(rtf, text::machineCodePages()));
}

TEST(Rtf, ATextComesBackAsItWas) {
    for (const std::string& text :
         std::vector<std::string>{"첫 줄\r\n둘째 줄\r\n", "a\tb", R"(\par {brace} C:\zelvo\)",
                                  "뷁힣\U0001F600\u00E9", "\uFFFD\uE000", "'hh \\'41"}) {
        EXPECT_EQ(rtfToPlain(plainToRtf(text)), text);
    }
    EXPECT_EQ(plainToRtf(""), "");
    const std::string rtf = plainToRtf("한\nb");
    EXPECT_NE(rtf.find("\\u-10916?\\par"), std::string::npos) << rtf;
    for (const char c : rtf) EXPECT_GE(c, 0) << "ASCII only";
}

TEST(Rtf, ReadsWhatOtherEditorsWrite) {
    struct Case {
        std::string name, rtf, text;
    };
    const std::vector<Case> cases{
        {"no RTF", "그냥 {\\par}", "그냥 {\\par}"},
        {"tables of fonts and colours", R"({\rtf1{\fonttbl{\f0 Gulim;}}{\colortbl;\red0;}\b\fs20 a})", "a"},
        {"a group for newer readers", R"({\rtf1{\*\generator Riched20;}a{\*\x{b}}c})", "ac"},
        {"signed and unsigned units", R"({\rtf1\u-10916?\u54620?})", "한한"},
        {"a pair, half a pair", R"({\rtf1\u-10179?\u-8704?a\u55357?b\u56832?})", "😀a�b�"},
        {"fallbacks counted by the group", R"({\rtf1\uc2\u44032\'b0\'a1{\uc0\u44032 b\u44032 c}\u44032xyz})",
         "가가b가c가z"},
        {"no fallback where one is due", R"({\rtf1\u44032\u44032{x}\par y})", "가가x\r\ny"},
        {"lines and tabs", "{\\rtf1 a\\par\r\nb\\line c\\tab d\\par}", "a\r\nb\r\nc\td"},
        {"bytes", R"({\rtf1 \'41\'b0\'a1\'7e\'zz})", "A가~zz"},
        {"binary data", "{\\rtf1 a{\\pict\\bin3 }}{}b}", "ab"},
        {"cut behind a backslash", "{\\rtf1 a\\", "a"},
        {"a number without end", R"({\rtf1 a\bin99999999999999999999b})", "a"},
        {"a unit that is none", R"({\rtf1 \u99999999?\u0?b})", "�b"},
        {"no bottom", "{\\rtf1 a" + std::string(100'000, '{') + "x" + std::string(100'000, '}') + "b}", "ab"},
    };
    for (const Case& c : cases) EXPECT_EQ(rtfToPlain(c.rtf), c.text) << c.name;
}

}  // namespace
}  // namespace zelvo::screen
