#include "platform/http/WebAddress.h"

#include <curl/curl.h>

#include <algorithm>
#include <memory>

#include "basics/Fault.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "platform/http/HostName.h"

namespace zelvo::http {
namespace {

using Parts = std::unique_ptr<CURLU, decltype(&curl_url_cleanup)>;

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

bool isWebScheme(std::string_view text) {
    const std::string start = basics::foldCase(text.substr(0, 8));
    return start.starts_with("http://") || start.starts_with("https://");
}

std::string partOf(const Parts& parts, CURLUPart part) {
    char* text = nullptr;
    if (curl_url_get(parts.get(), part, &text, 0) != CURLUE_OK) return {};
    const std::unique_ptr<char, decltype(&curl_free)> owner(text, &curl_free);
    return basics::cleanUtf8(text);
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

WebAddress::WebAddress(std::string_view text) {
    std::string trimmed = basics::pastedAddress(text);
    trimmed = basics::trim(trimmed.substr(0, trimmed.find('#')));  // no server is told of a place in its page
    if (trimmed.empty()) throw basics::Fault("웹페이지 주소가 비어 있습니다.");
    if (std::any_of(trimmed.begin(), trimmed.end(), isControl)) {
        throw basics::Fault("웹페이지 주소에 쓸 수 없는 문자가 들어 있습니다.");
    }
    if (!isWebScheme(trimmed)) throw basics::Fault("웹페이지 주소가 http나 https로 시작하지 않습니다.");
    const Parts parts(curl_url(), &curl_url_cleanup);
    if (!parts || curl_url_set(parts.get(), CURLUPART_URL, trimmed.c_str(), CURLU_URLENCODE) != CURLUE_OK) {
        throw basics::Fault("웹페이지 주소가 올바르지 않습니다.");
    }
    host_ = partOf(parts, CURLUPART_HOST);
    const std::string host = isAscii(host_) ? host_ : asciiHost(host_);
    if (host_.empty() || host.empty() ||
        (host != host_ && curl_url_set(parts.get(), CURLUPART_HOST, host.c_str(), 0) != CURLUE_OK))
        throw basics::Fault("웹페이지 주소가 올바르지 않습니다.");
    text_ = partOf(parts, CURLUPART_URL);
    secure_ = partOf(parts, CURLUPART_SCHEME) == "https";
}

}  // namespace zelvo::http
