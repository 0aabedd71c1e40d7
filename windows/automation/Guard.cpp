#include "Guard.h"

#include <cstdlib>
#include <sstream>

namespace automation {

namespace {

/// How long a chart that can't be reached any more may take to end.
constexpr DWORD lastBreath = 5'000;

void CALLBACK endWithChart(void* /*context*/, BOOLEAN /*timedOut*/) {
    ::TerminateProcess(::GetCurrentProcess(), 1);
}

Handle startKeeper(const std::vector<HWND>& windows) {
    std::wstring words = L"\"" + ownPath() + L"\" /guard " + std::to_wstring(::GetCurrentProcessId()) + L" ";
    for (const HWND window : windows) {
        words += std::to_wstring(reinterpret_cast<std::uintptr_t>(window)) + L",";
    }
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_FORCEOFFFEEDBACK;
    PROCESS_INFORMATION started{};
    if (!::CreateProcessW(nullptr, words.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                          &started)) {
        return nullptr;
    }
    ::CloseHandle(started.hThread);
    return Handle(started.hProcess);
}

}  // namespace

Guard::Guard(HANDLE chart, const std::vector<HWND>& windows) : chart_(chart) {
    if (chart)
        ::RegisterWaitForSingleObject(&wait_, chart, endWithChart, nullptr, INFINITE, WT_EXECUTEONLYONCE);
    if (!windows.empty()) keeper_ = startKeeper(windows);
}

Guard::~Guard() {
    if (wait_) ::UnregisterWaitEx(wait_, INVALID_HANDLE_VALUE);
    if (keeper_) ::TerminateProcess(keeper_.get(), 0);
}

void Guard::chartLost() const {
    if (chart_ && ::WaitForSingleObject(chart_, lastBreath) == WAIT_OBJECT_0) endWithChart(nullptr, FALSE);
}

int giveBackAfter(const std::string& program, const std::string& windows) {
    const Handle server(::OpenProcess(SYNCHRONIZE, FALSE, std::strtoul(program.c_str(), nullptr, 10)));
    if (server) ::WaitForSingleObject(server.get(), INFINITE);
    std::istringstream numbers(windows);
    for (std::string number; std::getline(numbers, number, ',');) {
        ::EnableWindow(
            reinterpret_cast<HWND>(static_cast<std::uintptr_t>(std::strtoull(number.c_str(), nullptr, 10))),
            TRUE);
    }
    return 0;
}

}  // namespace automation
