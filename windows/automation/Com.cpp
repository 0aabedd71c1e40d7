#include "Com.h"

#include <cstring>

namespace automation {

Text::Text(const char* utf8) : text_(nullptr) {
    const int size = static_cast<int>(std::strlen(utf8));
    const int units = ::MultiByteToWideChar(CP_UTF8, 0, utf8, size, nullptr, 0);
    text_ = ::SysAllocStringLen(nullptr, static_cast<UINT>(units));
    if (!text_) throw std::bad_alloc();
    ::MultiByteToWideChar(CP_UTF8, 0, utf8, size, text_, units);
}

std::string utf8Of(BSTR text) {
    const int units = static_cast<int>(::SysStringLen(text));
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, text, units, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text, units, utf8.data(), size, nullptr, nullptr);
    std::erase(utf8, '\0');
    return utf8;
}

std::wstring ownPath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

}  // namespace automation
