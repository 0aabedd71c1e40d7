#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/http/HttpClient.h"

namespace zelvo::http {

struct PostalHit {
    std::string zip, address;
};

/// Asks the pharmacy's postal search page for the addresses that match a text, in the page's order; lines
/// that are no hit are passed over. Nothing found gives none. Throws Fault when the page can't be had, and
/// when it holds something else than hits. Ends soon, in a Fault, when `stop` asks for it.
std::vector<PostalHit> findPostalCodes(const HttpClient& client, std::string_view page, std::string_view text,
                                       const std::stop_token& stop = {});

}  // namespace zelvo::http
