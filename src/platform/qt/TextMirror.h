#pragma once

#include "platform/qt/Mirror.h"

class QInputMethodEvent;
class QLineEdit;
class QString;

namespace zelvo::screen {
class EditField;
}

namespace zelvo::qt {

/// What the mirrors of text fields have in common: clipboard and input method. A composition is never cut:
/// while it goes on, nothing is drawn; what it comes to is typed into the field, so that the field's rules
/// see each character.
class TextMirror : public Mirror {
public:
    TextMirror(screen::EditField& field, QWidget& widget);
    bool specialKey(const QKeyEvent& key) override;
    bool filter(QWidget& target, QEvent& event) override;
    /// A key that writes. One that the field refuses is told to whoever can't see it.
    void userWrites(const screen::Key& key);

protected:
    screen::EditField& edit() const { return edit_; }
    bool composing() const { return composing_; }
    virtual void drawText() = 0;
    virtual QString selectedText() const = 0;
    /// Whether what stands in the field may go to the clipboard: what is typed unseen may not.
    virtual bool readable() const { return true; }

private:
    void draw() override;
    bool compose(QWidget& target, const QInputMethodEvent& event);

    screen::EditField& edit_;
    bool composing_ = false, forwarding_ = false;
};

/// A text of one line.
class LineMirror : public TextMirror {
public:
    LineMirror(screen::EditField& field, QLineEdit& line);

private:
    void drawText() override;
    QString selectedText() const override;
    bool readable() const override;
    void tellSelection();
    void replaceMiddle(const QString& shown, const QString& wanted);

    QLineEdit& line_;
};

}  // namespace zelvo::qt
