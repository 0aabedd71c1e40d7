#include "platform/files/PrivateAccess_windows.h"

#include <sddl.h>

#include <array>
#include <new>
#include <string>

namespace zelvo::files {
namespace {

/// This user's number as Windows writes it; "" when it can't be had.
std::wstring userNumber() {
    HANDLE token = nullptr;
    if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &token)) return {};
    alignas(TOKEN_USER) std::array<char, 512> room{};
    DWORD size = 0;
    const BOOL known =
        ::GetTokenInformation(token, TokenUser, room.data(), static_cast<DWORD>(room.size()), &size);
    ::CloseHandle(token);
    LPWSTR text = nullptr;
    if (!known || !::ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(room.data())->User.Sid, &text))
        return {};
    std::wstring number = text;
    ::LocalFree(text);
    return number;
}

}  // namespace

PrivateAccess::PrivateAccess() {
    // Who can't be found out is meant as the owner of what is made.
    constexpr auto owner = L"S-1-3-4";
    const std::wstring user = userNumber();
    // All rights to him, handed down to what comes to stand within; P: none are handed down from above.
    const std::wstring rights = L"D:P(A;OICI;FA;;;" + (user.empty() ? owner : user) + L")";
    // Nothing but memory can be wanting; without rights of its own nothing is made.
    if (!::ConvertStringSecurityDescriptorToSecurityDescriptorW(rights.c_str(), SDDL_REVISION_1,
                                                                &attributes_.lpSecurityDescriptor, nullptr)) {
        throw std::bad_alloc();
    }
}

PrivateAccess::~PrivateAccess() {
    ::LocalFree(attributes_.lpSecurityDescriptor);
}

}  // namespace zelvo::files
