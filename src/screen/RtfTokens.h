#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zelvo::screen {

/// One piece of an RTF text.
struct RtfToken {
    enum class Kind { Open, Close, Word, Symbol, Byte, Text, End };
    Kind kind = Kind::End;
    /// A word without backslash and number; a symbol without backslash; a stretch of text, never empty.
    std::string_view text;
    bool numbered = false;
    std::int32_t number = 0;  ///< a word's number, cut to 32 bits; a byte's value
};

/// Cuts an RTF text into its pieces, in order and without copies. Line ends of the file are none, a bare tab
/// is the word for it, and binary data are passed over with the word that announces them.
class RtfTokens {
public:
    explicit RtfTokens(std::string_view rtf) : rtf_(rtf) {}
    /// The next piece; End at the end, again and again.
    RtfToken next();

private:
    RtfToken control();
    RtfToken word();
    RtfToken byte();

    std::string_view rtf_;
    std::size_t at_ = 0;
};

}  // namespace zelvo::screen
