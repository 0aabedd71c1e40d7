#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include "basics/Text.h"
#include "basics/Utf8.h"
#include "platform/text/MachineCodePages.h"
#include "screen/RtfReader.h"
#include "screen/RtfWriter.h"
#include "support/Files.h"

namespace zelvo::screen {
namespace {

RichText read(std::string_view rtf) {
    return readRtf(rtf, text::machineCodePages());
}

/// A content in one line a paragraph: "C" for its alignment, "*" a bullet, "@400" its indent, and each run
/// behind what differs from a standard text of 12 points.
std::string look(const RichText& content) {
    std::vector<std::string> lines;
    for (const Paragraph& paragraph : content.paragraphs) {
        constexpr std::array<std::string_view, 4> alignments{"", "C ", "R ", "J "};
        std::string line(alignments[static_cast<std::size_t>(paragraph.alignment)]);
        if (paragraph.bullet) line += "* ";
        if (paragraph.indent > 0) line += "@" + std::to_string(paragraph.indent) + " ";
        for (const auto& [text, style] : paragraph.runs) {
            line += std::string("[") + (style.bold ? "b" : "") + (style.italic ? "i" : "") +
                    (style.underline ? "u" : "") + (style.strike ? "s" : "");
            if (style.family != standardFamily) line += " " + style.family;
            if (style.halfPoints != 24) line += " " + std::to_string(style.halfPoints);
            if (style.colour) {
                std::array<char, 8> hex{};
                std::snprintf(hex.data(), hex.size(), "#%02x%02x%02x", style.colour->red, style.colour->green,
                              style.colour->blue);
                line += hex.data();
            }
            line += "]" + text;
        }
        lines.push_back(line);
    }
    return basics::join(lines, "\n");
}

TEST(Rtf, ATextComesBackAsItWas) {
    for (const std::string& text :
         std::vector<std::string>{"첫 줄\r\n둘째 줄\r\n", "a\tb", R"(\par {brace} C:\zelvo\)",
                                  "뷁힣\U0001F600\u00E9", "\uFFFD\uE000", "'hh \\'41"}) {
        EXPECT_EQ(plainText(read(plainToRtf(text))), text);
    }
    EXPECT_EQ(plainToRtf(""), "");
    const std::string rtf = plainToRtf("한\nb");
    EXPECT_NE(rtf.find("\\u-10916?\\par"), std::string::npos) << rtf;
    for (const char c : rtf) EXPECT_GE(c, 0) << "ASCII only";
}

TEST(Rtf, ReadsTheTextOfWhatOtherEditorsWrite) {
    struct Case {
        std::string name, rtf, text;
    };
    const std::string fonts =
        R"({\rtf1\ansi\ansicpg949{\fonttbl{\f0\fcharset129 G;}{\f1\fcharset0 A;}{\f2\fcharset2 S;}{\f3\fcharset128 M;}}\f0 )";
    const std::vector<Case> cases{
        {"no RTF", "그냥 {\\par}", "그냥 {\\par}"},
        {"tables of fonts and colours", R"({\rtf1{\fonttbl{\f0 Gulim;}}{\colortbl;\red0;}\b\fs20 a})", "a"},
        {"a group for newer readers", R"({\rtf1{\*\generator Riched20;}a{\*\x{b}}c})", "ac"},
        {"no part of the text",
         R"({\rtf1{\stylesheet{x;}}{\info{\title x}}{\header x\par}{\pict 0f}a\v x\v0 b})", "ab"},
        {"a field, a text told twice, a text box",
         R"({\rtf1{\field{\*\fldinst X}{\fldrslt a}}{\upr{x}{\*\ud{b}}}{\shp{\*\shpinst{\sp{\sn x}}{\shptxt c}}}})",
         "abc"},
        {"signed and unsigned units", R"({\rtf1\u-10916?\u54620?})", "한한"},
        {"a pair, half a pair", R"({\rtf1\u-10179?\u-8704?a\u55357?b\u56832?})", "😀a�b�"},
        {"fallbacks counted by the group", R"({\rtf1\uc2\u44032\'b0\'a1{\uc0\u44032 b\u44032 c}\u44032xyz})",
         "가가b가c가z"},
        {"a pair as one fallback", fonts + R"(\u48373\'ba\'b9\u50857\'bf\'eb\'b9\'fd})", "복용법"},
        {"a pair as two fallbacks", fonts + R"(\uc2\u48373\'ba\'b9\'bf\'eb})", "복용"},
        {"a sign as a fallback", R"({\rtf1\u8226\bullet\u8211\endash a})", "•–a"},
        {"no fallback where one is due", R"({\rtf1\u44032\u44032{x}\par y})", "가가x\r\ny"},
        {"lines and tabs", "{\\rtf1 a\\par\r\nb\\line c\\tab d\\par}", "a\r\nb\r\nc\td"},
        {"rows of a table", R"({\rtf1\trowd a\cell b\cell\row c\par})", "a\tb\t\r\nc"},
        {"bytes", R"({\rtf1 \'41\'b0\'a1\'7e\'zz})", "A가~zz"},
        {"a second byte as a plain letter", fonts + R"(\'8cc\'b9\'e6\'8cC})", "똠방똂"},
        {"a first byte alone", fonts + R"(\'b0, \'b0\b\'a1})", "�, ��"},
        {"no character of the page", fonts + R"(\'c9\'a1\'b0\'a1})", "�가"},
        {"Hangul under a western font", fonts + R"(\f1\'c7\'d1 \'93a\'94 caf\'e9 b})", "한 “a” café b"},
        {"signs and another page", fonts + R"(\f2\'b7\f3\'83e\f0\'b0\'a1})", "•テ가"},
        {"a western document", R"({\rtf1\ansi\ansicpg1252 \'b0\'e9\'81\'94})", "°é�”"},
        {"a page that nobody knows", R"({\rtf1\ansi\ansicpg4 a\'ff})", "aÿ"},
        {"binary data", "{\\rtf1 a{\\pict\\bin3 }}{}b}", "ab"},
        {"cut behind a backslash", "{\\rtf1 a\\", "a"},
        {"a number without end", R"({\rtf1 a\bin99999999999999999999b})", "a"},
        {"a unit that is none", R"({\rtf1 \u99999999?\u0?b})", "�b"},
        {"no bottom", "{\\rtf1 a" + std::string(100'000, '{') + "x" + std::string(100'000, '}') + "b}", "ab"},
    };
    for (const Case& c : cases) EXPECT_EQ(plainText(read(c.rtf)), c.text) << c.name;
    EXPECT_EQ(plainText(readRtf(R"({\rtf1 a\'b0\'a1\'8cc})")), "a��") << "without the machine's tables";
    EXPECT_EQ(text::machineCodePages()("a\xff", 4), "a\uFFFD") << "a page that this machine has not";
}

TEST(Rtf, ReadsTheForm) {
    struct Case {
        std::string name, rtf, look;
    };
    const std::vector<Case> cases{
        {"switches", R"({\rtf1 a\b b\i c\b0\ul d\ulnone\i0\strike e\plain f})", "[]a[b]b[bi]c[iu]d[s]e[]f"},
        {"a group ends its own", R"({\rtf1{\b a{\i\b0 b}c}d})", "[b]a[i]b[b]c[]d"},
        {"font, size, colour",
         R"({\rtf1{\fonttbl{\f7\fcharset129 \'b5\'b8\'bf\'f2;}}{\colortbl;\red1\green2\blue255;}\f7\fs30\cf1 a\cf0\fs0 b\cf9\f8 c})",
         "[ 돋움 30#0102ff]a[ 돋움 30]b[ 30]c"},
        {"a font table without groups", R"({\rtf1{\fonttbl\f0 One;\f1 Two;}\f1 a})", "[ Two]a"},
        {"alignments", R"({\rtf1 a\par\qc b\par\qr c\par\qj d\par\pard e})", "[]a\nC []b\nR []c\nJ []d\n[]e"},
        {"the last paragraph without its end", R"({\rtf1{\qc\li300 a}})", "C @300 []a"},
        {"bullets until the next format", R"({\rtf1{\*\pn\pnlvlblt}\li360\fi-360 a\par b\par\pard c})",
         "* []a\n* []b\n[]c"},
        {"numbers stay text",
         R"({\rtf1{\pntext 1.\tab}{\*\pn\pnlvlbody}a\par{\listtext\'b0\'a1)\tab}b\par{\pntext o\tab}c})",
         "[]1.\ta\n[]가)\tb\n* []c"},
    };
    for (const Case& c : cases) EXPECT_EQ(look(read(c.rtf)), c.look) << c.name;
}

TEST(Rtf, ReadsWritesAndCutsWholeDocuments) {
    const std::pair<const char*, const char*> documents[] = {
        {"wordpad",
         "C [b 굴림 32]복용법\n[ 굴림 20]하루 [u 굴림 20#ff0000]3번[ 굴림 20], 식후\n* [ 굴림 20]찬물 금지\n"
         "* [ 굴림 20]술 금지\nR [i 굴림 20]당귀 한의원"},
        {"word97",
         "J [b 바탕 20#0000ff]식후 30분[ Times New Roman 20], 2 times[ 바탕 20]뷁\n"
         "@400 [ Times New Roman]1.\t[s 바탕 20]커피[ 바탕 20]\n우유"},
        {"plain-letters", "[ 20]똠방각하 펲시 햏, 100℃ 동의 한"},
        {"libreoffice",
         "C [b 나눔고딕 32#c9211e]복용법\n[ Liberation Serif]아침\t저녁[u Liberation Serif]식후\n"
         "* @360 [ Liberation Serif]따뜻하게\n* @360 [ Liberation Serif]천천히"},
        {"written",
         "C [b 굴림체 32#c8000a]복용법\n[ 20]하루 [b 굴림체 32#c8000a]3번[ 20]\t{식후}\n\\30분\n\n"
         "* [iu 20]따뜻하게[s 20]차게\nJ * @400 [ 20]1. 천천히\nR [ 20]당귀 한의원"},
    };
    for (const auto& [name, form] : documents) {
        SCOPED_TRACE(name);
        const std::string whole =
            testing::contentOf(std::string(ZELVO_SOURCE_DIR "/tests/screen/sheets/") + name + ".rtf");
        const RichText content = read(whole);
        EXPECT_EQ(look(content), form);
        const std::string again = writeRtf(content);
        EXPECT_EQ(look(read(again)), form);
        // Byte for byte as other editors have shown it with this form.
        EXPECT_TRUE(again == whole || name != std::string("written")) << again;
        const std::string full = plainText(content);
        for (std::size_t length = 6; length < whole.size(); ++length) {
            const std::string cut = plainText(read(whole.substr(0, length)));
            // The character that the cut went through may be another one.
            const std::size_t sure = std::max<std::size_t>(basics::characterCount(cut), 1) - 1;
            ASSERT_TRUE(full.starts_with(basics::part(cut, 0, sure))) << whole.substr(0, length) << '\n'
                                                                      << cut;
        }
    }
    // What a toolkit hands over need not be in its one form.
    RichText loose{{{Alignment::Left, false, -5, {{"a\r\n", {}}, {"", {}}, {"b\x01", {}}}}}};
    loose.paragraphs[0].runs[0].style.family = " Gul;im ";
    EXPECT_EQ(tidied(loose), (RichText{{{Alignment::Left, false, 0, {{"a\nb", {}}}}}}));
    EXPECT_EQ(writeRtf(tidied({{{}}})), "");
}

TEST(Rtf, SaysWhatAnEditorWouldDrop) {
    const std::pair<const char*, bool> cases[] = {{"a {\\b b}\\cell c", true},
                                                  {"{\\pict 00}", false},
                                                  {"{\\*\\shppict{\\pict 00}}", false},
                                                  {"{\\stylesheet{\\super x}}a", true},
                                                  {"m{\\super 2}", false},
                                                  {"\\trowd a\\cell\\row", false},
                                                  {"\\super0 a", true},
                                                  {"{\\object{\\x}}", false},
                                                  {"{\\info{\\pict 00}}a", true}};
    for (const auto& [rtf, kept] : cases)
        EXPECT_EQ(keepsAll(std::string("{\\rtf1 ") + rtf + "}"), kept) << rtf;
    EXPECT_TRUE(keepsAll("m\u00b2"));
    const RichText marked =
        readRtf("{\\rtf1{\\colortbl;\\red1;\\blue2;}\\fs999 {\\cf1\\highlight2 a}\\highlight0 b}");
    ASSERT_EQ(marked.paragraphs.at(0).runs.size(), 2U);
    EXPECT_EQ(marked.paragraphs[0].runs[0].style.ground, (Colour{0, 0, 2}));
    EXPECT_EQ(marked.paragraphs[0].runs[0].style.halfPoints, largestHalfPoints);
    EXPECT_FALSE(marked.paragraphs[0].runs[1].style.ground);
    EXPECT_EQ(readRtf(writeRtf(marked)), marked);
}

/// Five megabytes each: what grew with the square of the length would not come back.
TEST(Rtf, BearsHostileContents) {
    struct Case {
        std::string piece;
        std::size_t characters;
    };
    for (const auto& [piece, characters] : std::vector<Case>{{"\\par a", 1'866'647},  // in 200,000 lines
                                                             {"{a", 499},
                                                             {"\\f1\\'b0\\'a1\\f0\\'b0A", 526'310},
                                                             {"{\\fonttbl{\\f1 a;}}{\\pntext 1}", 172'413}}) {
        std::string rtf = "{\\rtf1{\\fonttbl{\\f0\\fcharset129 a;}{\\f1\\fcharset129 b;}}";
        while (rtf.size() < 5'000'000) rtf += piece;
        const RichText content = read(rtf);
        EXPECT_NEAR(static_cast<double>(basics::characterCount(plainText(content))), characters, 100)
            << piece;
        std::size_t runs = 0;
        for (const Paragraph& paragraph : content.paragraphs) runs += paragraph.runs.size();
        EXPECT_LE(runs, 300'000) << piece;
        EXPECT_LE(content.paragraphs.size(), 200'000) << piece;
    }
}

}  // namespace
}  // namespace zelvo::screen
