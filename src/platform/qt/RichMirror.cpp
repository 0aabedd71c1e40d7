#include "platform/qt/RichMirror.h"

#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtWidgets/QTextEdit>

#include "basics/Utf8.h"
#include "platform/qt/RichDocument.h"
#include "platform/qt/Texts.h"
#include "screen/TextField.h"

namespace zelvo::qt {

namespace {

/// A position of the document in characters of the field, where a line break is two.
std::size_t fieldPosition(const QTextDocument& document, int position) {
    const QString before = document.toPlainText().left(position);
    return charactersIn(before, before.size()) + static_cast<std::size_t>(before.count(QLatin1Char('\n')));
}

int documentPosition(const std::string& text, std::size_t characters) {
    QString before = qtText(std::string_view(text).substr(0, basics::byteOffset(text, characters)));
    return static_cast<int>(before.replace(QLatin1String("\r\n"), QLatin1String("\n")).size());
}

}  // namespace

RichMirror::RichMirror(screen::RichTextField& field, QTextEdit& editor)
    : Mirror(field, editor), field_(field), editor_(editor) {
    editor.setTabChangesFocus(true);
    editor.setProperty("hangul", field.hangul());
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
    composing_ = !static_cast<const QInputMethodEvent&>(event).preeditString().isEmpty();
    return false;
}

void RichMirror::tellContent() {
    if (drawing() || composing_) return;
    drawn_ = contentOf(*editor_.document());
    userDoes([this] {
        field_.userContent(drawn_, fieldPosition(*editor_.document(), editor_.textCursor().position()));
    });
}

void RichMirror::tellSelection() {
    if (drawing() || composing_) return;
    const QTextCursor cursor = editor_.textCursor();
    const std::size_t start = fieldPosition(*editor_.document(), cursor.selectionStart());
    field_.select(start, fieldPosition(*editor_.document(), cursor.selectionEnd()) - start);
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
    const int start = documentPosition(field_.text(), field_.selectionStart());
    const int end = documentPosition(field_.text(), field_.selectionStart() + field_.selectionLength());
    if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    editor_.setTextCursor(cursor);
}

}  // namespace zelvo::qt
