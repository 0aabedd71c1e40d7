#include "screen/RtfBytes.h"

#include <utility>

#include "basics/Utf8.h"
#include "screen/KnownPages.h"

namespace zelvo::screen {

namespace {

constexpr int japanese = 932;

bool hasPairs(int page) {
    const KnownPage* const known = knownPage(page);
    return known != nullptr && known->pairs;
}

bool isFirst(unsigned char byte, RtfEncoding encoding) {
    if (encoding.symbols || !hasPairs(encoding.page)) return false;
    if (encoding.western) return byte >= 0xA1 && byte <= 0xFE;
    if (encoding.page == japanese && byte >= 0xA0 && byte <= 0xDF) return false;
    return byte >= 0x81 && byte <= 0xFE;
}

bool isSecond(unsigned char byte, RtfEncoding encoding) {
    if (byte == 0xFF) return false;
    if (encoding.western) return byte >= 0xA1;
    const bool letter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    return byte > 0x80 || letter || (encoding.page != 949 && byte >= 0x40 && byte != 0x7F);
}

}  // namespace

int readablePage(int page) {
    return knownPage(page) != nullptr ? page : westernPage;
}

RtfEncoding encodingOf(int charset, int documentPage) {
    if (charset == 0 && hasPairs(documentPage)) return {documentPage, true, false};
    if (charset == 0) return {westernPage, false, false};
    if (charset == 2) return {westernPage, false, true};
    for (const KnownPage& known : knownPages) {
        if (known.charset == charset) return {known.number, false, false};
    }
    return {documentPage, false, false};
}

bool RtfBytes::isPair(unsigned char first, unsigned char second, RtfEncoding encoding) {
    return isFirst(first, encoding) && isSecond(second, encoding);
}

bool RtfBytes::wants(char character, RtfEncoding encoding) const {
    const auto byte = static_cast<unsigned char>(character);
    return first_ != 0 && byte < 0x80 && isSecond(byte, encoding);
}

void RtfBytes::add(unsigned char byte, RtfEncoding encoding) {
    if (encoding_.page != encoding.page) convert();
    encoding_ = encoding;
    const unsigned char first = std::exchange(first_, static_cast<unsigned char>(0));
    if (first != 0 && isSecond(byte, encoding)) {
        gathered_ += static_cast<char>(first);
        gathered_ += static_cast<char>(byte);
        return;
    }
    if (first != 0) addSingle(first, encoding);
    if (isFirst(byte, encoding)) {
        first_ = byte;
    } else {
        addSingle(byte, encoding);
    }
}

void RtfBytes::addSingle(unsigned char byte, RtfEncoding encoding) {
    if (byte < 0x80) {
        if (byte >= ' ' && byte != 0x7F) gathered_ += static_cast<char>(byte);
        return;
    }
    if (!encoding.symbols && !hasPairs(encoding.page)) {
        gathered_ += static_cast<char>(byte);
        return;
    }
    convert();
    if (encoding.symbols) {
        // Where the signs' fonts keep theirs; the round one is in every font.
        text_ += byte == 0xB7 ? "•" : basics::toUtf8(0xF000U + byte);
    } else {
        text_ += encoding.western ? converted({static_cast<char>(byte)}, westernPage) : "\uFFFD";
    }
}

void RtfBytes::convert() {
    if (gathered_.empty()) return;
    text_ += converted(gathered_, encoding_.page);
    gathered_.clear();
}

std::string RtfBytes::converted(const std::string& bytes, int page) const {
    if (page == utf8Page) return basics::cleanUtf8(bytes);
    if (pages_) return basics::cleanUtf8(pages_(bytes, page));
    std::string unread;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        unread += byte < 0x80 ? std::string(1, bytes[at]) : "\uFFFD";
        if (byte >= 0x80 && isFirst(byte, {page, false, false})) ++at;
    }
    return unread;
}

std::string RtfBytes::take() {
    if (first_ != 0) addSingle(std::exchange(first_, static_cast<unsigned char>(0)), encoding_);
    convert();
    return std::exchange(text_, {});
}

}  // namespace zelvo::screen
