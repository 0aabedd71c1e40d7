#include "basics/Utf8.h"

#include <cstdint>
#include <cstring>

namespace zelvo::basics {
namespace {

constexpr char32_t replacement = 0xFFFD;

struct Decoded {
    char32_t character = replacement;
    std::size_t length = 1;
    bool sound = false;
};

/// The lead byte's way: how many bytes follow, and the bounds of the first of them (which keep out overlong
/// forms, surrogates and what lies beyond U+10FFFF).
struct Lead {
    int following = -1;
    unsigned char low = 0x80, high = 0xBF;
};

Lead leadOf(unsigned char byte) {
    if (byte < 0x80) return {0};
    if (byte >= 0xC2 && byte <= 0xDF) return {1};
    if (byte == 0xE0) return {2, 0xA0, 0xBF};
    if (byte == 0xED) return {2, 0x80, 0x9F};
    if (byte >= 0xE1 && byte <= 0xEF) return {2};
    if (byte == 0xF0) return {3, 0x90, 0xBF};
    if (byte >= 0xF1 && byte <= 0xF3) return {3};
    if (byte == 0xF4) return {3, 0x80, 0x8F};
    return {};
}

/// The character at `offset`. A broken one counts as one character as long as its sound beginning.
Decoded decode(std::string_view text, std::size_t offset) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byteAt(offset);
    Lead lead = leadOf(first);
    if (lead.following < 0) return {};
    if (lead.following == 0) return {first, 1, true};
    auto character = static_cast<char32_t>(first & (0x3F >> lead.following));
    std::size_t length = 1;
    for (int i = 0; i < lead.following; ++i, ++length) {
        if (offset + length >= text.size()) return {replacement, length, false};
        const unsigned char next = byteAt(offset + length);
        if (next < lead.low || next > lead.high) return {replacement, length, false};
        character = (character << 6) | (next & 0x3F);
        lead.low = 0x80;
        lead.high = 0xBF;
    }
    return {character, length, true};
}

/// How many bytes from `offset` on are surely ASCII other than U+0000, in steps of eight.
std::size_t asciiRun(std::string_view text, std::size_t offset) {
    const std::size_t start = offset;
    for (; offset + 8 <= text.size(); offset += 8) {
        std::uint64_t block = 0;
        std::memcpy(&block, text.data() + offset, sizeof block);
        constexpr std::uint64_t ones = 0x0101010101010101U;
        constexpr std::uint64_t tops = 0x8080808080808080U;
        if (((block | (block - ones)) & tops) != 0) break;
    }
    return offset - start;
}

/// Byte length of the part of the text's beginning that needs no cleaning.
std::size_t soundLength(std::string_view text, bool nullAllowed) {
    std::size_t offset = 0;
    while (offset < text.size()) {
        offset += asciiRun(text, offset);
        if (offset >= text.size()) break;
        const Decoded decoded = decode(text, offset);
        if (!decoded.sound || (decoded.character == 0 && !nullAllowed)) return offset;
        offset += decoded.length;
    }
    return text.size();
}

}  // namespace

std::string cleanUtf8(std::string_view text) {
    const std::size_t sound = soundLength(text, false);
    std::string clean(text.substr(0, sound));
    std::size_t offset = sound;
    while (offset < text.size()) {
        const Decoded decoded = decode(text, offset);
        if (!decoded.sound) {
            clean += toUtf8(replacement);
        } else if (decoded.character != 0) {
            clean += text.substr(offset, decoded.length);
        }
        offset += decoded.length;
    }
    return clean;
}

bool isUtf8(std::string_view text) {
    return soundLength(text, true) == text.size();
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t offset = 0; offset < text.size(); ++count) offset += decode(text, offset).length;
    return count;
}

std::size_t byteOffset(std::string_view text, std::size_t index) {
    std::size_t offset = 0;
    for (; index > 0 && offset < text.size(); --index) offset += decode(text, offset).length;
    return offset;
}

std::string part(std::string_view text, std::size_t start, std::size_t count) {
    const std::string_view rest = text.substr(byteOffset(text, start));
    return std::string(rest.substr(0, byteOffset(rest, count)));
}

std::string toUtf8(char32_t character) {
    if (character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF)) character = replacement;
    if (character < 0x80) return {static_cast<char>(character)};
    const auto tail = [&](int shift) { return static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x800) return {static_cast<char>(0xC0 | (character >> 6)), tail(0)};
    if (character < 0x10000) return {static_cast<char>(0xE0 | (character >> 12)), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | (character >> 18)), tail(12), tail(6), tail(0)};
}

char32_t characterAt(std::string_view text, std::size_t offset) {
    return offset < text.size() ? decode(text, offset).character : replacement;
}

std::string foldCase(std::string_view text) {
    std::string folded(text);
    for (char& c : folded) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return folded;
}

}  // namespace zelvo::basics
