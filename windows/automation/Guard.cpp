#include "Guard.h"

#include <cstdlib>

#include "platform/qt/HostWindow.h"

namespace automation {

namespace {

DWORD number(const std::string& word) {
    return std::strtoul(word.c_str(), nullptr, 10);
}

Handle startKeeper(HWND window) {
    std::wstring words = L"\"" + ownPath() + L"\" /guard " + std::to_wstring(::GetCurrentProcessId()) + L" " +
                         std::to_wstring(::GetWindowThreadProcessId(window, nullptr));
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

BOOL CALLBACK giveBackIfHeld(HWND window, LPARAM /*none*/) {
    if (::RemovePropW(window, zelvo::qt::heldMark)) ::EnableWindow(window, TRUE);
    return TRUE;
}

}  // namespace

Guard::Guard(Charts& charts, const Caller& caller) : charts_(charts) {
    if (caller.window()) keeper_ = startKeeper(caller.window());
    charts_.watch(caller.process());
    charts_.setCalling(caller.process());
}

Guard::~Guard() {
    charts_.setCalling(0);
    if (keeper_) ::TerminateProcess(keeper_.get(), 0);
}

int giveBackAfter(const std::string& program, const std::string& thread) {
    const Handle server(::OpenProcess(SYNCHRONIZE, FALSE, number(program)));
    if (server) ::WaitForSingleObject(server.get(), INFINITE);
    ::EnumThreadWindows(number(thread), giveBackIfHeld, 0);
    return 0;
}

}  // namespace automation
