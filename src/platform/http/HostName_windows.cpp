#include "platform/http/HostName.h"

#include <windows.h>

#include <array>

#include "basics/Paths.h"

namespace zelvo::http {

std::string asciiHost(const std::string& host) {
    constexpr int longest = 255;
    std::array<wchar_t, longest> ascii{};
    const std::wstring wide = basics::pathOf(host).native();
    const int length = ::IdnToAscii(0, wide.c_str(), static_cast<int>(wide.size()), ascii.data(), longest);
    return basics::textOf(std::wstring(ascii.data(), static_cast<std::size_t>(length)));
}

}  // namespace zelvo::http
