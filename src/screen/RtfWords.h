#pragma once

#include <string_view>

namespace zelvo::screen {

/// What the pieces within a group are.
enum class RtfPart {
    Body,       ///< text of the document
    Skipped,    ///< none of the document's text
    Fonts,      ///< the font table
    Colours,    ///< the colour table
    Label,      ///< the bullet or the number of a paragraph, as text
    Numbering,  ///< the old form of a paragraph's bullet
    Lists,      ///< the list table
    ListUses,   ///< which list a list number in the text means
    Outer,      ///< a shape, or a text told twice: of it only the inner part is text of the document
    Inner
};

enum class RtfAct {
    Part,
    Sign,
    EndParagraph,
    Character,
    FallbackLength,
    Bold,
    Italic,
    Underline,
    Strike,
    Hidden,
    Font,
    Size,
    ColourIndex,
    GroundIndex,
    Unkept,  ///< a form that a content has no word for
    PlainCharacters,
    PlainParagraph,
    Align,
    LeftIndent,
    FirstIndent,
    ListNumber,
    Bullet,
    DocumentPage,
    DefaultFont,
    Charset,
    FontPage,
    Red,
    Green,
    Blue,
    NumberForm,
    ListId
};

/// A control word that this system follows.
struct RtfWord {
    std::string_view word;
    RtfAct act = RtfAct::Sign;
    int value = 0;          ///< a part, an alignment, or what the word switches to
    std::string_view text;  ///< of a sign; "shown" of a part that other programs show
};

/// nullptr for a word that it doesn't follow.
const RtfWord* rtfWord(std::string_view word);

}  // namespace zelvo::screen
