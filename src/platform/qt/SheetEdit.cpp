#include "platform/qt/SheetEdit.h"

#include <QtCore/QMimeData>
#include <QtGui/QKeyEvent>
#include <algorithm>
#include <array>
#include <vector>

#include "platform/qt/PageDocument.h"
#include "platform/qt/RichDocument.h"
#include "platform/qt/Texts.h"
#include "screen/RtfReader.h"

namespace zelvo::qt {

namespace {

constexpr std::array rtfTypes{"text/rtf", "application/rtf", "text/richtext"};

std::string rtfOf(const QMimeData& source) {
    const auto* const type = std::find_if(rtfTypes.begin(), rtfTypes.end(), [&](const char* name) {
        return source.hasFormat(QLatin1String(name));
    });
    return type == rtfTypes.end() ? std::string() : source.data(QLatin1String(*type)).toStdString();
}

}  // namespace

bool SheetEdit::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasText() || source->hasHtml() || !rtfOf(*source).empty();
}

void SheetEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Backspace) passDrawnBreak(-1, QTextCursor::PreviousCharacter);
    if (event->key() == Qt::Key_Delete) passDrawnBreak(0, QTextCursor::NextCharacter);
    QTextEdit::keyPressEvent(event);
}

void SheetEdit::passDrawnBreak(int at, QTextCursor::MoveOperation over) {
    QTextCursor cursor = textCursor();
    const std::vector<int> breaks = drawnBreaks(*document());
    if (cursor.hasSelection() || !std::binary_search(breaks.begin(), breaks.end(), cursor.position() + at))
        return;
    cursor.movePosition(over);
    setTextCursor(cursor);
}

void SheetEdit::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly()) return;
    screen::RichText content;
    if (const std::string rtf = rtfOf(*source); screen::looksLikeRtf(rtf)) {
        content = screen::readRtf(rtf, pages_);
    } else if (source->hasHtml()) {
        PageDocument page;
        page.showContent(PageDocument::contentOf({{}, "text/html", utf8(source->html())}));
        content = contentOf(page);
    }
    QTextCursor cursor = textCursor();
    if (content.paragraphs.empty()) {
        cursor.insertText(source->text());
    } else {
        insertContent(cursor, content);
    }
    setTextCursor(cursor);
    ensureCursorVisible();
}

}  // namespace zelvo::qt
