#include "platform/text/CharsetTable.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "basics/Numbers.h"
#include "basics/Utf8.h"

namespace zelvo::text {
namespace {

constexpr UINT utf16 = 1200, utf16BigEndian = 1201;

/// A number that Windows' list of charsets has for a name; 0 for none.
UINT listed(const std::string& charset, const char* value) {
    const std::string key = "MIME\\Database\\Charset\\" + charset;
    DWORD number = 0;
    DWORD size = sizeof number;
    const LSTATUS status =
        ::RegGetValueA(HKEY_CLASSES_ROOT, key.c_str(), value, RRF_RT_REG_DWORD, nullptr, &number, &size);
    return status == ERROR_SUCCESS ? number : 0;
}

/// The charset that another name stands for; "" where it is no such name.
std::string aliased(const std::string& charset) {
    const std::string key = "MIME\\Database\\Charset\\" + charset;
    std::string name(64, '\0');
    auto size = static_cast<DWORD>(name.size());
    if (::RegGetValueA(HKEY_CLASSES_ROOT, key.c_str(), "AliasForCharset", RRF_RT_REG_SZ, nullptr, name.data(),
                       &size) != ERROR_SUCCESS)
        return {};
    name.resize(name.find('\0'));
    return name;
}

/// The code page of a charset; 0 where the machine has none.
UINT pageOf(const std::string& charset) {
    const std::string name = basics::foldCase(charset);
    if (name.empty() || name.find('\\') != std::string::npos) return 0;
    UINT page = 0;
    if (name == "utf-16le" || name == "utf-16") page = utf16;
    if (name == "utf-16be") page = utf16BigEndian;
    if (page != 0) return page;
    if (name.starts_with("cp")) page = static_cast<UINT>(basics::numberFromStart(name.substr(2)));
    if (page == 0) page = listed(name, "InternetEncoding");
    if (page == 0) page = listed(aliased(name), "InternetEncoding");
    return ::IsValidCodePage(page) ? page : 0;
}

std::string utf8Of(std::wstring_view wide) {
    if (wide.empty()) return {};
    const int count = static_cast<int>(wide.size());
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), count, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), count, text.data(), size, nullptr, nullptr);
    return text;
}

/// What Windows puts in the place of a byte that is no character: a control character beyond ASCII, or one of
/// its own; or in the Korean page's room for letters of one's own. Only the pages of nations' standards have
/// the former themselves.
bool standsForNothing(UINT page, wchar_t letter) {
    constexpr UINT firstStandard = 20000, korean = 949;
    if (page == korean && letter >= 0xE000 && letter <= 0xF8FF) return true;
    return page < firstStandard &&
           ((letter >= 0x80 && letter < 0xA0) || (letter >= 0xF8F0 && letter <= 0xF8FF));
}

/// The bytes through a code page; nothing where they are not all characters.
std::optional<std::string> through(UINT page, DWORD flags, std::string_view bytes) {
    const int count = static_cast<int>(bytes.size());
    const int size = ::MultiByteToWideChar(page, flags, bytes.data(), count, nullptr, 0);
    if (size <= 0) return std::nullopt;
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    ::MultiByteToWideChar(page, flags, bytes.data(), count, wide.data(), size);
    const auto nothing = [page](wchar_t letter) { return standsForNothing(page, letter); };
    if (flags != 0 && std::any_of(wide.begin(), wide.end(), nothing)) return std::nullopt;
    return utf8Of(wide);
}

/// Pages in which what stands before changes the meaning of a byte, and those of nations' own forms: Windows
/// takes no wish there to be told of what is no character.
bool isStateful(UINT page) {
    return (page >= 50220 && page <= 50229) || page == 65000 || page == 42 ||
           (page >= 57002 && page <= 57011);
}

}  // namespace

struct CharsetTable::Insides {
    UINT page;

    /// How many bytes the character at the start has by the look of it.
    std::size_t lengthAt(std::string_view bytes) const {
        if (page == 54936 || page == CP_UTF8) return 0;  // up to four: found out by trying
        return ::IsDBCSLeadByteEx(page, static_cast<BYTE>(bytes[0])) ? 2 : 1;
    }
    /// Whole characters by the look of them, some thousand at most; all where only trying tells.
    std::string_view frontOf(std::string_view bytes) const;
    Stop takeOne(std::string_view& bytes, std::string& text) const;
    Stop takeWide(std::string_view& bytes, std::string& text) const;
};

CharsetTable::CharsetTable(const std::string& charset)
    : insides_(std::make_unique<Insides>(Insides{pageOf(charset)})) {}

CharsetTable::~CharsetTable() = default;

bool CharsetTable::known() const {
    return insides_->page != 0;
}

std::string_view CharsetTable::Insides::frontOf(std::string_view bytes) const {
    constexpr std::size_t most = 4096;
    std::size_t end = 0;
    while (end < std::min(bytes.size(), most)) {
        const std::size_t length = lengthAt(bytes.substr(end));
        if (length == 0) return bytes;
        if (end + length > bytes.size()) break;
        end += length;
    }
    return bytes.substr(0, end);
}

CharsetTable::Stop CharsetTable::Insides::takeOne(std::string_view& bytes, std::string& text) const {
    const std::size_t looksLike = lengthAt(bytes);
    if (looksLike > bytes.size()) return Stop::WithinCharacter;
    const std::size_t least = looksLike == 0 ? 1 : looksLike;
    const std::size_t most = looksLike == 0 ? std::min<std::size_t>(4, bytes.size()) : looksLike;
    for (std::size_t length = least; length <= most; ++length) {
        const auto character = through(page, MB_ERR_INVALID_CHARS, bytes.substr(0, length));
        if (!character) continue;
        text += *character;
        bytes.remove_prefix(length);
        return Stop::End;
    }
    return Stop::Broken;
}

CharsetTable::Stop CharsetTable::Insides::takeWide(std::string_view& bytes, std::string& text) const {
    std::wstring wide;
    for (; bytes.size() > 1; bytes.remove_prefix(2)) {
        const auto first = static_cast<unsigned char>(bytes[0]);
        const auto second = static_cast<unsigned char>(bytes[1]);
        wide += static_cast<wchar_t>(page == utf16 ? first | (second << 8) : (first << 8) | second);
    }
    text += utf8Of(wide);
    return bytes.empty() ? Stop::End : Stop::WithinCharacter;
}

CharsetTable::Stop CharsetTable::take(std::string_view& bytes, std::string& text, bool /*first*/) {
    const UINT page = insides_->page;
    if (page == utf16 || page == utf16BigEndian) return insides_->takeWide(bytes, text);
    if (isStateful(page)) {
        text += through(page, 0, std::exchange(bytes, {})).value_or("");
        return Stop::End;
    }
    while (!bytes.empty()) {
        const std::string_view front = insides_->frontOf(bytes);
        if (const auto sound = through(page, MB_ERR_INVALID_CHARS, front)) {
            text += *sound;
            bytes.remove_prefix(front.size());
            continue;
        }
        // One by one, up to the one that is none.
        for (Stop stop = Stop::End; !bytes.empty();) {
            stop = insides_->takeOne(bytes, text);
            if (stop != Stop::End) return stop;
        }
    }
    return Stop::End;
}

}  // namespace zelvo::text
