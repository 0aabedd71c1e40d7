#include "platform/sqlite/Functions.h"

#include <sqlite3.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "basics/Dates.h"
#include "basics/Fault.h"
#include "basics/Utf8.h"
#include "platform/sqlite/Dialect.h"

namespace zelvo::sqlite {
namespace {

std::string_view textOf(sqlite3_value* value) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return bytes ? std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value)))
                 : std::string_view();
}

void giveText(sqlite3_context* context, std::string_view text) {
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

/// The first `count` characters of a text.
std::string_view firstCharacters(std::string_view text, sqlite3_int64 count) {
    if (count <= 0) return {};
    const auto wanted = static_cast<std::size_t>(count);
    return text.size() <= wanted ? text : text.substr(0, basics::byteOffset(text, wanted));
}

/// The server's clock is the clock of the machine that the file stands on.
void getdate(sqlite3_context* context, int /*count*/, sqlite3_value** /*values*/) {
    giveText(context, basics::dateTimeText(basics::now()));
}

/// varchar(10), where convert expects its type, is the length alone.
void varchar(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    sqlite3_result_int64(context, sqlite3_value_int64(values[0]));
}

/// A date in style 120, "yyyy-mm-dd hh:mm:ss", cut to the length; a text that is no date is only cut.
void convert(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    if (sqlite3_value_type(values[1]) == SQLITE_NULL) return sqlite3_result_null(context);
    const sqlite3_int64 length = sqlite3_value_int64(values[0]);
    const std::string_view text = textOf(values[1]);
    const bool inStyle =
        text.size() >= 10 && text[4] == '-' && text[7] == '-' && (text.size() == 10 || text[10] == ' ');
    const std::optional<basics::DateTime> date = inStyle ? std::nullopt : basics::parseDateTime(text);
    if (date) return giveText(context, firstCharacters(basics::dateTimeText(*date), length));
    giveText(context, firstCharacters(text, length));
}

void left(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL) return sqlite3_result_null(context);
    giveText(context, firstCharacters(textOf(values[0]), sqlite3_value_int64(values[1])));
}

unsigned char folded(char c) {
    return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

std::string_view withoutEndBlanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

int compareAsServer(void* /*context*/, int sizeA, const void* bytesA, int sizeB, const void* bytesB) {
    const std::string_view a =
        withoutEndBlanks({static_cast<const char*>(bytesA), static_cast<std::size_t>(sizeA)});
    const std::string_view b =
        withoutEndBlanks({static_cast<const char*>(bytesB), static_cast<std::size_t>(sizeB)});
    const auto [inA, inB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end(),
                                          [](char x, char y) { return folded(x) == folded(y); });
    if (inA == a.end() || inB == b.end())
        return static_cast<int>(inB == b.end()) - static_cast<int>(inA == a.end());
    return folded(*inA) < folded(*inB) ? -1 : 1;
}

}  // namespace

void registerServerFunctions(sqlite3* database) {
    constexpr int pure = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    const auto add = [database](const char* name, int arguments, int flags, auto function) {
        return sqlite3_create_function_v2(database, name, arguments, flags, nullptr, function, nullptr,
                                          nullptr, nullptr) == SQLITE_OK;
    };
    const bool added = add("getdate", 0, SQLITE_UTF8, getdate) && add("varchar", 1, pure, varchar) &&
                       add("convert", 3, pure, convert) && add("left", 2, pure, left) &&
                       sqlite3_create_collation_v2(database, serverCollation, SQLITE_UTF8, nullptr,
                                                   compareAsServer, nullptr) == SQLITE_OK;
    if (!added) throw basics::Fault(sqlite3_errmsg(database));
}

}  // namespace zelvo::sqlite
