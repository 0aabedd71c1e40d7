#include "screen/RtfTokens.h"

#include <algorithm>

namespace zelvo::screen {

namespace {

bool isLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

int hexValue(char byte) {
    if (isDigit(byte)) return byte - '0';
    const char lower = static_cast<char>(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool isText(char byte) {
    return static_cast<unsigned char>(byte) >= ' ' && byte != '\\' && byte != '{' && byte != '}';
}

}  // namespace

RtfToken RtfTokens::next() {
    using Kind = RtfToken::Kind;
    while (at_ < rtf_.size()) {
        const std::size_t from = at_++;
        switch (rtf_[from]) {
            case '{':
                return {Kind::Open, rtf_.substr(from, 1)};
            case '}':
                return {Kind::Close, rtf_.substr(from, 1)};
            case '\\':
                return control();
            case '\t':
                return {Kind::Word, "tab"};
            default:
                if (!isText(rtf_[from])) break;
                while (at_ < rtf_.size() && isText(rtf_[at_])) ++at_;
                return {Kind::Text, rtf_.substr(from, at_ - from)};
        }
    }
    return {};
}

RtfToken RtfTokens::control() {
    if (at_ >= rtf_.size()) return {};
    if (isLetter(rtf_[at_])) return word();
    ++at_;
    if (rtf_[at_ - 1] == '\'') return byte();
    return {RtfToken::Kind::Symbol, rtf_.substr(at_ - 1, 1)};
}

RtfToken RtfTokens::byte() {
    if (rtf_.size() - at_ < 2) {
        at_ = rtf_.size();
        return {};
    }
    const int high = hexValue(rtf_[at_]), low = hexValue(rtf_[at_ + 1]);
    if (high < 0 || low < 0) return {RtfToken::Kind::Symbol, rtf_.substr(at_ - 1, 1)};
    at_ += 2;
    return {RtfToken::Kind::Byte, rtf_.substr(at_ - 2, 2), true, high * 16 + low};
}

RtfToken RtfTokens::word() {
    const std::size_t from = at_;
    while (at_ < rtf_.size() && isLetter(rtf_[at_])) ++at_;
    RtfToken token{RtfToken::Kind::Word, rtf_.substr(from, at_ - from)};
    const bool negative = at_ + 1 < rtf_.size() && rtf_[at_] == '-' && isDigit(rtf_[at_ + 1]);
    if (negative) ++at_;
    token.numbered = at_ < rtf_.size() && isDigit(rtf_[at_]);
    std::int64_t number = 0;
    for (; at_ < rtf_.size() && isDigit(rtf_[at_]); ++at_) {
        number = std::min<std::int64_t>(number * 10 + (rtf_[at_] - '0'), INT32_MAX);
    }
    token.number = static_cast<std::int32_t>(negative ? -number : number);
    // No whole document ends with a word: this one is cut, and may have been another.
    if (at_ >= rtf_.size()) return {};
    if (rtf_[at_] == ' ') ++at_;
    if (token.text == "bin" && token.number > 0) {
        at_ += std::min(rtf_.size() - at_, static_cast<std::size_t>(token.number));
    }
    return token;
}

}  // namespace zelvo::screen
