#pragma once

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
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    screen::CodePages pages_;
};

}  // namespace zelvo::qt
