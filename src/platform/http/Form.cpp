#include "platform/http/Form.h"

#include "basics/Utf8.h"

namespace zelvo::http {

std::string percentEncoded(std::string_view text) {
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
    constexpr std::string_view hex = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : basics::cleanUtf8(text)) {
        if (plain.find(c) != std::string_view::npos) {
            encoded += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        encoded += '%';
        encoded += hex[byte >> 4U];
        encoded += hex[byte & 0x0FU];
    }
    return encoded;
}

std::string formBody(const FormFields& fields) {
    std::string body;
    for (const auto& [name, value] : fields) {
        if (!body.empty()) body += '&';
        body.append(name).append("=").append(percentEncoded(value));
    }
    return body;
}

std::string withQuery(std::string_view address, std::string_view name, std::string_view value) {
    const auto hash = address.find('#');
    std::string whole(address.substr(0, hash));
    if (whole.find('?') == std::string::npos) {
        whole += '?';
    } else if (whole.back() != '?' && whole.back() != '&') {
        whole += '&';
    }
    whole.append(name).append("=").append(percentEncoded(value));
    if (hash != std::string_view::npos) whole.append(address.substr(hash));
    return whole;
}

}  // namespace zelvo::http
