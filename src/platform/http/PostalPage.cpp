#include "platform/http/PostalPage.h"

#include <algorithm>

#include "basics/Fault.h"
#include "basics/Text.h"

namespace zelvo::http {

namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// "06236", or "135-080" as codes once were.
bool isPostalCode(std::string_view text) {
    return std::any_of(text.begin(), text.end(), isDigit) &&
           std::all_of(text.begin(), text.end(),
                       [](char character) { return isDigit(character) || character == '-'; });
}

/// An address that could not be read whole must not be taken over.
bool isWhole(std::string_view address) {
    return !address.empty() && address.find("\uFFFD") == std::string_view::npos;
}

/// An address is one line: what else a page puts between its words is a blank.
std::string asLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char character) { return character >= 0 && character < ' '; }, ' ');
    return basics::trim(text);
}

}  // namespace

std::vector<PostalHit> findPostalCodes(const HttpClient& client, std::string_view page, std::string_view text,
                                       const std::stop_token& stop) {
    if (basics::isBlank(page))
        throw basics::Fault("우편번호 검색 페이지의 주소가 비어 있습니다. 한약국에 문의하여 주십시오.");
    std::string answer = client.get(withQuery(basics::trim(page), "find", text), stop);
    std::replace(answer.begin(), answer.end(), '\r', '\n');
    std::vector<PostalHit> hits;
    bool nonsense = false;
    for (const std::string& line : basics::split(answer, "\n")) {
        const auto tab = line.find('\t');
        const std::string zip = basics::trim(line.substr(0, tab));
        const std::string address = tab == std::string::npos ? std::string() : asLine(line.substr(tab + 1));
        if (isPostalCode(zip) && isWhole(address)) {
            hits.push_back({zip, address});
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
