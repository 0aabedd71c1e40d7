#pragma once

#include <string>
#include <string_view>

#include "platform/text/CharsetTable.h"

namespace zelvo::text {

/// Makes UTF-8 of texts in one charset, with the machine's tables.
class Converter {
public:
    /// Nothing but known() may be asked of a charset that the machine doesn't have.
    explicit Converter(const std::string& charset);

    bool known() const { return table_.known(); }
    /// One whole text. U+FFFD stands for what is no character: a byte, or a pair where the charset has pairs
    /// (so that the next one is read from its first byte).
    std::string convert(std::string_view bytes);

private:
    std::size_t brokenLength(std::string_view bytes) const;

    CharsetTable table_;
    bool pairs_;
};

}  // namespace zelvo::text
