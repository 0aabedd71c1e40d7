#include "screen/TextField.h"

#include <gtest/gtest.h>

#include "basics/Utf8.h"
#include "screen/Window.h"
#include "support/TestDesktop.h"

namespace zelvo::screen {
namespace {

struct TextFieldTest : ::testing::Test {
    void keys(const std::vector<std::string>& names) {
        field.setFocus();
        for (const std::string& name : names) {
            const auto named = Key::named(name);
            ASSERT_TRUE(named) << name;
            form.userKey(*named);
        }
    }
    /// The text with "|" at the caret, "[" and "]" around a selection.
    std::string look() const {
        const std::string& text = field.text();
        const std::size_t start = field.selectionStart(), length = field.selectionLength();
        const std::string before = basics::part(text, 0, start), after = basics::part(text, start + length);
        return length == 0 ? before + "|" + after
                           : before + "[" + basics::part(text, start, length) + "]" + after;
    }

    testing::TestDesktop desktop;
    Window form{desktop, "frmTest", 1000, 1000};
    TextField field{form, "txtOne"};
};

TEST_F(TextFieldTest, ChangeRunsInsideTheAssignmentOnlyWhenTheTextDiffers) {
    std::string log;
    field.onChange.add([&] { log += "<" + field.text() + ">"; });
    field.setText("a");
    log += "after";
    field.setText("a");
    field.setText("");
    EXPECT_EQ(log, "<a>after<>");
}

TEST_F(TextFieldTest, AReactionMayRewriteTheText) {
    // Blanks out, then the whole number, as the packets' field does it.
    std::string log;
    field.onChange.add([&] {
        log += "<" + field.text() + ">";
        std::string digits;
        for (const char c : field.text()) {
            if (c != ' ' && !(c == '0' && digits.empty())) digits += c;
        }
        field.setText(digits);
    });
    keys({"0"});
    EXPECT_EQ(look(), "|");
    keys({"1", " ", "2"});
    EXPECT_EQ(look(), "12|");
    EXPECT_EQ(log, "<0><><1><1 ><1><12>");
    field.select(0, 1);
    keys({"0"});
    EXPECT_EQ(look(), "2|") << "the caret stands where the text still reaches";
}

TEST_F(TextFieldTest, KeysWorkByCharacter) {
    struct Case {
        std::string name, text;
        std::size_t start, length;
        std::vector<std::string> keys;
        std::string look;
    };
    const std::vector<Case> cases{
        {"typing replaces the selection", "당귀작약", 1, 2, {"x", "y"}, "당xy|약"},
        {"backspace", "당귀작", 2, 0, {"Backspace"}, "당|작"},
        {"backspace at the start", "당귀", 0, 0, {"Backspace"}, "|당귀"},
        {"delete", "당귀작", 1, 0, {"Delete"}, "당|작"},
        {"delete at the end", "당귀", 2, 0, {"Delete"}, "당귀|"},
        {"delete takes the selection", "당귀작", 0, 2, {"Delete"}, "|작"},
        {"backspace takes the selection", "당귀작", 1, 2, {"Backspace"}, "당|"},
        {"left leaves the selection at its start", "당귀작", 1, 2, {"Left"}, "당|귀작"},
        {"right leaves it at its end", "당귀작", 1, 1, {"Right"}, "당귀|작"},
        {"moves stop at the ends", "가", 0, 0, {"Left", "Right", "Right"}, "가|"},
        {"home and end", "가나다", 1, 0, {"Home", "1", "End", "2"}, "1가나다2|"},
        {"beyond the basic plane", "a😀b", 2, 0, {"Backspace"}, "a|b"},
        {"no line break, no Esc in a single line", "ab", 2, 0, {"Enter", "Esc"}, "ab|"},
        {"signs are no named keys", "ab", 1, 0, {".", "%", "'", "(", "&", "#", "$"}, "a.%'(&#$|b"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        field.setText(c.text);
        field.select(c.start, c.length);
        keys(c.keys);
        EXPECT_EQ(look(), c.look);
    }
}

TEST_F(TextFieldTest, ALineBreakIsOneStep) {
    field.setMultiLine(true);
    field.setText("가\r\n나");
    struct Case {
        std::size_t caret;
        std::string key, look;
    };
    for (const Case& c : std::vector<Case>{{3, "Left", "가|\r\n나"},
                                           {1, "Right", "가\r\n|나"},
                                           {3, "Backspace", "가|나"},
                                           {1, "Delete", "가|나"},
                                           {4, "Enter", "가\r\n나\r\n|"}}) {
        SCOPED_TRACE(c.key);
        field.setText("가\r\n나");
        field.select(c.caret, 0);
        keys({c.key});
        EXPECT_EQ(look(), c.look);
    }
}

TEST_F(TextFieldTest, TheCaretIsSetBeforeTheReaction) {
    std::string seen;
    field.onChange.add([&] { seen = look(); });
    keys({"a", "b"});
    EXPECT_EQ(seen, "ab|");
    field.select(0, 2);
    keys({"Backspace"});
    EXPECT_EQ(seen, "|");
    int changes = 0;
    field.setText("7");
    field.onChange.add([&] { ++changes; });
    field.select(0, 1);
    keys({"7"});
    EXPECT_EQ(changes, 0) << "typed over with the same text";
    EXPECT_EQ(look(), "7|");
}

TEST_F(TextFieldTest, InsertingAndLimits) {
    struct Case {
        std::string name;
        std::size_t limit;
        bool multiLine;
        std::string text, insert, result;
    };
    const std::vector<Case> cases{
        {"first line only", 0, false, "", "가나\r\n다", "가나"},
        {"no control characters", 0, false, "",
         "a\tb\x01\x7f"
         "c",
         "abc"},
        {"line breaks become CR LF", 0, true, "", "a\nb\rc\r\nd\te\x02", "a\r\nb\r\nc\r\nd\te"},
        {"cut to what fits", 3, false, "가", "나다라", "가나다"},
        {"full", 3, false, "가나다", "라", "가나다"},
        {"the program's text may be longer", 3, false, "가나다라", "마", "가나다라"},
        {"no half line break", 2, true, "a", "\r\n", "a"},
        {"bytes that are no text", 0, false, "",
         "a\xff"
         "b",
         "a\xEF\xBF\xBD"
         "b"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        field.setMaxLength(c.limit);
        field.setMultiLine(c.multiLine);
        field.setText(c.text);
        field.caretToEnd();
        field.userInsert(c.insert);
        EXPECT_EQ(field.text(), c.result);
    }
    field.setMaxLength(3);
    field.setText("가나다");
    field.select(1, 2);
    field.userInsert("123");
    EXPECT_EQ(look(), "가12|") << "the selection makes room";
}

TEST_F(TextFieldTest, AReadOnlyFieldGetsItsKeysAndKeepsItsText) {
    std::string arrived;
    field.onKeyPress.add([&](char32_t& character) { arrived += static_cast<char>(character); });
    field.setText("ab");
    field.setReadOnly(true);
    field.select(0, 1);
    keys({"x", "Backspace", "Delete"});
    field.userInsert("y");
    EXPECT_EQ(look(), "[a]b");
    EXPECT_EQ(arrived, "x\b");
    keys({"End"});
    EXPECT_EQ(look(), "ab|");
}

TEST_F(TextFieldTest, ARichTextKeepsBothFormsTogether) {
    RichTextField rich(form, "rtxOne");
    std::string log;
    rich.onChange.add([&] { log += rich.text() + (rich.rtf().empty() ? "" : "+") + ";"; });
    rich.setText("하루 3번");
    EXPECT_TRUE(rich.rtf().starts_with("{\\rtf1"));
    const std::string bold = R"({\rtf1\b\u54616?\u47336? 3\u48264?\par})";
    rich.setRtf(bold);
    EXPECT_EQ(rich.rtf(), bold);
    rich.setRtf(bold);
    rich.setText("하루 3번");
    EXPECT_EQ(rich.rtf(), bold) << "the same text leaves its form alone";
    rich.setRtf("그냥");
    rich.setRtf(R"({\rtf1 })");
    EXPECT_EQ(rich.rtf(), "");
    EXPECT_EQ(log, "하루 3번+;하루 3번+;그냥+;;");
}

}  // namespace
}  // namespace zelvo::screen
