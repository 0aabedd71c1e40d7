#pragma once

class QTextBlock;
class QTextCharFormat;
class QTextCursor;
class QTextDocument;

namespace zelvo::qt {

/// What a block is of its paragraph. A very long one stands in several blocks, parted by breaks that are only
/// drawn: behind one of its line breaks, or within a line.
enum class Piece { Paragraph, AfterLine, WithinLine };

Piece pieceOf(const QTextBlock& block);
/// Goes on with the cursor's paragraph in a further block.
void insertPiece(QTextCursor& cursor, Piece how, const QTextCharFormat& form);
/// The same selection, from the start of its first paragraph on.
QTextCursor fromParagraphStart(const QTextCursor& selection);
/// The block that a paragraph begins with.
QTextBlock firstPiece(QTextBlock block);
/// Gives all pieces the look of their paragraph after an edit, as a part of its step to undo, and takes away
/// the breaks before empty ones. Whether anything was changed.
bool bringPiecesInLine(QTextDocument& document);

}  // namespace zelvo::qt
