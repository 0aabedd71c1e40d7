#include "platform/http/PostalPage.h"

#include "basics/Text.h"

namespace zelvo::http {

std::vector<PostalHit> findPostalCodes(const HttpClient& client, std::string_view page,
                                       std::string_view text) {
    const std::string answer =
        basics::removeAll(client.get(withQuery(basics::trim(page), "find", text)), "\r");
    std::vector<PostalHit> hits;
    for (const std::string& line : basics::split(answer, "\n")) {
        const auto tab = line.find('\t');
        if (tab == std::string::npos) continue;
        hits.push_back({basics::trim(line.substr(0, tab)), basics::trim(line.substr(tab + 1))});
    }
    return hits;
}

}  // namespace zelvo::http
