#include "platform/qt/RichMirror.h"

#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QTextCursor>
#include <QtWidgets/QTextEdit>
#include <algorithm>
#include <utility>

#include "platform/qt/Contrast.h"
#include "platform/qt/RichDocument.h"
#include "platform/qt/RichPieces.h"
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
    // Doing so comes back here.
    if (bringPiecesInLine(*editor_.document())) return;
    screen::RichText content = contentOf(*editor_.document());
    // The text keeps its own breaks, and the form that has no words here.
    if (content == drawn_) return tellSelection();
    drawn_ = std::move(content);
    const std::string text = screen::plainText(drawn_);
    userDoes([&] { field_.userContent(drawn_, inField(text, editor_.textCursor().position())); });
}

void RichMirror::tellSelection() {
    if (drawing() || composing_) return;
    const QTextCursor cursor = editor_.textCursor();
    const std::size_t start = inField(field_.text(), cursor.selectionStart());
    field_.select(start, inField(field_.text(), cursor.selectionEnd()) - start);
}

std::size_t RichMirror::inField(std::string_view text, int place) const {
    const std::vector<int> breaks = drawnBreaks(*editor_.document());
    const auto passed = std::lower_bound(breaks.begin(), breaks.end(), place) - breaks.begin();
    return fieldPosition(text, place - static_cast<int>(passed));
}

int RichMirror::inEditor(std::size_t position) const {
    int place = editorPosition(field_.text(), position);
    for (const int drawnBreak : drawnBreaks(*editor_.document())) place += drawnBreak < place ? 1 : 0;
    return place;
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
    const std::size_t start = field_.selectionStart(), end = start + field_.selectionLength();
    if (inField(field_.text(), cursor.selectionStart()) == start &&
        inField(field_.text(), cursor.selectionEnd()) == end)
        return;
    cursor.setPosition(inEditor(start));
    cursor.setPosition(inEditor(end), QTextCursor::KeepAnchor);
    editor_.setTextCursor(cursor);
}

}  // namespace zelvo::qt
