#include "platform/qt/RichDocument.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>
#include <cmath>

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

QTextCharFormat formatOf(const CharacterStyle& style) {
    QTextCharFormat format;
    format.setFontFamilies({qtText(style.family)});
    format.setFontPointSize(style.halfPoints / 2.0);
    format.setFontWeight(style.bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(style.italic);
    format.setFontUnderline(style.underline);
    format.setFontStrikeOut(style.strike);
    if (style.colour)
        format.setForeground(QColor(style.colour->red, style.colour->green, style.colour->blue));
    return format;
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
    if (format.hasProperty(QTextFormat::ForegroundBrush)) {
        const QColor color = format.foreground().color();
        style.colour =
            screen::Colour{static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
                           static_cast<std::uint8_t>(color.blue())};
    }
    return style;
}

void addParagraph(QTextCursor& cursor, const Paragraph& paragraph) {
    QTextBlockFormat block;
    block.setAlignment(toolkitAlignment(paragraph.alignment));
    block.setLeftMargin(paragraph.indent / twipsPerPoint);
    cursor.setBlockFormat(block);
    if (paragraph.bullet) {
        QTextListFormat bullet;
        bullet.setStyle(QTextListFormat::ListDisc);
        cursor.createList(bullet);
    }
    for (const Run& run : paragraph.runs) {
        cursor.insertText(qtText(run.text).replace(QLatin1Char('\n'), QChar::LineSeparator),
                          formatOf(run.style));
    }
}

Paragraph paragraphOf(const QTextBlock& block) {
    Paragraph paragraph;
    paragraph.alignment = ownAlignment(block.blockFormat().alignment());
    paragraph.bullet = block.textList() != nullptr;
    paragraph.indent = static_cast<int>(std::lround(block.blockFormat().leftMargin() * twipsPerPoint));
    for (auto at = block.begin(); !at.atEnd(); ++at) {
        QString text = at.fragment().text();
        text.replace(QChar::LineSeparator, QLatin1Char('\n'));
        text.remove(QChar::ObjectReplacementCharacter);
        paragraph.runs.push_back({utf8(text), styleOf(at.fragment().charFormat())});
    }
    return paragraph;
}

}  // namespace

void fillDocument(QTextDocument& document, const RichText& content) {
    // Nothing of this is the user's to undo.
    document.setUndoRedoEnabled(false);
    document.clear();
    QTextCursor cursor(&document);
    cursor.setCharFormat(formatOf({}));
    cursor.setBlockCharFormat(formatOf({}));
    bool first = true;
    for (const Paragraph& paragraph : content.paragraphs) {
        if (!first) cursor.insertBlock(QTextBlockFormat(), formatOf({}));
        first = false;
        addParagraph(cursor, paragraph);
    }
    document.setUndoRedoEnabled(true);
}

RichText contentOf(const QTextDocument& document) {
    RichText content;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        content.paragraphs.push_back(paragraphOf(block));
    return screen::tidied(std::move(content));
}

}  // namespace zelvo::qt
