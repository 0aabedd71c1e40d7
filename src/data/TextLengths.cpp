#include "data/TextLengths.h"

#include "basics/Utf8.h"
#include "data/Running.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::data {

namespace {

std::string placeOf(std::string_view table, std::string_view column) {
    return basics::foldCase(std::string(table) + "." + std::string(column));
}

}  // namespace

void TextLengths::add(std::string_view table, std::string_view column, std::string_view type,
                      std::string_view charset, std::int32_t length) {
    if (length <= 0) return;  // without a bound
    const std::string set = basics::foldCase(charset);
    Width width = Width::One;
    if (basics::foldCase(type).starts_with('n')) {
        width = Width::Utf16;
    } else if (set.starts_with("utf")) {
        width = Width::Utf8;
    } else if (set.starts_with("cp9")) {  // Korean, Japanese and Chinese pages
        width = Width::Two;
    }
    Limit& limit = limits_[placeOf(table, column)];
    const auto units = static_cast<std::size_t>(length);
    if (units > limit.length) limit = {width, units};
}

std::size_t TextLengths::excess(std::string_view table, std::string_view column,
                                std::string_view text) const {
    const auto found = limits_.find(placeOf(table, column));
    if (found == limits_.end()) return 0;
    const auto [width, length] = found->second;
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    std::size_t used = 0, over = 0;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = basics::characterAt(text, at);
        used += widthOf(character, width);
        if (used > length) ++over;
        at += basics::byteOffset(text.substr(at), 1);
    }
    return over;
}

std::size_t TextLengths::widthOf(char32_t character, Width width) {
    if (character < 0x80 || width == Width::One) return 1;
    if (width == Width::Two) return 2;
    if (width == Width::Utf8) return basics::toUtf8(character).size();
    return character > 0xFFFF ? 2 : 1;
}

std::int16_t clsZELVORecordSet::RecordSet_TextLengths(Connection& Conn, TextLengths& lengths) {
    if (!Conn.hasCatalogue()) return 1;
    return running::status([&] {
        RecordSet own;
        Conn.open(own,
                  "SELECT TABLE_NAME, COLUMN_NAME, DATA_TYPE, CHARACTER_SET_NAME, CHARACTER_MAXIMUM_LENGTH "
                  "FROM INFORMATION_SCHEMA.COLUMNS "
                  "WHERE TABLE_NAME IN ('t_ChubangJun', 't_CBJDetail', 't_EatGuide') "
                  "AND CHARACTER_MAXIMUM_LENGTH > 0 ",
                  Cursor::Static);
        for (; !own.atEnd(); own.moveNext())
            lengths.add(own.text(0), own.text(1), own.text(2), own.text(3), basics::toInt32(own.text(4)));
    });
}

}  // namespace zelvo::data
