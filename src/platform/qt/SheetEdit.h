#pragma once

#include <QtGui/QTextCursor>
#include <QtWidgets/QTextEdit>

#include "screen/CodePage.h"

namespace zelvo::qt {

/// The editor of a sheet. What comes in by paste or drop comes in as it will be stored: its numbers and cells
/// as text, without its pictures.
class SheetEdit : public QTextEdit {
    Q_OBJECT

public:
    using QTextEdit::QTextEdit;
    /// For the bytes of old documents that are pasted.
    void setCodePages(screen::CodePages pages) { pages_ = std::move(pages); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    /// A break that is only drawn is no letter: the one behind it goes.
    void passDrawnBreak(int at, QTextCursor::MoveOperation over);

    screen::CodePages pages_;
};

}  // namespace zelvo::qt
