#include "pharmacy/System.h"

#include <winsock2.h>

#include <windows.h>

#include <array>
#include <system_error>

#include "basics/Environment.h"
#include "basics/Paths.h"

namespace zelvo::pharmacy {
namespace {

HANDLE endAsked() {
    static const HANDLE event = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return event;
}

BOOL WINAPI onControl(DWORD /*kind*/) {
    ::SetEvent(endAsked());
    return TRUE;
}

}  // namespace

struct EndRequests::Insides {};

EndRequests::EndRequests() {
    ::SetConsoleCtrlHandler(onControl, TRUE);
}

EndRequests::~EndRequests() {
    ::SetConsoleCtrlHandler(onControl, FALSE);
}

void EndRequests::wait(std::int64_t parent, const std::function<bool()>& goesOn) const {
    constexpr DWORD look = 250;
    const HANDLE process =
        parent == 0 ? nullptr : ::OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(parent));
    if (parent != 0 && process == nullptr) return;
    const std::array<HANDLE, 2> ends{endAsked(), process};
    while (goesOn() && ::WaitForMultipleObjects(process ? 2 : 1, ends.data(), FALSE, look) == WAIT_TIMEOUT) {
    }
    if (process != nullptr) ::CloseHandle(process);
}

void keepPort(std::uintptr_t socket) {
    const BOOL yes = TRUE;
    ::setsockopt(static_cast<SOCKET>(socket), SOL_SOCKET, SO_EXCLUSIVEADDRUSE,
                 reinterpret_cast<const char*>(&yes), sizeof yes);
}

// It takes over the rights of its folder, which is the user's own where it is the usual one.
void makePrivateFile(const std::filesystem::path& path) {
    const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throw std::system_error(static_cast<int>(::GetLastError()), std::system_category());
    ::CloseHandle(file);
}

std::filesystem::path userDataFolder() {
    for (const char* const name : {"XDG_DATA_HOME", "LOCALAPPDATA"}) {
        const std::string value = basics::environment(name).value_or("");
        if (!value.empty()) return basics::pathOf(value);
    }
    return {};
}

std::int64_t processNumber() {
    return ::GetCurrentProcessId();
}

}  // namespace zelvo::pharmacy
