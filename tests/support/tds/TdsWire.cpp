#include "support/tds/TdsWire.h"

#include <chrono>
#include <cmath>

#include "basics/Dates.h"
#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::testing::tds {
namespace {

constexpr std::uint8_t intN = 0x26, bitN = 0x68, decimalN = 0x6A, floatN = 0x6D, moneyN = 0x6E,
                       datetimeN = 0x6F, nvarchar = 0xE7;
constexpr std::uint32_t withoutBound = 0xFFFF;
constexpr std::string_view collation("\x12\x04\xD0\x00\x34", 5);  // Korean

void datetime(Bytes& out, std::string_view text) {
    const auto moment = basics::parseDateTime(text);
    if (!moment) return static_cast<void>(out.number(0, 1));
    using namespace std::chrono;
    const sys_days day = year(moment->date.year) / moment->date.month / moment->date.day;
    const auto days = (day - sys_days(year(1900) / 1 / 1)).count();
    const int seconds = (moment->hour * 60 + moment->minute) * 60 + moment->second;
    out.number(8, 1)
        .number(static_cast<std::uint32_t>(days), 4)
        .number(static_cast<std::uint32_t>(seconds) * 300, 4);
}

std::string token(std::uint8_t kind, const Bytes& body) {
    return Bytes().number(kind, 1).number(body.get().size(), 2).raw(body.get()).get();
}

}  // namespace

std::string toUtf16(std::string_view text) {
    Bytes out;
    for (std::size_t at = 0; at < text.size(); at += basics::byteOffset(text.substr(at), 1)) {
        const char32_t c = basics::characterAt(text, at);
        if (c < 0x10000) {
            out.number(c, 2);
        } else {
            out.number(0xD800 + ((c - 0x10000) >> 10), 2).number(0xDC00 + ((c - 0x10000) & 0x3FF), 2);
        }
    }
    return out.get();
}

std::string fromUtf16(std::string_view bytes) {
    std::string text;
    char32_t high = 0;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const char32_t unit = static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1])
                                                                         << 8;
        if (unit >= 0xD800 && unit < 0xDC00) {
            high = unit;
        } else if (unit >= 0xDC00 && unit < 0xE000) {
            text += basics::toUtf8(0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
        } else {
            text += basics::toUtf8(unit);
        }
    }
    return text;
}

Column::Column(sqlite3_stmt* statement, int index) : name(sqlite3_column_name(statement, index)) {
    const char* told = sqlite3_column_decltype(statement, index);
    const std::string declared = told ? basics::foldCase(told) : "";
    const auto is = [&](const char* word) { return declared.starts_with(word); };
    const int held = sqlite3_column_type(statement, index);
    if (is("bit")) {
        type = bitN, size = 1;
    } else if (is("int") || is("smallint") || (!told && held == SQLITE_INTEGER)) {
        type = intN, size = told ? 4 : 8;
    } else if (is("real") || is("float") || (!told && held == SQLITE_FLOAT)) {
        type = floatN, size = is("real") ? 4 : 8;
    } else if (is("money")) {
        type = moneyN, size = 8;
    } else if (is("decimal")) {
        type = decimalN, size = 9, scale = 4;
    } else if (is("datetime") || basics::foldCase(name) == "getdate()") {
        type = datetimeN, size = 8;
    } else if (is("varchar(")) {
        type = nvarchar, size = 2 * static_cast<std::uint32_t>(std::stoul(declared.substr(8)));
    } else {
        type = nvarchar, size = told ? withoutBound : 8000;
    }
}

void Column::describe(Bytes& out) const {
    out.number(0, 4).number(0x09, 2).number(type, 1).number(size, type == nvarchar ? 2 : 1);
    if (type == nvarchar) out.raw(collation);
    if (type == decimalN) out.number(precision, 1).number(scale, 1);
    out.text(name, 1);
}

void Column::value(Bytes& out, sqlite3_stmt* statement, int index) const {
    const bool null = sqlite3_column_type(statement, index) == SQLITE_NULL;
    const double number = sqlite3_column_double(statement, index);
    if (type == nvarchar) {
        const auto* utf8 = reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
        const std::string wide = toUtf16(utf8 ? utf8 : "");
        if (size != withoutBound) {
            out.number(null ? 0xFFFF : wide.size(), 2).raw(wide);
        } else if (null) {
            out.number(~0ULL, 8);
        } else {
            out.number(wide.size(), 8);
            if (!wide.empty()) out.number(wide.size(), 4).raw(wide);
            out.number(0, 4);
        }
    } else if (null) {
        out.number(0, 1);
    } else if (type == datetimeN) {
        datetime(out, reinterpret_cast<const char*>(sqlite3_column_text(statement, index)));
    } else if (type == moneyN) {
        const auto units = static_cast<std::uint64_t>(std::llround(number * 10000));
        out.number(8, 1).number(units >> 32, 4).number(units & 0xFFFFFFFF, 4);
    } else if (type == decimalN) {
        out.number(9, 1).number(number >= 0 ? 1 : 0, 1);
        out.number(static_cast<std::uint64_t>(std::llround(std::fabs(number) * 10000)), 8);
    } else if (type == floatN) {
        const auto single = static_cast<float>(number);
        out.number(size, 1).raw(
            {reinterpret_cast<const char*>(size == 4 ? static_cast<const void*>(&single) : &number), size});
    } else {
        out.number(size, 1).number(static_cast<std::uint64_t>(sqlite3_column_int64(statement, index)),
                                   static_cast<int>(size));
    }
}

std::string loginAnswer(const std::string& database) {
    Bytes change, welcome;
    change.number(1, 1).text(database, 1).text("master", 1);
    welcome.number(1, 1).raw({"\x74\x00\x00\x04", 4}).text("No SQL Server", 1).number(16, 4);
    return token(0xE3, change) + token(0xAD, welcome) + done(0, 0);
}

std::string errorAnswer(std::uint32_t number, const std::string& message) {
    Bytes error;
    error.number(number, 4).raw({"\x01\x10", 2}).text(message, 2).text("desk", 1).text("", 1).number(1, 4);
    return token(0xAA, error) + done(2, 0);
}

std::string done(std::uint16_t status, std::uint64_t rows) {
    return Bytes().number(0xFD, 1).number(status, 2).number(0xC1, 2).number(rows, 8).get();
}

}  // namespace zelvo::testing::tds
