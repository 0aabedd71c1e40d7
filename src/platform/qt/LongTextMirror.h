#pragma once

#include "platform/qt/TextMirror.h"

class QPlainTextEdit;

namespace zelvo::qt {

/// A plain text of several lines.
class LongTextMirror : public TextMirror {
public:
    LongTextMirror(screen::EditField& field, QPlainTextEdit& editor);
    bool ownKey(const QKeyEvent& key) const override;

private:
    void drawText() override;
    QString selectedText() const override;
    void tellText();
    void tellSelection();

    QPlainTextEdit& editor_;
};

}  // namespace zelvo::qt
