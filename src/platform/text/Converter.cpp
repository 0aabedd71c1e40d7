#include "platform/text/Converter.h"

#include <array>
#include <cerrno>
#include <string_view>

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

Converter::Converter(const std::string& charset)
    : handle_(iconv_open("UTF-8", charset.c_str())), pairs_(hasPairs(charset)) {}

Converter::~Converter() {
    if (known()) iconv_close(handle_);
}

std::string Converter::convert(std::string bytes) {
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    std::string text;
    char* in = bytes.data();
    std::size_t left = bytes.size();
    while (left > 0) {
        std::array<char, 4096> buffer;
        char* out = buffer.data();
        std::size_t room = buffer.size();
        const bool stuck = iconv(handle_, &in, &left, &out, &room) == static_cast<std::size_t>(-1);
        const int reason = errno;
        text.append(buffer.data(), out);
        if (!stuck || reason == E2BIG) continue;
        text += "\uFFFD";
        if (reason == EINVAL) break;  // the text ends within a character
        const std::size_t broken = brokenLength(in, left);
        in += broken;
        left -= broken;
    }
    return text;
}

std::size_t Converter::brokenLength(const char* bytes, std::size_t left) const {
    const auto isHigh = [](char byte) {
        const auto value = static_cast<unsigned char>(byte);
        return value > 0x80 && value < 0xFF;
    };
    return pairs_ && left > 1 && isHigh(bytes[0]) && isHigh(bytes[1]) ? 2 : 1;
}

}  // namespace zelvo::text
