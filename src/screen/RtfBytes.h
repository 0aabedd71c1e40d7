#pragma once

#include <string>

#include "screen/CodePage.h"

namespace zelvo::screen {

/// How the bytes of a font's text are to be read.
struct RtfEncoding {
    int page = 949;
    /// A font that calls itself western in a document of an East Asian page: old editors wrote Hangul under
    /// it all the same. Pairs from its upper half are read by the page, single bytes as western ones.
    bool western = false;
    /// A font of signs: its bytes are numbers of pictures.
    bool symbols = false;
};

/// A page that this system reads, else the western one.
int readablePage(int page);
/// The encoding for a font table's charset number in a document of that page.
RtfEncoding encodingOf(int charset, int documentPage);

/// The bytes of old documents on their way to text. They gather until taken, so that a stretch of them is
/// converted at once.
class RtfBytes {
public:
    explicit RtfBytes(const CodePages& pages) : pages_(pages) {}

    void add(unsigned char byte, RtfEncoding encoding);
    /// Whether a plain character is the second byte of the pair that the last byte began.
    bool wants(char character, RtfEncoding encoding) const;
    /// Whether two bytes are one character.
    static bool isPair(unsigned char first, unsigned char second, RtfEncoding encoding);
    bool empty() const { return gathered_.empty() && text_.empty() && first_ == 0; }
    /// The text of all that was added since; a first byte without its second is U+FFFD, or western.
    std::string take();

private:
    void addSingle(unsigned char byte, RtfEncoding encoding);
    void convert();
    std::string converted(const std::string& bytes, int page) const;

    const CodePages& pages_;
    std::string gathered_, text_;
    unsigned char first_ = 0;
    RtfEncoding encoding_;
};

}  // namespace zelvo::screen
