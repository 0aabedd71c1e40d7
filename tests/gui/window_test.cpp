#include <QtCore/QMimeData>
#include <QtCore/QTemporaryDir>
#include <QtGui/QClipboard>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QTextBlock>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QToolButton>

#include "GuiSession.h"
#include "components/EatGuideEditor.h"
#include "platform/qt/RichDocument.h"
#include "platform/qt/SheetBar.h"
#include "platform/qt/SheetPaper.h"
#include "platform/qt/Texts.h"
#include "screen/Fields.h"
#include "screen/TextField.h"

namespace zelvo::testing {
namespace {

/// A syllable that is being composed, as an input method sends it.
void preedit(const QString& text) {
    QInputMethodEvent event(text, {});
    QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    GlassDesktop::settle();
}
void commit(const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    GlassDesktop::settle();
}

/// In a text of breaks of all kinds: as the editor has them and as the field has them.
template <class Editor>
void walkCaret(GuiSession& session, const std::string& name) {
    auto& field = session.field<screen::EditField>(name);
    auto& editor = session.widget<Editor>(name);
    session.hand().focus(name);
    field.setText("a\nb\r\nc😀d");
    GlassDesktop::settle();
    const std::pair<int, std::size_t> places[] = {{1, 1}, {2, 2}, {3, 3}, {4, 5}, {5, 6}, {7, 7}, {8, 8}};
    for (const auto& [shown, stands] : places) {
        QTextCursor caret = editor.textCursor();
        caret.setPosition(shown);
        editor.setTextCursor(caret);
        EXPECT_EQ(field.selectionStart(), stands) << name << shown;
        GlassDesktop::settle();
        EXPECT_EQ(editor.textCursor().position(), shown) << name;
    }
    commit({});
    EXPECT_EQ(field.text(), "a\nb\r\nc😀d") << "an empty word is no edit";
}

TEST(Typing, TheCaretStandsRightAmongBreaksOfAllKinds) {
    GuiSession session;
    session.run([&] {
        session.hand().tab("c1tCBJmsg", 1);
        walkCaret<QPlainTextEdit>(session, "txtCBJmsg");
        std::string patient, sheet, clinic, phone;
        session.desktop.whenShown("frmEatGuideEditor", [&](screen::Window&) {
            walkCaret<QTextEdit>(session, "rtxSheet");
            auto& field = session.field<screen::RichTextField>("rtxSheet");
            auto& editor = session.widget<QTextEdit>("rtxSheet");
            std::string paragraph = "{\\rtf1\\b ";
            for (int i = 0; i < 25'000; ++i) paragraph += i < 12'000 ? "a " : "b\\line ";
            // Breaks that stand on the glass only.
            for (const std::string& text : {std::string(1001, 'x'), paragraph + "x}"}) {
                field.setRtf(text);
                GlassDesktop::settle();
                EXPECT_TRUE(qt::contentOf(*editor.document()) == field.content());
                editor.moveCursor(QTextCursor::End);
                session.hand().typeText("yz");
                EXPECT_TRUE(field.text().ends_with("xyz"));
            }
            EXPECT_EQ(editor.document()->blockCount(), 3);
            for (const int place : {22'000, 42'000}) {
                QTextCursor caret = editor.textCursor();
                caret.setPosition(place);
                editor.setTextCursor(caret);
                session.hand().pressNamed("Enter");
            }
            EXPECT_EQ(field.content().paragraphs.size(), 3U);
            session.hand().press("cmdOK");
        });
        components::EatGuideEditor(session.desktop).edit(nullptr, patient, sheet, clinic, phone);
    });
}

TEST(Sheet, TheEditorKeepsTheFormThatTheBarGives) {
    GuiSession session;
    session.run([&] {
        std::string patient = "김하늘", sheet, clinic = "하늘한의원", phone = "02-555-0123";
        session.desktop.whenShown("frmEatGuideEditor", [&](screen::Window& window) {
            auto& field = dynamic_cast<screen::RichTextField&>(*window.field("rtxSheet"));
            session.hand().focus("rtxSheet");
            session.hand().typeText("식후 ");
            stage::WidgetUser::click(
                *session.glass().shell().findChild<QToolButton*>(QStringLiteral("bold")));
            session.hand().typeText("30분");
            EXPECT_TRUE(field.content().paragraphs.at(0).runs.at(1).style.bold);
            session.hand().pressNamed("Enter");
            session.hand().typeText("a");
            EXPECT_EQ(field.text(), "식후 30분\r\na");

            const auto paper = session.glass().shell().findChild<qt::SheetBar*>()->paper();
            EXPECT_EQ(paper->page().toPlainText(),
                      QStringLiteral("하늘한의원\n☎ 02-555-0123\n김하늘 님\t%1\n\n식후 30분\na")
                          .arg(QDate::currentDate().toString(QStringLiteral("yyyy년 M월 d일"))));
            const QTemporaryDir folder;
            EXPECT_TRUE(paper->writePdf(folder.filePath(QStringLiteral("sheet.pdf"))));
            EXPECT_FALSE(paper->writePdf(folder.filePath(QStringLiteral("none/sheet.pdf"))));
            session.hand().press("cmdOK");
        });
        EXPECT_TRUE(components::EatGuideEditor(session.desktop).edit(nullptr, patient, sheet, clinic, phone));
        EXPECT_NE(sheet.find("\\b"), std::string::npos);
    });
}

void select(QTextEdit& editor, int block, int from = 0, int to = 0) {
    QTextCursor cursor(editor.document()->findBlockByNumber(block));
    const int start = cursor.position();
    cursor.setPosition(start + from);
    cursor.setPosition(start + to, QTextCursor::KeepAnchor);
    editor.setTextCursor(cursor);
}
void paste(QTextEdit& editor, const char* type, const char* data) {
    auto clipping = std::make_unique<QMimeData>();
    clipping->setData(QLatin1String(type), data);
    QGuiApplication::clipboard()->setMimeData(clipping.release());
    editor.paste();
}

/// Of the three pieces in which it stands on the glass, the second begins with its letter 20,006 and the
/// third with 40,012, each behind a break that is no letter.
TEST(Sheet, AVeryLongParagraphIsOneToEveryEdit) {
    using enum screen::Alignment;
    GuiSession session;
    std::string letters;
    for (int word = 100'000; word < 106'500; ++word) letters += std::to_string(word) + " ";
    const auto with = [&](std::size_t at, std::size_t gone, const char* text) {
        return std::string(letters).replace(at, gone, text) + "\r\nz";
    };
    const auto press = [&](const char* tip) {
        for (auto* button : session.glass().shell().findChildren<QToolButton*>()) {
            if (button->toolTip() == QString::fromUtf8(tip)) stage::WidgetUser::click(*button);
        }
    };
    const struct {
        const char* label;
        std::function<void(QTextEdit&)> edit;
        std::string text;
        screen::Alignment alignment = Left;
        bool bullet = false;
    } cases[] = {
        {"centred and parted",
         [&](QTextEdit& editor) {
             select(editor, 2);
             press("가운데 맞춤");
             select(editor, 1);
             stage::WidgetUser::typeText("x");
             stage::WidgetUser::pressNamed("Enter");
         },
         with(20'006, 0, "x\r\n"), Center},
        {"a bullet",
         [&](QTextEdit& editor) {
             select(editor, 2);
             press("글머리 기호");
         },
         with(0, 0, ""), Left, true},
        {"a bullet no more",
         [&](QTextEdit& editor) {
             select(editor, 2);
             press("글머리 기호");
             select(editor, 1);
             press("글머리 기호");
         },
         with(0, 0, "")},
        {"parted and joined",
         [&](QTextEdit& editor) {
             select(editor, 1);
             stage::WidgetUser::pressNamed("Enter");
             stage::WidgetUser::pressNamed("Backspace");
         },
         with(0, 0, "")},
        {"composed over a piece, joined and parted",
         [&](QTextEdit& editor) {
             select(editor, 2, 0, editor.document()->findBlockByNumber(2).length() - 1);
             preedit(QStringLiteral("ㄱ"));
             commit(QStringLiteral("가"));
             select(editor, 2, 0, -25'000);
             stage::WidgetUser::pressNamed("Delete");
             stage::WidgetUser::pressNamed("Right");
             stage::WidgetUser::pressNamed("Enter");
         },
         with(15'014, std::string::npos, "가\r\n")},
        {"deleted over a break",
         [&](QTextEdit& editor) {
             select(editor, 1, -8);
             stage::WidgetUser::pressNamed("Delete");
         },
         with(19'999, 7, "")},
        {"deleted before a break",
         [&](QTextEdit& editor) {
             select(editor, 1);
             stage::WidgetUser::pressNamed("Backspace");
         },
         with(20'005, 1, "")},
        {"deleted behind a break",
         [&](QTextEdit& editor) {
             select(editor, 1, -1, -1);
             stage::WidgetUser::pressNamed("Delete");
         },
         with(20'006, 1, "")},
        {"pasted",
         [&](QTextEdit& editor) {
             select(editor, 1);
             paste(editor, "text/plain", "x\ny");
         },
         with(20'006, 0, "x\r\ny")},
        {"pasted with form",
         [&](QTextEdit& editor) {
             select(editor, 1);
             paste(editor, "text/html", "<p align=right>x<p>y");
         },
         with(20'006, 0, "x\r\ny")},
    };
    session.run([&] {
        std::string patient, sheet, clinic, phone;
        session.desktop.whenShown("frmEatGuideEditor", [&](screen::Window&) {
            auto& field = session.field<screen::RichTextField>("rtxSheet");
            auto& editor = session.widget<QTextEdit>("rtxSheet");
            session.hand().focus("rtxSheet");
            for (const auto& c : cases) {
                SCOPED_TRACE(c.label);
                field.setText("");
                field.setText(letters + "\r\nz");
                GlassDesktop::settle();
                const screen::RichText before = field.content();
                c.edit(editor);
                EXPECT_TRUE(field.text() == c.text);
                const screen::Paragraph& paragraph = field.content().paragraphs.front();
                EXPECT_EQ(paragraph.alignment, c.alignment);
                EXPECT_EQ(paragraph.bullet, c.bullet);
                for (QTextBlock block = editor.document()->begin(); block.length() > 2; block = block.next())
                    EXPECT_EQ(block.blockFormat().alignment() == Qt::AlignHCenter, c.alignment == Center);
                while (editor.document()->isUndoAvailable()) editor.undo();
                EXPECT_TRUE(field.content() == before);
                EXPECT_EQ(editor.document()->blockCount(), 4);
            }
            session.hand().press("cmdOK");
        });
        components::EatGuideEditor(session.desktop).edit(nullptr, patient, sheet, clinic, phone);
    });
}

TEST(Sheet, APasteComesInAsItIsStoredAndColoursCanBeRead) {
    GuiSession session;
    session.run([&] {
        std::string patient, clinic, phone,
            sheet = R"({\rtf1{\colortbl;\red255\green255\blue255;\blue128;}{\cf1 a\highlight2 b}{\pict 00}})";
        session.desktop.whenShown("frmEatGuideEditor", [&](screen::Window& window) {
            auto& field = dynamic_cast<screen::RichTextField&>(*window.field("rtxSheet"));
            auto& editor = session.widget<QTextEdit>("rtxSheet");
            const auto colour = [&](int position) {
                QTextCursor cursor = editor.textCursor();
                cursor.setPosition(position);
                return cursor.charFormat().foreground().color();
            };
            EXPECT_LT(colour(1).lightness(), 128) << "white on paper";
            EXPECT_EQ(colour(2), QColor(Qt::white)) << "white on blue";
            session.hand().focus("rtxSheet");
            editor.moveCursor(QTextCursor::End);
            paste(editor, "text/html", "<ol><li>x<li>y</ol><table><tr><td>c<td>d</table><img src=p.png>");
            EXPECT_EQ(field.text(), "ab1. x\r\n2. y\r\nc\td\r\n");
            EXPECT_EQ(field.content().paragraphs.at(0).runs.at(0).style.colour,
                      (screen::Colour{255, 255, 255}))
                << "a colour is stored as it came";
            EXPECT_EQ(qt::contentOf(*editor.document()), field.content());
            session.hand().press("cmdOK");
        });
        components::EatGuideEditor(session.desktop).edit(nullptr, patient, sheet, clinic, phone);
        session.desktop.expectBox(
            "복용법작성",
            "이 복용법에는 여기서 표시할 수 없는 그림, 표, 첨자가 있습니다. 고쳐서 저장하면 그 "
            "부분이 없어집니다.");
    });
}

/// F9, Shift+Space and the like belong to the Korean input methods.
TEST(Window, NoShortcutIsAKeyThatWritesEditsOrComposes) {
    GuiSession session;
    session.run([&] {
        auto& line = session.widget<QLineEdit>("txtPatientName");
        session.hand().focus("txtPatientName");
        for (const screen::Shortcut& one : session.hand().front().shortcuts()) {
            const QKeyCombination keys = QKeySequence(QString::fromStdString(one.keys))[0];
            QKeyEvent wanted(QEvent::ShortcutOverride, keys.key(), keys.keyboardModifiers());
            wanted.ignore();
            QCoreApplication::sendEvent(&line, &wanted);
            EXPECT_FALSE(wanted.isAccepted() && one.applies()) << one.keys;
            EXPECT_FALSE(keys.key() == Qt::Key_F9 || keys.key() == Qt::Key_Space) << one.keys;
        }
    });
}

TEST(Typing, HangulIsComposedToItsEnd) {
    GuiSession session;
    session.run([&] {
        auto& name = session.field<screen::TextField>("txtPatientName");
        session.hand().focus("txtPatientName");
        EXPECT_EQ(name.selectionLength(), 3U);
        preedit(QStringLiteral("ㅇ"));
        preedit(QStringLiteral("이"));
        session.field<screen::TextField>("txtPatientAge").setText("77");
        name.setTipText("anything that draws the field anew");
        GlassDesktop::settle();
        preedit(QStringLiteral("잎"));
        commit(QStringLiteral("이"));
        EXPECT_EQ(name.text(), "이");
        preedit(QStringLiteral("퍼"));
        EXPECT_EQ(name.text(), "이");
        commit(QStringLiteral("퍼"));
        EXPECT_EQ(name.text(), "이퍼");
        EXPECT_EQ(session.widget<QLineEdit>("txtPatientName").text(), QStringLiteral("이퍼"));
        preedit(QStringLiteral("ㄹ"));
        preedit({});
        EXPECT_EQ(name.text(), "이퍼");

        session.hand().focus("txtPatientAge");
        preedit(QStringLiteral("가"));
        commit(QStringLiteral("가"));
        EXPECT_EQ(session.textOf("txtPatientAge"), "77");
        session.hand().focus("txtPatientName");
        preedit(QStringLiteral("가"));
        session.hand().close();
        EXPECT_TRUE(session.hand().front().leaving()) << "in the middle of a composition";
    });
}

TEST(Typing, ClipboardUndoAndTheMouseComeBackToTheField) {
    GuiSession session;
    session.run([&] {
        auto& hand = session.hand();
        auto& field = session.field<screen::TextField>("txtPatientEmail");
        auto& line = session.widget<QLineEdit>("txtPatientEmail");
        field.setText("");
        hand.type("txtPatientEmail", "abc");
        hand.paste("txtPatientEmail", "X\nY");
        EXPECT_EQ(field.text(), "abcX");
        hand.pressKey(Qt::Key_Left, Qt::ShiftModifier);
        EXPECT_EQ(field.selectionLength(), 1U);
        hand.pressKey(Qt::Key_X, Qt::ControlModifier, QStringLiteral("\x18"));
        EXPECT_EQ(field.text(), "abc");
        EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("X"));
        hand.pressKey(Qt::Key_Z, Qt::ControlModifier, QStringLiteral("\x1a"));
        EXPECT_EQ(field.text(), qt::utf8(line.text()));
        field.setText("secret");
        field.masked = true;
        field.select(0, 6);
        GlassDesktop::settle();
        hand.pressKey(Qt::Key_X, Qt::ControlModifier, QStringLiteral("\x18"));
        EXPECT_EQ(field.text(), "secret");
        EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("X"));
    });
}

TEST(Typing, AFocusThatComesBackIsNoEntering) {
    GuiSession session;
    session.run([&] {
        auto& hand = session.hand();
        hand.focus("txtPatientName");
        hand.pressNamed("End");
        hand.typeText("x");
        auto& field = session.field<screen::TextField>("txtPatientName");
        int entered = 0;
        field.onFocus.add([&] { ++entered; });
        QWidget other;
        other.show();
        other.activateWindow();
        GlassDesktop::settle();
        session.glass().shell().activateWindow();
        GlassDesktop::settle();
        EXPECT_EQ(entered, 0);
        EXPECT_EQ(field.selectionLength(), 0U);
        hand.typeText("y");
        EXPECT_EQ(field.text(), "김하늘xy");
    });
}

}  // namespace
}  // namespace zelvo::testing
