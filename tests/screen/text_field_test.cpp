#include "basics/Utf8.h"
#include "screen/ScreenTest.h"

namespace zelvo::screen {
namespace {

struct TextFieldTest : ScreenTest {
    TextFieldTest() { field.setFocus(); }
    /// The text with "|" at the caret, "[" and "]" around a selection.
    std::string look() const {
        const std::string& text = field.text();
        const std::size_t start = field.selectionStart(), length = field.selectionLength();
        const std::string before = basics::part(text, 0, start), after = basics::part(text, start + length);
        return length == 0 ? before + "|" + after
                           : before + "[" + basics::part(text, start, length) + "]" + after;
    }

    TextField field{form, "txtOne"};
};

TEST_F(TextFieldTest, ChangeRunsInsideTheAssignmentOnlyWhenTheTextDiffers) {
    field.onChange.add([&] { log += "<" + look() + ">"; });
    field.setText("a");
    log += "after";
    field.setText("a");
    field.setText("");
    EXPECT_EQ(take(), "<a|>after<|>");
    keys({"a", "b"});
    field.select(0, 2);
    keys({"Backspace", "7"});
    EXPECT_EQ(take(), "<a|><ab|><|><7|>") << "the caret is set before the reaction";
    field.select(0, 1);
    keys({"7"});
    EXPECT_EQ(look() + take(), "7|") << "typed over with the same text";
}

TEST_F(TextFieldTest, KeysWorkByCharacter) {
    struct Case {
        std::string name, text;
        std::size_t start, length;
        std::vector<std::string> keys;
        std::string look;
        bool multiLine = false;
    };
    const std::vector<Case> cases{
        {"typing replaces the selection", "당귀작약", 1, 2, {"x", "y"}, "당xy|약"},
        {"backspace", "당귀작", 2, 0, {"Backspace"}, "당|작"},
        {"nothing to delete", "당귀", 2, 0, {"Delete", "Home", "Backspace"}, "|당귀"},
        {"left leaves the selection at its start", "당귀작", 1, 2, {"Left"}, "당|귀작"},
        {"moves stop at the ends", "가", 0, 0, {"Left", "Right", "Right"}, "가|"},
        {"beyond the basic plane", "a😀b", 2, 0, {"Backspace"}, "a|b"},
        {"no line break, no Esc in a single line", "ab", 2, 0, {"Enter", "Esc"}, "ab|"},
        {"signs are no named keys", "ab", 1, 0, {".", "%", "'", "(", "&", "#", "$"}, "a.%'(&#$|b"},
        {"over a line break", "가\r\n나", 3, 0, {"Left"}, "가|\r\n나", true},
        {"a line break is one character", "가\r\n나", 3, 0, {"Backspace"}, "가|나", true},
        {"forward too", "가\r\n나", 1, 0, {"Delete", "Enter"}, "가\r\n|나", true},
    };
    for (const Case& c : cases) {
        field.setMultiLine(c.multiLine);
        field.setText(c.text);
        field.select(c.start, c.length);
        keys(c.keys);
        EXPECT_EQ(look(), c.look) << c.name;
    }
}

TEST_F(TextFieldTest, InsertingAndLimits) {
    struct Case {
        std::string text, insert, result;
        std::size_t limit = 0;
        bool multiLine = false;
    };
    const std::vector<Case> cases{
        {"", "가나\r\n다", "가나"},
        {"", "a\tb\x01\x7f!\xff!", "ab!\uFFFD!"},
        {"", "a\nb\rc\r\nd\te\x02", "a\r\nb\r\nc\r\nd\te", 0, true},
        {"가", "나다라", "가나다", 3},
        {"가나다라", "마", "가나다라", 3},
        {"a", "\r\n", "a", 2, true},
    };
    for (const Case& c : cases) {
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
    field.setReadOnly(true);
    field.select(0, 1);
    keys({"x", "Backspace", "Delete"});
    field.userInsert("y");
    EXPECT_EQ(look(), "[가]12") << "a locked field keeps its text";
}

TEST_F(TextFieldTest, ARichTextKeepsBothFormsTogether) {
    RichTextField rich(form, "rtxOne");
    rich.onChange.add([&] { log += rich.text() + (rich.rtf().empty() ? "" : "+") + ";"; });
    rich.setText("하루 3번");
    const std::string bold = R"({\rtf1\b\u54616?\u47336? 3\u48264?\par})";
    rich.setRtf(bold);
    rich.setRtf(bold);
    rich.setText("하루 3번");
    EXPECT_EQ(rich.rtf(), bold) << "the same text leaves its form alone";
    rich.setRtf(R"({\rtf1{\pict 01}})");
    rich.setRtf("");
    EXPECT_EQ(log, "하루 3번+;하루 3번+;+;;");
}

TEST_F(TextFieldTest, ARichTextTakesWhatItsUserMakesOfItsForm) {
    RichTextField rich(form, "rtxOne");
    rich.setRtf(R"({\rtf1\fs20 a{\b b}\par})");
    rich.onChange.add([&] { log += rich.text() + ";"; });
    RichText edited = rich.content();
    rich.userContent(edited);
    EXPECT_EQ(log, "") << "nothing new";
    edited.paragraphs[0].runs[1].style.bold = false;
    rich.userContent(edited);
    EXPECT_EQ(rich.rtf().find("\\b"), std::string::npos) << "the same text in another form";
    edited.paragraphs[0].runs[0].text = "가";
    rich.userContent(edited, 1);
    EXPECT_EQ(log, "ab;가b;");
    EXPECT_EQ(rich.selectionStart(), 1U);
    EXPECT_EQ(rich.content(), tidied(edited));
    rich.userContent({});
    EXPECT_EQ(rich.rtf() + log, "ab;가b;;");
    rich.setLocked(true);
    rich.userContent(edited);
    EXPECT_EQ(rich.text(), "");
}

}  // namespace
}  // namespace zelvo::screen
