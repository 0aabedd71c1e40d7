#pragma once

#include <string>
#include <string_view>

namespace zelvo::http {

/// An address of a web page, http or https.
class WebAddress {
public:
    /// Reads an address, blanks around it dropped, blanks and Hangul in it percent-encoded. Throws Fault for
    /// an empty one, one with control characters, and one of another scheme.
    explicit WebAddress(std::string_view text);

    const std::string& text() const { return text_; }
    const std::string& host() const { return host_; }
    bool isSecure() const { return secure_; }

private:
    std::string text_, host_;
    bool secure_ = false;
};

}  // namespace zelvo::http
