#include "platform/qt/RichPieces.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>
#include <functional>
#include <utility>

namespace zelvo::qt {

namespace {

/// The mark of a break stands on its separator, so that it goes when the break is deleted and stays when the
/// blocks around it are joined with others. Its number is negative behind a line break; a separator that
/// took its form from the one before it has the same number, and is the user's own.
constexpr int pieceBreak = QTextFormat::UserProperty + 3;
/// On a further block of a paragraph that has a bullet.
constexpr int underBullet = QTextFormat::UserProperty + 4;

int nextBreak() {
    static int number = 0;
    return ++number;
}

QTextListFormat disc() {
    QTextListFormat bullet;
    bullet.setStyle(QTextListFormat::ListDisc);
    return bullet;
}

/// The form of a further block of the paragraph that begins with a block.
QTextBlockFormat furtherForm(const QTextBlock& first) {
    QTextBlockFormat form = first.blockFormat();
    if (first.textList() != nullptr) {
        form.setIndent(1);
        form.setProperty(underBullet, true);
    }
    form.setObjectIndex(-1);
    return form;
}

/// For a block that lost what stood before it in its paragraph.
void giveBullet(const QTextBlock& block) {
    QTextCursor cursor(block);
    QTextBlockFormat form = block.blockFormat();
    form.clearProperty(underBullet);
    form.setIndent(0);
    cursor.setBlockFormat(form);
    cursor.createList(disc());
}

void giveForm(const QTextBlock& block, const QTextBlockFormat& form) {
    if (block.textList() != nullptr) block.textList()->remove(block);
    QTextCursor(block).setBlockFormat(form);
}

/// Changes of a document as a part of the step before them; as long as it lives.
class Afterwards {
public:
    explicit Afterwards(QTextDocument& document) : cursor_(&document) {}
    ~Afterwards() {
        if (changed_) cursor_.endEditBlock();
    }
    Afterwards(const Afterwards&) = delete;
    Afterwards& operator=(const Afterwards&) = delete;

    void change(const std::function<void()>& how) {
        if (!std::exchange(changed_, true)) cursor_.joinPreviousEditBlock();
        how();
    }
    bool changed() const { return changed_; }

private:
    QTextCursor cursor_;
    bool changed_ = false;
};

QTextCharFormat withoutBreak(QTextCharFormat form) {
    form.clearProperty(pieceBreak);
    return form;
}

/// What is typed into an empty one would take the form of its break.
void dropEmptyPieces(const QTextDocument& document, Afterwards& afterwards) {
    for (QTextBlock block = document.lastBlock(); block.isValid();) {
        const Piece piece = pieceOf(block);
        if (piece == Piece::Paragraph || block.length() > 1) {
            block = block.previous();
            continue;
        }
        const int place = block.position();
        afterwards.change([&] {
            QTextCursor cursor(block);
            const QTextCharFormat form = withoutBreak(block.charFormat());
            cursor.deletePreviousChar();
            if (piece == Piece::AfterLine) cursor.insertText(QString(QChar::LineSeparator), form);
        });
        block = document.findBlock(place - 1);
    }
}

/// What the user writes over a whole piece takes the form of its break, with the mark, and hands it on to a
/// paragraph that is parted there: joined with another piece, that one would be taken for a break.
void dropStrayMarks(const QTextDocument& document, Afterwards& afterwards) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QTextCharFormat form = block.charFormat();
        if (form.hasProperty(pieceBreak) && pieceOf(block) == Piece::Paragraph)
            afterwards.change([&] { QTextCursor(block).setBlockCharFormat(withoutBreak(form)); });
        if (block.begin().atEnd()) continue;
        const QTextFragment letters = block.begin().fragment();
        if (!letters.charFormat().hasProperty(pieceBreak)) continue;
        afterwards.change([&] {
            QTextCursor cursor(block);
            cursor.setPosition(letters.position() + letters.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(withoutBreak(letters.charFormat()));
        });
    }
}

}  // namespace

Piece pieceOf(const QTextBlock& block) {
    const QTextBlock before = block.previous();
    const QVariant number = block.charFormat().property(pieceBreak);
    if (!number.isValid() || !before.isValid() || number == before.charFormat().property(pieceBreak))
        return Piece::Paragraph;
    return number.toInt() < 0 ? Piece::AfterLine : Piece::WithinLine;
}

void insertPiece(QTextCursor& cursor, Piece how, const QTextCharFormat& form) {
    QTextCharFormat mark = form;
    mark.setProperty(pieceBreak, how == Piece::AfterLine ? -nextBreak() : nextBreak());
    cursor.insertBlock(furtherForm(firstPiece(cursor.block())), mark);
}

QTextBlock firstPiece(QTextBlock block) {
    while (pieceOf(block) != Piece::Paragraph) block = block.previous();
    return block;
}

QTextCursor fromParagraphStart(const QTextCursor& selection) {
    QTextCursor whole = selection;
    whole.setPosition(firstPiece(selection.document()->findBlock(selection.selectionStart())).position());
    whole.setPosition(selection.selectionEnd(), QTextCursor::KeepAnchor);
    return whole;
}

bool bringPiecesInLine(QTextDocument& document) {
    Afterwards afterwards(document);
    dropEmptyPieces(document, afterwards);
    dropStrayMarks(document, afterwards);
    QTextBlock first;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (pieceOf(block) == Piece::Paragraph) {
            first = block;
            if (block.blockFormat().boolProperty(underBullet)) afterwards.change([&] { giveBullet(block); });
            continue;
        }
        const QTextBlockFormat form = furtherForm(first);
        if (block.textList() != nullptr || block.blockFormat() != form)
            afterwards.change([&] { giveForm(block, form); });
    }
    return afterwards.changed();
}

}  // namespace zelvo::qt
