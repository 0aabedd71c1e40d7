#include "support/Machine.h"

#include <windows.h>

#include <aclapi.h>

#include <array>
#include <cstdlib>

namespace zelvo::testing {

void liveIn(const std::filesystem::path& home) {
    ::_wputenv_s(L"XDG_DATA_HOME", (home / ".local" / "share").c_str());
    ::_wputenv_s(L"XDG_CONFIG_HOME", (home / ".config").c_str());
}

std::filesystem::path scratchFolder() {
    return std::filesystem::temp_directory_path();
}

bool isPrivate(const std::filesystem::path& path) {
    HANDLE token = nullptr;
    alignas(TOKEN_USER) std::array<char, 512> user{};
    DWORD size = 0;
    ::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &token);
    ::GetTokenInformation(token, TokenUser, user.data(), user.size(), &size);
    ::CloseHandle(token);
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR whole = nullptr;
    ::GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list,
                            nullptr, &whole);
    bool others = list == nullptr;
    for (DWORD i = 0; list != nullptr && i < list->AceCount; ++i) {
        void* entry = nullptr;
        ::GetAce(list, i, &entry);
        auto& allowed = *static_cast<ACCESS_ALLOWED_ACE*>(entry);
        // The system itself may do what it likes anyway.
        if (::IsWellKnownSid(&allowed.SidStart, WinLocalSystemSid)) continue;
        others =
            others || (allowed.Header.AceType == ACCESS_ALLOWED_ACE_TYPE && allowed.Mask != 0 &&
                       !::EqualSid(&allowed.SidStart, reinterpret_cast<TOKEN_USER*>(user.data())->User.Sid));
    }
    ::LocalFree(whole);
    return !others;
}

}  // namespace zelvo::testing
