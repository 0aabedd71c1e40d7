#pragma once

#include <functional>
#include <stop_token>
#include <string>

namespace zelvo::screen {

/// Something of the web as it came.
struct WebContent {
    std::string address;  ///< where it stood in the end, behind all redirects
    std::string type;     ///< "text/html" in lower case, "" when nobody says
    std::string body;     ///< a text as sound UTF-8, anything else as its bytes
};

/// Fetches an http or https address whole; blocks, on whatever thread. Throws Fault with one plain sentence
/// when it can't be had, when it passes a limit, and soon after `stop` asks for the end. The platform brings
/// it.
using WebFetch = std::function<WebContent(const std::string& address, const std::stop_token& stop)>;

}  // namespace zelvo::screen
