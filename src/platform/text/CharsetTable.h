#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace zelvo::text {

/// The machine's own table of one charset.
class CharsetTable {
public:
    /// `charset` as the web calls it, or "CP" and the number of a code page.
    explicit CharsetTable(const std::string& charset);
    ~CharsetTable();
    CharsetTable(const CharsetTable&) = delete;
    CharsetTable& operator=(const CharsetTable&) = delete;

    /// False where the machine has no such charset; nothing else may be asked then.
    bool known() const;

    /// What the bytes before the ones that are left have come to.
    enum class Stop { End, Broken, WithinCharacter };
    /// Puts the characters at the start of `bytes` behind `text` as UTF-8 and takes them off, to the end or
    /// to what is no character. `first` begins a text anew.
    Stop take(std::string_view& bytes, std::string& text, bool first);

private:
    struct Insides;
    std::unique_ptr<Insides> insides_;
};

}  // namespace zelvo::text
