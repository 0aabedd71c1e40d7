#include "platform/text/Converter.h"

#include <algorithm>

#include "basics/Numbers.h"
#include "screen/KnownPages.h"

namespace zelvo::text {

namespace {

/// Whether this is the machine's name of a code page that has pairs: "CP949".
bool hasPairs(std::string_view charset) {
    if (!charset.starts_with("CP")) return false;
    const auto* const page = screen::knownPage(static_cast<int>(basics::numberFromStart(charset.substr(2))));
    return page != nullptr && page->pairs;
}

}  // namespace

Converter::Converter(const std::string& charset) : table_(charset), pairs_(hasPairs(charset)) {}

std::string Converter::convert(std::string_view bytes) {
    std::string text;
    for (bool first = true;; first = false) {
        const CharsetTable::Stop stop = table_.take(bytes, text, first);
        if (stop == CharsetTable::Stop::End) return text;
        text += "\uFFFD";
        if (stop == CharsetTable::Stop::WithinCharacter) return text;
        bytes.remove_prefix(std::min(brokenLength(bytes), bytes.size()));
    }
}

std::size_t Converter::brokenLength(std::string_view bytes) const {
    const auto isHigh = [](char byte) {
        const auto value = static_cast<unsigned char>(byte);
        return value > 0x80 && value < 0xFF;
    };
    return pairs_ && bytes.size() > 1 && isHigh(bytes[0]) && isHigh(bytes[1]) ? 2 : 1;
}

}  // namespace zelvo::text
