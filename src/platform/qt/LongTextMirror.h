#pragma once

#include "platform/qt/TextMirror.h"

class QPlainTextEdit;

namespace zelvo::qt {

/// A plain text of several lines.
class LongTextMirror : public TextMirror {
public:
    LongTextMirror(screen::EditField& field, QPlainTextEdit& editor);
    bool ownKey(const QKeyEvent& key) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void drawText() override;
    QString selectedText() const override;
    void tellText();
    void tellSelection();

    QPlainTextEdit& editor_;
    int turned_ = 0;  ///< of the wheel, what no whole line has come of yet
};

}  // namespace zelvo::qt
