#pragma once

#include "screen/RichText.h"

class QTextDocument;

namespace zelvo::qt {

/// Puts a rich text into a document of the toolkit, in place of what stood in it.
void fillDocument(QTextDocument& document, const screen::RichText& content);
/// What a document holds, as far as a rich text has words for it.
screen::RichText contentOf(const QTextDocument& document);

}  // namespace zelvo::qt
