#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "screen/RichText.h"
#include "screen/RtfBytes.h"
#include "screen/RtfWords.h"

namespace zelvo::screen {

/// The tables at the head of an RTF text: fonts, colours and lists. They take their words and texts as these
/// come, and keep a bounded number of entries.
class RtfTables {
public:
    /// A word of the table that `part` is. `encoding` is the one in force in its group and follows the font
    /// that is being told.
    void word(RtfPart part, const RtfWord& word, int number, RtfEncoding& encoding);
    void text(RtfPart part, std::string_view text);

    void setDocumentPage(int page) { documentPage_ = readablePage(page); }
    RtfEncoding plainEncoding() const { return {documentPage_, false, false}; }
    /// The encoding of a font's text; the document's for one that the table doesn't have.
    RtfEncoding encoding(int font) const;
    std::string family(int font) const;
    std::optional<Colour> colour(int number) const;
    /// Whether the paragraphs of this list number have bullets.
    bool hasBullets(int listNumber) const { return bulletUses_.contains(listNumber); }

private:
    struct Font {
        std::string name;
        std::optional<int> charset, page;
        bool named = false;
    };

    void fontWord(const RtfWord& word, int number, RtfEncoding& encoding);
    void colourWord(RtfAct act, int number);
    void listWord(RtfAct act, int number);
    void listUseWord(RtfAct act, int number);
    void fontText(std::string_view text);
    RtfEncoding encoding(const Font& font) const;

    int documentPage_ = 949;
    std::map<int, Font> fonts_;
    Font* font_ = nullptr;  ///< being told
    std::vector<std::optional<Colour>> colours_;
    std::optional<Colour> colour_;
    std::set<int> bulletLists_, bulletUses_;
    std::optional<int> numberForm_;
    int listId_ = 0;
};

}  // namespace zelvo::screen
