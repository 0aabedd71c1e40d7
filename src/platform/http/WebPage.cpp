#include "platform/http/WebPage.h"

#include "basics/Text.h"
#include "basics/Utf8.h"
#include "platform/http/Charset.h"

namespace zelvo::http {

namespace {

constexpr std::size_t largestPage = std::size_t{5} * 1024 * 1024;
constexpr int mostRedirects = 10;

/// Where no server says what it sends, bytes with a U+0000 among them are no text.
bool isText(const std::string& type, const std::string& bytes) {
    if (type.empty()) return bytes.find('\0') == std::string::npos;
    return type.starts_with("text/") || type == "application/xhtml+xml";
}

}  // namespace

HttpClient::Limits pageLimits() {
    HttpClient::Limits limits;
    limits.bytes = largestPage;
    limits.redirects = mostRedirects;
    return limits;
}

screen::WebContent fetchWebContent(const HttpClient& client, const std::string& address,
                                   const std::stop_token& stop) {
    Download page = client.download(address, stop);
    std::string type = basics::trim(basics::foldCase(page.contentType.substr(0, page.contentType.find(';'))));
    std::string body =
        isText(type, page.bytes) ? decodeHtml(page.bytes, page.contentType) : std::move(page.bytes);
    return {std::move(page.address), std::move(type), std::move(body)};
}

}  // namespace zelvo::http
