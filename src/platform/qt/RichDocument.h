#pragma once

#include <QtGui/QFont>
#include <vector>

#include "screen/RichText.h"

class QTextCursor;
class QTextDocument;

namespace zelvo::qt {

/// The font of a text that says nothing of its own.
QFont standardFont();
/// Puts a rich text into a document of the toolkit, in place of what stood in it. It is drawn as on paper: a
/// colour that could not be read on its ground is drawn as one that can. A word without an end is broken.
void fillDocument(QTextDocument& document, const screen::RichText& content);
/// Puts a rich text in the place of a selection, for the user to undo in one step.
void insertContent(QTextCursor& cursor, const screen::RichText& content);
/// What a document holds, as far as a rich text has words for it: numbers of lists and cells of tables are
/// text.
screen::RichText contentOf(const QTextDocument& document);
/// The places of the breaks that are only drawn, within long words and very long paragraphs, in their order:
/// no content counts them.
std::vector<int> drawnBreaks(const QTextDocument& document);

}  // namespace zelvo::qt
