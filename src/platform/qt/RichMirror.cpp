#include "platform/qt/RichMirror.h"

#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QTextCursor>
#include <QtWidgets/QTextEdit>

#include "platform/qt/Contrast.h"
#include "platform/qt/RichDocument.h"
#include "platform/qt/SheetEdit.h"
#include "platform/qt/Texts.h"
#include "screen/TextField.h"
#include "screen/Window.h"

namespace zelvo::qt {

RichMirror::RichMirror(screen::RichTextField& field, QTextEdit& editor)
    : Mirror(field, editor), field_(field), editor_(editor) {
    editor.setTabChangesFocus(true);
    editor.setProperty("hangul", field.hangul());
    editor.setPalette(paper(editor.palette()));
    if (auto* sheet = qobject_cast<SheetEdit*>(&editor))
        sheet->setCodePages(field.window().desktop().components().codePages());
    // Without a text it has the form that is stored of what is typed into it.
    fillDocument(*editor.document(), {});
    editor.document()->setDefaultFont(standardFont());
    connect(&editor, &QTextEdit::textChanged, this, [this] { tellContent(); });
    connect(&editor, &QTextEdit::cursorPositionChanged, this, [this] { tellSelection(); });
    connect(&editor, &QTextEdit::selectionChanged, this, [this] { tellSelection(); });
}

bool RichMirror::ownKey(const QKeyEvent& key) const {
    return key.key() != Qt::Key_Escape;
}

/// A syllable that is not finished is no content yet.
bool RichMirror::filter(QWidget&, QEvent& event) {
    if (event.type() != QEvent::InputMethod) return false;
    if (field_.readOnly()) return true;
    const auto& method = static_cast<const QInputMethodEvent&>(event);
    const bool composed = composing_;
    composing_ = !method.preeditString().isEmpty();
    // A method that has nothing to say is no edit.
    return !composed && !composing_ && method.commitString().isEmpty() && method.replacementLength() == 0;
}

void RichMirror::tellContent() {
    if (drawing() || composing_) return;
    drawn_ = contentOf(*editor_.document());
    const std::string text = screen::plainText(drawn_);
    userDoes([&] { field_.userContent(drawn_, fieldPosition(text, editor_.textCursor().position())); });
}

void RichMirror::tellSelection() {
    if (drawing() || composing_) return;
    const QTextCursor cursor = editor_.textCursor();
    const std::size_t start = fieldPosition(field_.text(), cursor.selectionStart());
    field_.select(start, fieldPosition(field_.text(), cursor.selectionEnd()) - start);
}

void RichMirror::draw() {
    editor_.setReadOnly(field_.readOnly());
    if (composing_) return;
    if (field_.content() != drawn_) {
        drawn_ = field_.content();
        fillDocument(*editor_.document(), drawn_);
    }
    if (!field_.hasFocus()) return;
    QTextCursor cursor = editor_.textCursor();
    const int start = editorPosition(field_.text(), field_.selectionStart());
    const int end = editorPosition(field_.text(), field_.selectionStart() + field_.selectionLength());
    if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    editor_.setTextCursor(cursor);
}

}  // namespace zelvo::qt
