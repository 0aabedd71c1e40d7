#include "platform/qt/RichDocument.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>
#include <QtGui/QTextTable>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "platform/qt/Contrast.h"
#include "platform/qt/RichPieces.h"
#include "platform/qt/Texts.h"

namespace zelvo::qt {

using screen::Alignment;
using screen::CharacterStyle;
using screen::Paragraph;
using screen::RichText;
using screen::Run;

namespace {

/// A document measures in points of 96 to the inch.
constexpr double twipsPerPoint = 15;
/// Characters without a blank; the layout looks through all that are left of a word at each of its lines.
constexpr qsizetype longestWord = 500;
/// Units in a block, about: the layout needs some 30 bytes for each of them at once.
constexpr qsizetype longestBlock = 20'000;
/// Properties of our own: the colour as it is stored (none is 0), and a break that is only drawn.
constexpr int storedColour = QTextFormat::UserProperty + 1, drawnBreak = QTextFormat::UserProperty + 2;

Qt::Alignment toolkitAlignment(Alignment alignment) {
    switch (alignment) {
        case Alignment::Center:
            return Qt::AlignHCenter;
        case Alignment::Right:
            return Qt::AlignRight;
        case Alignment::Justify:
            return Qt::AlignJustify;
        case Alignment::Left:
            break;
    }
    return Qt::AlignLeft;
}

Alignment ownAlignment(Qt::Alignment alignment) {
    if (alignment & Qt::AlignHCenter) return Alignment::Center;
    if (alignment & Qt::AlignRight) return Alignment::Right;
    if (alignment & Qt::AlignJustify) return Alignment::Justify;
    return Alignment::Left;
}

QColor toolkitColour(const screen::Colour& colour) {
    return {colour.red, colour.green, colour.blue};
}

screen::Colour ownColour(const QColor& color) {
    return {static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
            static_cast<std::uint8_t>(color.blue())};
}

/// A colour as it is drawn on its ground.
QColor drawnColour(const QColor& stored, const QBrush& ground) {
    return readableOn(ground.style() == Qt::NoBrush ? QColor(Qt::white) : ground.color(), stored);
}

QTextCharFormat formatOf(const CharacterStyle& style) {
    QTextCharFormat format;
    format.setFontFamilies({qtText(style.family)});
    format.setFontPointSize(style.halfPoints / 2.0);
    format.setFontWeight(style.bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(style.italic);
    format.setFontUnderline(style.underline);
    format.setFontStrikeOut(style.strike);
    if (style.ground) format.setBackground(toolkitColour(*style.ground));
    if (style.colour || style.ground) {
        const QColor stored = style.colour ? toolkitColour(*style.colour) : QColor(Qt::black);
        format.setForeground(drawnColour(stored, format.background()));
        format.setProperty(storedColour, style.colour ? stored.rgba() : 0U);
    }
    return format;
}

/// The colour of a text as it is stored: the one that was drawn in its place, unless the user gave another.
std::optional<screen::Colour> colourOf(const QTextCharFormat& format) {
    if (!format.hasProperty(QTextFormat::ForegroundBrush)) return std::nullopt;
    const QColor drawn = format.foreground().color();
    if (format.hasProperty(storedColour)) {
        const QRgb stored = format.property(storedColour).toUInt();
        if (drawn == drawnColour(QColor(stored), format.background())) {
            if (stored == 0) return std::nullopt;
            return ownColour(QColor(stored));
        }
    }
    return ownColour(drawn);
}

CharacterStyle styleOf(const QTextCharFormat& format) {
    CharacterStyle style;
    const QStringList families = format.fontFamilies().toStringList();
    if (!families.isEmpty()) style.family = utf8(families.front());
    if (format.fontPointSize() > 0)
        style.halfPoints = static_cast<int>(std::lround(format.fontPointSize() * 2));
    style.bold = format.fontWeight() > QFont::Medium;
    style.italic = format.fontItalic();
    style.underline = format.fontUnderline();
    style.strike = format.fontStrikeOut();
    style.colour = colourOf(format);
    if (format.background().style() != Qt::NoBrush) style.ground = ownColour(format.background().color());
    return style;
}

/// Writes a content at a cursor.
class Filler {
public:
    explicit Filler(QTextCursor& cursor) : cursor_(cursor) {}

    /// In one step: a document lays itself out anew after each. Within a paragraph that has begun already,
    /// the first one brings its letters only.
    void fill(const RichText& content) {
        cursor_.beginEditBlock();
        bool startsParagraph = cursor_.atBlockStart() && pieceOf(cursor_.block()) == Piece::Paragraph;
        for (const Paragraph& paragraph : content.paragraphs) {
            if (&paragraph != &content.paragraphs.front()) {
                cursor_.insertBlock(QTextBlockFormat(), formatOf({}));
                startsParagraph = true;
            }
            if (startsParagraph) shape(paragraph);
            write(paragraph);
        }
        cursor_.endEditBlock();
    }

private:
    void shape(const Paragraph& paragraph) {
        QTextBlockFormat block;
        block.setAlignment(toolkitAlignment(paragraph.alignment));
        block.setLeftMargin(paragraph.indent / twipsPerPoint);
        cursor_.setBlockFormat(block);
        if (paragraph.bullet) {
            QTextListFormat bullet;
            bullet.setStyle(QTextListFormat::ListDisc);
            cursor_.createList(bullet);
        }
    }

    void write(const Paragraph& paragraph) {
        word_ = block_ = 0;
        for (const Run& run : paragraph.runs) {
            if (!style_ || run.style != *style_) {
                style_ = run.style;
                format_ = formatOf(run.style);
            }
            addText(qtText(run.text).replace(QLatin1Char('\n'), QChar::LineSeparator));
        }
        if (std::exchange(due_, Piece::Paragraph) == Piece::AfterLine)
            cursor_.insertText(QString(QChar::LineSeparator), format_);
    }

    void addText(const QString& text) {
        qsizetype from = 0;
        for (qsizetype at = 0; at < text.size(); ++at, ++block_) {
            const QChar unit = text.at(at);
            word_ = unit.isSpace() ? 0 : word_ + 1;
            const bool isLine = unit == QChar::LineSeparator;
            if (block_ >= longestBlock && word_ == 0) {
                insert(text.mid(from, isLine ? at - from : at + 1 - from));
                goOn(isLine ? Piece::AfterLine : Piece::WithinLine);
                from = at + 1;
            } else if (word_ > longestWord && !unit.isLowSurrogate()) {
                insert(text.mid(from, at - from));
                breakWord();
                from = at;
                word_ = 1;
            }
        }
        insert(text.mid(from));
    }

    void breakWord() {
        if (block_ >= longestBlock) return goOn(Piece::WithinLine);
        QTextCharFormat breaking = format_;
        breaking.setProperty(drawnBreak, true);
        cursor_.insertText(QString(QChar::LineSeparator), breaking);
    }

    /// In a further block as soon as there is a letter for it.
    void goOn(Piece how) {
        due_ = how;
        block_ = 0;
    }

    void insert(const QString& text) {
        if (text.isEmpty()) return;
        if (due_ != Piece::Paragraph) insertPiece(cursor_, std::exchange(due_, Piece::Paragraph), format_);
        cursor_.insertText(text, format_);
    }

    QTextCursor& cursor_;
    std::optional<CharacterStyle> style_;
    QTextCharFormat format_;
    qsizetype word_ = 0, block_ = 0;  ///< how long they are so far
    Piece due_ = Piece::Paragraph;    ///< what the next letter begins, unless it goes on
};

/// Whether it begins with one: what is typed behind it takes its form.
bool isDrawnBreak(const QTextFragment& fragment) {
    return fragment.charFormat().boolProperty(drawnBreak) && fragment.text().startsWith(QChar::LineSeparator);
}

/// Reads a document into a content.
class Gatherer {
public:
    RichText gather(const QTextDocument& document) {
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) add(block);
        return screen::tidied(std::move(content_));
    }

private:
    /// The cells of a table's row stand in one paragraph, between tabs.
    void add(const QTextBlock& block) {
        const QTextTable* const table = QTextCursor(block).currentTable();
        const int row = table ? table->cellAt(block.position()).row() : -1;
        const int column = table ? table->cellAt(block.position()).column() : -1;
        const Piece piece = pieceOf(block);
        if (table && table == table_ && row == row_) {
            content_.paragraphs.back().runs.push_back({column == column_ ? " " : "\t", {}});
        } else if (piece == Piece::AfterLine) {
            content_.paragraphs.back().runs.push_back({"\n", styleOf(block.charFormat())});
        } else if (piece == Piece::Paragraph) {
            startParagraph(block);
        }
        table_ = table;
        row_ = row;
        column_ = column;
        addRuns(block, content_.paragraphs.back());
    }

    void startParagraph(const QTextBlock& block) {
        Paragraph& paragraph = content_.paragraphs.emplace_back();
        const QTextBlockFormat form = block.blockFormat();
        paragraph.alignment = ownAlignment(form.alignment());
        paragraph.indent = static_cast<int>(std::lround(form.leftMargin() * twipsPerPoint));
        const QTextList* const list = block.textList();
        if (!list) return;
        paragraph.bullet = list->format().style() >= QTextListFormat::ListSquare;
        if (!paragraph.bullet) paragraph.runs.push_back({utf8(list->itemText(block)) + " ", {}});
    }

    void addRuns(const QTextBlock& block, Paragraph& paragraph) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFragment fragment = at.fragment();
            QString text = fragment.text();
            if (isDrawnBreak(fragment)) text.remove(0, 1);
            text.replace(QChar::LineSeparator, QLatin1Char('\n'));
            text.remove(QChar::ObjectReplacementCharacter);
            const auto [style, isNew] = styles_.try_emplace(fragment.charFormatIndex());
            if (isNew) style->second = styleOf(fragment.charFormat());
            paragraph.runs.push_back({utf8(text), style->second});
        }
    }

    RichText content_;
    std::map<int, CharacterStyle> styles_;
    const QTextTable* table_ = nullptr;
    int row_ = -1, column_ = -1;
};

}  // namespace

QFont standardFont() {
    return formatOf({}).font();
}

void fillDocument(QTextDocument& document, const RichText& content) {
    // Nothing of this is the user's to undo.
    document.setUndoRedoEnabled(false);
    document.clear();
    QTextCursor cursor(&document);
    cursor.setCharFormat(formatOf({}));
    cursor.setBlockCharFormat(formatOf({}));
    Filler(cursor).fill(content);
    document.setUndoRedoEnabled(true);
}

void insertContent(QTextCursor& cursor, const RichText& content) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    Filler(cursor).fill(content);
    cursor.endEditBlock();
}

RichText contentOf(const QTextDocument& document) {
    return Gatherer().gather(document);
}

std::vector<int> drawnBreaks(const QTextDocument& document) {
    std::vector<int> places;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (pieceOf(block) == Piece::WithinLine) places.push_back(block.position() - 1);
        if (block.length() <= longestWord) continue;
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            if (isDrawnBreak(at.fragment())) places.push_back(at.fragment().position());
        }
    }
    return places;
}

}  // namespace zelvo::qt
