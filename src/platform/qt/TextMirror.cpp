#include "platform/qt/TextMirror.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QLineEdit>
#include <algorithm>
#include <tuple>

#include "platform/qt/Readers.h"
#include "platform/qt/Texts.h"
#include "screen/TextField.h"
#include "screen/Window.h"

namespace zelvo::qt {

TextMirror::TextMirror(screen::EditField& field, QWidget& widget) : Mirror(field, widget), edit_(field) {
    // The toolkit has no hint that turns an input method to Hangul: the mark is there for one that looks.
    widget.setProperty("hangul", field.hangul());
}

void TextMirror::draw() {
    if (!composing_) drawText();
}

bool TextMirror::specialKey(const QKeyEvent& key) {
    if (key.matches(QKeySequence::Paste)) {
        userDoes([this] { edit_.userInsert(utf8(QGuiApplication::clipboard()->text())); });
        return true;
    }
    if (key.matches(QKeySequence::Cut)) {
        const QString cut = selectedText();
        if (cut.isEmpty() || edit_.readOnly() || !readable()) return true;
        QGuiApplication::clipboard()->setText(cut);
        userDoes([this] { edit_.userInsert({}); });
        return true;
    }
    return false;
}

void TextMirror::userWrites(const screen::Key& key) {
    const auto standing = [this] {
        return std::tuple(edit_.text(), edit_.selectionStart(), edit_.selectionLength(), edit_.hasFocus());
    };
    const auto before = standing();
    edit_.window().userKey(key);
    edit_.window().desktop().deliverKeys();
    if (standing() == before) speakRefusal(widget(), key);
}

bool TextMirror::filter(QWidget& target, QEvent& event) {
    if (event.type() != QEvent::InputMethod || forwarding_) return false;
    return compose(target, static_cast<QInputMethodEvent&>(event));
}

bool TextMirror::compose(QWidget& target, const QInputMethodEvent& event) {
    if (edit_.readOnly()) return true;
    const auto forward = [&](const QString& preedit, const QList<QInputMethodEvent::Attribute>& attributes) {
        QInputMethodEvent part(preedit, attributes);
        forwarding_ = true;
        QGuiApplication::sendEvent(&target, &part);
        forwarding_ = false;
    };
    // Characters around the caret that the method wants replaced are the widget's own business.
    if (event.replacementLength() > 0) {
        composing_ = !event.preeditString().isEmpty();
        return false;
    }
    if (event.commitString().isEmpty()) {
        composing_ = !event.preeditString().isEmpty();
        forward(event.preeditString(), event.attributes());
        if (!composing_) show();
        return true;
    }
    // What is finished is typed; what is still being composed goes on behind it.
    forward({}, {});
    composing_ = false;
    userDoes([&] {
        // A handler has moved the focus meanwhile: the syllable still belongs where it was begun.
        if (!edit_.hasFocus()) return edit_.userInsert(utf8(event.commitString()));
        for (const char32_t character : event.commitString().toUcs4()) {
            userWrites(screen::Key::typed(character));
        }
    });
    show();
    composing_ = !event.preeditString().isEmpty();
    if (composing_) forward(event.preeditString(), event.attributes());
    return true;
}

LineMirror::LineMirror(screen::EditField& field, QLineEdit& line) : TextMirror(field, line), line_(line) {
    connect(&line, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (drawing() || composing()) return;
        userDoes([&] { edit().userEdited(utf8(text), charactersIn(text, line_.cursorPosition())); });
    });
    connect(&line, &QLineEdit::selectionChanged, this, [this] { tellSelection(); });
    connect(&line, &QLineEdit::cursorPositionChanged, this, [this] { tellSelection(); });
}

/// The caret moves by mouse, or by keys that the model has no word for.
void LineMirror::tellSelection() {
    if (drawing() || composing() || utf8(line_.text()) != edit().text()) return;
    const QString text = line_.text();
    if (line_.hasSelectedText()) {
        const std::size_t start = charactersIn(text, line_.selectionStart());
        edit().select(start, charactersIn(text, line_.selectionEnd()) - start);
    } else {
        edit().select(charactersIn(text, line_.cursorPosition()), 0);
    }
}

QString LineMirror::selectedText() const {
    return line_.selectedText();
}

bool LineMirror::readable() const {
    return line_.echoMode() == QLineEdit::Normal;
}

void LineMirror::drawText() {
    const auto* field = dynamic_cast<const screen::TextField*>(&edit());
    line_.setReadOnly(edit().readOnly());
    if (field) {
        line_.setEchoMode(field->masked ? QLineEdit::Password : QLineEdit::Normal);
        line_.setAlignment((field->alignRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    const QString wanted = qtText(edit().text()), shown = line_.text();
    if (wanted != shown) {
        if (line_.hasFocus()) {
            replaceMiddle(shown, wanted);
        } else {
            line_.setText(wanted);
        }
    }
    const qsizetype start = unitsIn(wanted, edit().selectionStart());
    const qsizetype end = unitsIn(wanted, edit().selectionStart() + edit().selectionLength());
    if (end > start && edit().hasFocus()) {
        if (line_.selectionStart() != start || line_.selectionEnd() != end)
            line_.setSelection(static_cast<int>(start), static_cast<int>(end - start));
        return;
    }
    // A text too long for its line shows its beginning, until the field is entered.
    const int caret = edit().hasFocus() ? static_cast<int>(start) : 0;
    if (line_.cursorPosition() == caret && !line_.hasSelectedText()) return;
    line_.deselect();
    line_.setCursorPosition(caret);
}

/// Only what differs is put in anew, so that the line's own undo still has its steps.
void LineMirror::replaceMiddle(const QString& shown, const QString& wanted) {
    const auto [from, to] = std::mismatch(shown.begin(), shown.end(), wanted.begin(), wanted.end());
    const qsizetype head = from - shown.begin();
    qsizetype tail = 0;
    while (tail < shown.size() - head && tail < wanted.size() - head &&
           shown.at(shown.size() - 1 - tail) == wanted.at(wanted.size() - 1 - tail))
        ++tail;
    line_.setSelection(static_cast<int>(head), static_cast<int>(shown.size() - head - tail));
    line_.insert(wanted.mid(head, wanted.size() - head - tail));
}

}  // namespace zelvo::qt
