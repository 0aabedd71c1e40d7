#include "platform/http/Charset.h"

#include <algorithm>
#include <array>
#include <optional>

#include "basics/Text.h"
#include "basics/Utf8.h"
#include "platform/text/Converter.h"

namespace zelvo::http {
namespace {

/// The "charset" parameter of a content type in lower case, "" if there is none.
std::string charsetOf(std::string_view contentType) {
    const auto parameters = basics::split(basics::foldCase(contentType), ";");
    for (std::size_t i = 1; i < parameters.size(); ++i) {
        const auto equals = parameters[i].find('=');
        if (equals == std::string::npos || basics::trim(parameters[i].substr(0, equals)) != "charset")
            continue;
        return basics::trim(basics::removeAll(parameters[i].substr(equals + 1), "\""));
    }
    return {};
}

bool isUtf8Name(const std::string& charset) {
    return charset.empty() || charset == "utf-8" || charset == "utf8";
}

/// The converter's name for a charset. Pages that call themselves EUC-KR are written with code page 949,
/// which has every character of EUC-KR and 8,822 Hangul more.
std::string converterName(const std::string& charset) {
    constexpr std::array<std::string_view, 16> korean{
        "euc-kr",   "euckr",   "ks_c_5601-1987", "ks_c_5601-1989", "ks_c_5601",
        "ksc_5601", "ksc5601", "ks_c_5601_1987", "iso-ir-149",     "csksc56011987",
        "cp949",    "ms949",   "windows-949",    "x-windows-949",  "uhc",
        "korean"};
    if (std::find(korean.begin(), korean.end(), charset) != korean.end()) return "CP949";
    // A name from outside must not bring options with it ("//IGNORE").
    return charset.find('/') == std::string::npos ? charset : "";
}

std::optional<std::string> converted(std::string_view bytes, const std::string& charset) {
    const std::string name = converterName(charset);
    if (name.empty()) return std::nullopt;
    text::Converter converter(name);
    if (!converter.known()) return std::nullopt;
    return converter.convert(bytes);
}

/// The charset in a "charset=…" of this text in lower case, "" if there is none.
std::string namedCharset(std::string_view text) {
    constexpr std::string_view word = "charset";
    for (auto at = text.find(word); at != std::string_view::npos; at = text.find(word, at)) {
        at = text.find_first_not_of(" \t\r\n", at + word.size());
        if (at == std::string_view::npos) break;
        if (text[at] != '=') continue;
        at = text.find_first_not_of(" \t\r\n\"'", at + 1);
        if (at == std::string_view::npos) break;
        return std::string(text.substr(at, text.find_first_of(" \t\r\n\"';/>", at) - at));
    }
    return {};
}

/// The charset that a page's own meta element names. A page whose head could be read is not in UTF-16.
std::string metaCharset(std::string_view bytes) {
    constexpr std::size_t head = 4096;
    const std::string start = basics::foldCase(bytes.substr(0, head));
    for (auto at = start.find("<meta"); at != std::string::npos; at = start.find("<meta", at + 1)) {
        const std::string charset =
            namedCharset(std::string_view(start).substr(at, start.find('>', at) - at));
        if (!charset.empty()) return charset.starts_with("utf-16") ? "utf-8" : charset;
    }
    return {};
}

std::string markedCharset(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) return "utf-8";
    if (bytes.starts_with("\xFF\xFE")) return "utf-16le";
    if (bytes.starts_with("\xFE\xFF")) return "utf-16be";
    return {};
}

}  // namespace

std::string decodeHtml(std::string_view bytes, std::string_view contentType) {
    std::string charset = markedCharset(bytes);
    if (charset.empty()) charset = charsetOf(contentType);
    if (charset.empty()) charset = metaCharset(bytes);
    if (charset.empty() && !basics::isUtf8(bytes)) charset = "cp949";
    return decodePage(bytes, "text/html; charset=" + charset);
}

std::string decodePage(std::string_view bytes, std::string_view contentType) {
    const std::string charset = charsetOf(contentType);
    std::optional<std::string> text;
    if (!isUtf8Name(charset)) text = converted(bytes, charset);
    // A character that is none stays one: dropped, it would join the digits of an amount.
    const std::string whole =
        basics::replaceAll(text ? std::string_view(*text) : bytes, std::string_view("\0", 1), "\uFFFD");
    std::string clean = basics::cleanUtf8(whole);
    constexpr std::string_view mark = "\uFEFF";
    if (clean.starts_with(mark)) clean.erase(0, mark.size());
    return clean;
}

}  // namespace zelvo::http
