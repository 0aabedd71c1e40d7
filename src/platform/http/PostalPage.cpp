#include "platform/http/PostalPage.h"

#include <algorithm>

#include "basics/Fault.h"
#include "basics/Text.h"

namespace zelvo::http {

namespace {

/// "06236", or "135-080" as codes once were.
bool isPostalCode(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char character) {
        return (character >= '0' && character <= '9') || character == '-';
    });
}

}  // namespace

std::vector<PostalHit> findPostalCodes(const HttpClient& client, std::string_view page,
                                       std::string_view text) {
    const std::string answer =
        basics::removeAll(client.get(withQuery(basics::trim(page), "find", text)), "\r");
    std::vector<PostalHit> hits;
    bool nonsense = false;
    for (const std::string& line : basics::split(answer, "\n")) {
        const auto tab = line.find('\t');
        const std::string zip = basics::trim(line.substr(0, tab));
        if (tab != std::string::npos && isPostalCode(zip)) {
            hits.push_back({zip, basics::trim(line.substr(tab + 1))});
        } else if (!basics::isBlank(line)) {
            nonsense = true;
        }
    }
    if (hits.empty() && nonsense) {
        throw basics::Fault("우편번호 검색 페이지의 응답을 읽을 수 없습니다. 한약국에 문의하여 주십시오.");
    }
    return hits;
}

}  // namespace zelvo::http
