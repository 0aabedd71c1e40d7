#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>

#include "basics/SupportRecord.h"
#include "platform/http/Form.h"

namespace zelvo::http {

/// What came from an address, byte for byte.
struct Download {
    std::string address;  ///< where it stood in the end, behind all redirects
    std::string contentType;
    std::string bytes;
};

/// Asks the pharmacy's web pages. One request a call, which blocks until the page is there whole. Whatever
/// goes wrong is a Fault with one plain sentence: no connection, a certificate that doesn't check, a status
/// other than 200, a limit.
class HttpClient {
public:
    struct Limits {
        std::chrono::milliseconds connect = std::chrono::seconds(10);
        /// For the whole request, redirects included.
        std::chrono::milliseconds total = std::chrono::seconds(60);
        std::size_t bytes = std::size_t{1024} * 1024;
        int redirects = 5;
        /// A file of certificate authorities to trust in place of the machine's.
        std::string authorities;
    };

    HttpClient() = default;
    explicit HttpClient(Limits limits, std::shared_ptr<basics::SupportRecord> support = nullptr)
        : limits_(std::move(limits)), support_(std::move(support)) {}

    // All of them end soon, in a Fault, when `stop` asks for it.

    /// Sends the fields as a form and gives the page's text as UTF-8.
    std::string post(std::string_view address, const FormFields& fields,
                     const std::stop_token& stop = {}) const;
    /// The page's text as UTF-8.
    std::string get(std::string_view address, const std::stop_token& stop = {}) const;
    /// What stands at the address, as it came.
    Download download(std::string_view address, const std::stop_token& stop = {}) const;

private:
    Download exchange(std::string_view address, const std::string* body, const std::stop_token& stop) const;

    Limits limits_;
    std::shared_ptr<basics::SupportRecord> support_;  ///< gets a line for each request that fails
};

}  // namespace zelvo::http
