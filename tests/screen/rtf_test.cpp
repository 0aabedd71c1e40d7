#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <memory>

#include "basics/Text.h"
#include "basics/Utf8.h"
#include "platform/text/MachineCodePages.h"
#include "screen/RtfReader.h"
#include "screen/RtfWriter.h"

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

const std::string wordpad =
    R"rtf({\rtf1\ansi\ansicpg949\deff0\deflang1033\deflangfe1042{\fonttbl{\f0\fmodern\fprq6\fcharset129 \'b1\'bc\'b8\'b2;}{\f1\fnil\fcharset2 Symbol;}}
{\colortbl ;\red255\green0\blue0;}
\viewkind4\uc1\pard\nowidctlpar\qc\lang1042\b\f0\fs32 \'ba\'b9\'bf\'eb\'b9\'fd\b0\fs20\par
\pard\nowidctlpar \'c7\'cf\'b7\'e7 \cf1\ul 3\'b9\'f8\cf0\ulnone , \'bd\'c4\'c8\'c4\par
\pard{\pntext\f1\'B7\tab}{\*\pn\pnlvlblt\pnf1\pnindent0{\pntxtb\'B7}}\nowidctlpar\fi-200\li200 \'c2\'f9\'b9\'b0 \'b1\'dd\'c1\'f6\par
{\pntext\f1\'B7\tab}\'bc\'fa \'b1\'dd\'c1\'f6\par
\pard\nowidctlpar\qr\i \'b4\'e7\'b1\'cd \'c7\'d1\'c0\'c7\'bf\'f8\i0\par
})rtf";
const std::string word97 =
    R"rtf({\rtf1\ansi\ansicpg949\uc2 \deff0\deflang1033\deflangfe1042{\fonttbl{\f0\froman\fcharset0\fprq2{\*\panose 02020603050405020304}Times New Roman;}{\f17\froman\fcharset129\fprq1{\*\panose 02030600000101010101}\'b9\'d9\'c5\'c1{\*\falt Batang};}}{\colortbl;\red0\green0\blue0;\red0\green0\blue255;}{\stylesheet{\qj\nowidctlpar \f17\fs20\kerning2 \snext0 \'c7\'a5\'c1\'d8;}}
{\info{\title \'ba\'b9\'bf\'eb}{\author ocs}}\paperw11906\paperh16838 {\header\pard\plain \'b8\'d3\'b8\'ae\'b8\'bb\par}\sectd\linex0
\pard\plain \qj\nowidctlpar\adjustright \fs20\kerning2 {\b\cf2\loch\af0\hich\af0\dbch\f17 \u-15651\'bd\'c4\u-10556\'c8\'c4 30\u-17020\'ba\'d0}{\f0 , 2 times}{\dbch\f17 \u-16959\'94\'ee
\par }\pard\plain \li400\nowidctlpar {\pntext\pard\plain\f0 1.\tab}\fs20 {\f17\strike \'c4\'bf\'c7\'c7}{\f17\line \'bf\'ec\'c0\'af\par }})rtf";
const std::string plainLetters =
    R"rtf({\rtf1\ansi\ansicpg949{\fonttbl{\f0\fcharset129 Gulim;}}\f0\fs20 \'8cc\'b9\'e6\'b0\'a2\'c7\'cf \'bc\'84\'bd\'c3 \'c1d, 100\'a1\'c9 \'b5\'bf\'c0
\'c7 \'c7
\'d1\par})rtf";
const std::string libreOffice = R"rtf({\rtf1\ansi\deff3\adeflang1025
{\fonttbl{\f0\froman\fprq2\fcharset0 Times New Roman;}{\f3\froman\fprq2\fcharset0 Liberation Serif{\*\falt Times New Roman};}{\f4\fnil\fprq2\fcharset129 \u45208\'3f\u45588\'3f\u44256\'3f\u46357\'3f;}{\f5\fnil\fprq0\fcharset2 OpenSymbol{\*\falt Arial Unicode MS};}}
{\colortbl;\red0\green0\blue0;\red0\green0\blue255;\red201\green33\blue30;}
{\stylesheet{\s0\snext0\widctlpar\hyphpar0\ltrpar\cf0\kerning1\dbch\af8\langfe1042\loch\f3\hich\af3\fs24\lang1042 Default;}
{\s15\sb240\sa120\keepn\dbch\af9\fs28 Heading;}}{\*\listtable{\list\listtemplateid1
{\listlevel\levelnfc23\leveljc0\levelstartat1\levelfollow0{\leveltext \'01\u8226 ?;}{\levelnumbers;}\f5\fi-360\li720}
{\listlevel\levelnfc0{\leveltext \'02\'01.;}{\levelnumbers\'01;}\fi-360\li1080}\listid1}
}{\listoverridetable{\listoverride\listid1\listoverridecount0\ls1}}{\*\generator LibreOffice/7.4.7.2$Linux_X86_64 LibreOffice_project/40$Build-2}{\info{\creatim\yr2024\mo5\dy6\hr9\min0}}{\*\userprops}\deftab709
{\*\pgdsctbl
{\pgdsc0\pgdscuse451\pgwsxn11906\pghsxn16838\pgdscnxt0 Default Page Style;}}
\formshade\paperh16838\paperw11906\sectd\sbknone{\*\ftnsep\chftnsep}\pgndec
\pard\plain \s0\widctlpar\ltrpar\cf0\loch\f3\hich\af3\fs24\qc{\cf3\b\ab\rtlch \ltrch\hich\af4\loch\f4\fs32
\u48373\'3f\u50857\'3f\u48277\'3f}
\par \pard\plain \s0\widctlpar\cf0\loch\f3\fs24\ql{\rtlch \ltrch\loch
\u50500\'3f\u52840\'3f\tab \u51200\'3f\u45377\'3f{\ul\ulc0 \u49885\'3f\u54980\'3f}}
\par {\listtext\pard\plain \hich\af5\dbch\af5\loch\f5 \u8226\'95\tab}\pard\plain \s0\widctlpar\fs24\ls1 \fi-360\li720\lin720 {\loch
\u46384\'3f\u46907\'3f\u54616\'3f\u44172\'3f}
\par \pard\plain \s0\fs24\ls1 \fi-360\li720 {\loch \u52380\'3f\u52380\'3f\u55176\'3f}
\par })rtf";

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

TEST(Rtf, ReadsWholeDocuments) {
    EXPECT_EQ(
        look(read(wordpad)),
        "C [b 굴림 32]복용법\n[ 굴림 20]하루 [u 굴림 20#ff0000]3번[ 굴림 20], 식후\n* [ 굴림 20]찬물 금지\n"
        "* [ 굴림 20]술 금지\nR [i 굴림 20]당귀 한의원");
    EXPECT_EQ(look(read(word97)),
              "J [b 바탕 20#0000ff]식후 30분[ Times New Roman 20], 2 times[ 바탕 20]뷁\n"
              "@400 [ Times New Roman]1.\t[s 바탕 20]커피[ 바탕 20]\n우유");
    EXPECT_EQ(look(read(plainLetters)), "[ 20]똠방각하 펲시 햏, 100℃ 동의 한");
    EXPECT_EQ(look(read(libreOffice)),
              "C [b 나눔고딕 32#c9211e]복용법\n[ Liberation Serif]아침\t저녁[u Liberation Serif]식후\n"
              "* @360 [ Liberation Serif]따뜻하게\n* @360 [ Liberation Serif]천천히");
}

TEST(Rtf, ACutDocumentGivesWhatCameBeforeTheCut) {
    for (const std::string& whole : {wordpad, word97, plainLetters, libreOffice}) {
        const std::string full = plainText(read(whole));
        for (std::size_t length = 6; length < whole.size(); ++length) {
            const std::string cut = plainText(read(whole.substr(0, length)));
            // The character that the cut went through may be another one.
            const std::size_t sure = std::max<std::size_t>(basics::characterCount(cut), 1) - 1;
            ASSERT_TRUE(full.starts_with(basics::part(cut, 0, sure))) << whole.substr(0, length) << '\n'
                                                                      << cut;
        }
    }
}

/// Five megabytes each: what grew with the square of the length would not come back.
TEST(Rtf, BearsHostileContents) {
    struct Case {
        std::string piece;
        std::size_t characters;
    };
    for (const auto& [piece, characters] : std::vector<Case>{{"\\par a", 2'500'000},
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

/// A sheet with all that a sheet may have.
RichText sheet() {
    CharacterStyle title{true, false, false, false, 32, Colour{200, 0, 10}, "굴림체"};
    CharacterStyle slanted, struck;
    slanted.italic = slanted.underline = true;
    struck.strike = true;
    return {{{Alignment::Center, false, 0, {{"복용법", title}}},
             {Alignment::Left, false, 0, {{"하루 ", {}}, {"3번", title}, {"\t{식후}\n\\30분", {}}}},
             {},
             {Alignment::Left, true, 0, {{"따뜻하게", slanted}, {"차게", struck}}},
             {Alignment::Justify, true, 400, {{"1. 천천히", {}}}},
             {Alignment::Right, false, 0, {{"당귀 한의원", {}}}}}};
}

TEST(Rtf, WritesAFormThatItReadsBack) {
    EXPECT_EQ(read(writeRtf(sheet())), sheet());
    for (const std::string& rtf : {wordpad, word97, plainLetters, libreOffice}) {
        EXPECT_EQ(look(read(writeRtf(read(rtf)))), look(read(rtf)));
    }
    // What a toolkit hands over need not be in its one form.
    RichText loose{{{Alignment::Left, false, -5, {{"a\r\n", {}}, {"", {}}, {"b\x01", {}}}}}};
    loose.paragraphs[0].runs[0].style.family = " Gul;im ";
    EXPECT_EQ(tidied(loose), (RichText{{{Alignment::Left, false, 0, {{"a\nb", {}}}}}}));
    EXPECT_EQ(writeRtf(tidied({{{}}})), "");
}

/// What another program makes of a written sheet, "" when it isn't there.
std::string htmlOf(const std::string& rtf) {
    const std::string file = ::testing::TempDir() + "zelvo_sheet.rtf";
    std::ofstream(file) << rtf;
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(
        popen(("unrtf --html " + file + " 2>/dev/null").c_str(), "r"), pclose);
    std::string html;
    for (int byte = 0; pipe && (byte = std::fgetc(pipe.get())) != EOF;) html += static_cast<char>(byte);
    std::remove(file.c_str());
    return basics::removeAll(html, "\n");
}

TEST(Rtf, AnotherProgramReadsAWrittenSheetTheSame) {
    const std::string html = htmlOf(writeRtf(sheet()));
    if (html.empty()) GTEST_SKIP() << "unrtf is not installed";
    const auto coded = [](std::string_view text) {
        std::string code;
        for (std::size_t at = 0; at < text.size(); at += basics::byteOffset(text.substr(at), 1)) {
            const char32_t character = basics::characterAt(text, at);
            code += character < 127 ? std::string(1, static_cast<char>(character))
                                    : "&#" + std::to_string(static_cast<unsigned>(character)) + ";";
        }
        return code;
    };
    for (const std::string& part :
         std::vector<std::string>{"<center>", "16pt\"><font color=\"#c8000a\"><b>복용법</b>", "하루 <",
                                  "<b>3번</b>", "{식후}<br>\\30분<br>", "&bull;", "<i><u>따뜻하게</u></i>",
                                  "<s>차게</s>", "1. 천천히<br>", "<div align=\"right\">당귀 한의원"}) {
        EXPECT_NE(html.find(coded(part)), std::string::npos) << part << " in\n" << html;
    }
}

}  // namespace
}  // namespace zelvo::screen
