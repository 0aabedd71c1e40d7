#include <idn2.h>

#include <memory>

#include "platform/http/HostName.h"

namespace zelvo::http {

std::string asciiHost(const std::string& host) {
    char* ascii = nullptr;
    if (idn2_to_ascii_8z(host.c_str(), &ascii, IDN2_NFC_INPUT | IDN2_NONTRANSITIONAL) != IDN2_OK) return {};
    const std::unique_ptr<char, decltype(&idn2_free)> owner(ascii, &idn2_free);
    return ascii;
}

}  // namespace zelvo::http
