#include "platform/qt/LongTextMirror.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QTextCursor>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>
#include <algorithm>

#include "basics/Text.h"
#include "platform/qt/Texts.h"
#include "screen/TextField.h"

namespace zelvo::qt {

namespace {

/// The editor's text has one character for a line break where the field has CR LF.
QString editorText(std::string_view text) {
    return qtText(text)
        .replace(QLatin1String("\r\n"), QLatin1String("\n"))
        .replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

std::string fieldText(const QString& text) {
    QString broken = text;
    broken.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    return utf8(broken);
}

}  // namespace

LongTextMirror::LongTextMirror(screen::EditField& field, QPlainTextEdit& editor)
    : TextMirror(field, editor), editor_(editor) {
    editor.setTabChangesFocus(true);
    editor.viewport()->installEventFilter(this);
    editor.verticalScrollBar()->installEventFilter(this);
    connect(&editor, &QPlainTextEdit::textChanged, this, [this] { tellText(); });
    connect(&editor, &QPlainTextEdit::selectionChanged, this, [this] { tellSelection(); });
    connect(&editor, &QPlainTextEdit::cursorPositionChanged, this, [this] { tellSelection(); });
}

/// What can't be changed can still be read to its end: a disabled editor would let its text stand still.
bool LongTextMirror::eventFilter(QObject* watched, QEvent* event) {
    QScrollBar& bar = *editor_.verticalScrollBar();
    if (editor_.isEnabled() || bar.maximum() == bar.minimum()) return false;
    if (event->type() == QEvent::Wheel) {
        constexpr int notch = 120;
        turned_ +=
            static_cast<const QWheelEvent&>(*event).angleDelta().y() * QApplication::wheelScrollLines();
        bar.setValue(bar.value() - turned_ / notch);
        turned_ %= notch;
        return true;
    }
    if (watched != &bar || (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseMove))
        return false;
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    if (mouse.buttons().testFlag(Qt::LeftButton)) {
        bar.setValue(QStyle::sliderValueFromPosition(
            bar.minimum(), bar.maximum(), static_cast<int>(mouse.position().y()), bar.height() - 1));
    }
    return true;
}

/// The caret goes by lines as they stand on the glass.
bool LongTextMirror::ownKey(const QKeyEvent& key) const {
    switch (key.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Home:
        case Qt::Key_End:
            return true;
        default:
            return false;
    }
}

QString LongTextMirror::selectedText() const {
    return editor_.textCursor().selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

void LongTextMirror::tellText() {
    if (drawing() || composing()) return;
    // An input method that has nothing to say is no edit: the text keeps its own breaks.
    if (editor_.toPlainText() == editorText(edit().text())) return tellSelection();
    const std::string text = fieldText(editor_.toPlainText());
    userDoes([&] { edit().userEdited(text, fieldPosition(text, editor_.textCursor().position())); });
}

void LongTextMirror::tellSelection() {
    if (drawing() || composing()) return;
    const std::string& text = edit().text();
    if (editor_.toPlainText() != editorText(text)) return;
    const std::size_t start = fieldPosition(text, editor_.textCursor().selectionStart());
    edit().select(start, fieldPosition(text, editor_.textCursor().selectionEnd()) - start);
}

void LongTextMirror::drawText() {
    editor_.setReadOnly(edit().readOnly());
    const QString wanted = editorText(edit().text()), shown = editor_.toPlainText();
    QTextCursor change = editor_.textCursor();
    if (wanted != shown && !edit().hasFocus()) {
        // What the program sets is nothing to undo: it may be another order's text.
        editor_.setPlainText(wanted);
    } else if (wanted != shown) {
        const auto [from, to] = std::mismatch(shown.begin(), shown.end(), wanted.begin(), wanted.end());
        const auto head = static_cast<int>(from - shown.begin());
        qsizetype tail = 0;
        while (tail < shown.size() - head && tail < wanted.size() - head &&
               shown.at(shown.size() - 1 - tail) == wanted.at(wanted.size() - 1 - tail))
            ++tail;
        change.setPosition(head);
        change.setPosition(static_cast<int>(shown.size() - tail), QTextCursor::KeepAnchor);
        change.insertText(wanted.mid(head, wanted.size() - head - tail));
    }
    if (!edit().hasFocus()) return;
    const int start = editorPosition(edit().text(), edit().selectionStart());
    const int end = editorPosition(edit().text(), edit().selectionStart() + edit().selectionLength());
    if (change.selectionStart() == start && change.selectionEnd() == end) return;
    change.setPosition(start);
    change.setPosition(end, QTextCursor::KeepAnchor);
    editor_.setTextCursor(change);
}

}  // namespace zelvo::qt
