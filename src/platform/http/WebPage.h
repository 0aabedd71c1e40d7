#pragma once

#include "platform/http/HttpClient.h"
#include "screen/WebFetch.h"

namespace zelvo::http {

/// What a page that is shown in a window, or one of its pictures, may be: 5 MiB, 10 redirects, 60 seconds.
HttpClient::Limits pageLimits();

/// What stands at the address; a text is read by the charset that its server, the page's own head or its
/// first bytes name. Throws Fault when it can't be had, and soon after `stop` asks for the end.
screen::WebContent fetchWebContent(const HttpClient& client, const std::string& address,
                                   const std::stop_token& stop);

}  // namespace zelvo::http
