#include "Guard.h"

#include <cstdlib>

#include "platform/qt/HeldMark.h"

namespace automation {

namespace {

DWORD number(const std::string& word) {
    return std::strtoul(word.c_str(), nullptr, 10);
}

Handle startKeeper(DWORD thread) {
    std::wstring words = L"\"" + ownPath() + L"\" /guard " + std::to_wstring(::GetCurrentProcessId()) + L" " +
                         std::to_wstring(thread);
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

BOOL CALLBACK holdIfMarked(HWND window, LPARAM /*none*/) {
    if (::GetPropW(window, zelvo::qt::heldMark)) ::EnableWindow(window, FALSE);
    return TRUE;
}

}  // namespace

Guard::Guard(Charts& charts, const Caller& caller)
    : charts_(charts), thread_(caller.window() ? ::GetWindowThreadProcessId(caller.window(), nullptr) : 0) {
    if (thread_ != 0) keeper_ = startKeeper(thread_);
    charts_.watch(caller.process());
    charts_.setCalling(caller.process());
}

Guard::~Guard() {
    charts_.setCalling(0);
    // What a fault has left as it was.
    if (thread_ != 0) ::EnumThreadWindows(thread_, giveBackIfHeld, 0);
    if (keeper_) ::TerminateProcess(keeper_.get(), 0);
}

void Guard::holdAgain() const {
    if (thread_ != 0) ::EnumThreadWindows(thread_, holdIfMarked, 0);
}

int giveBackAfter(const std::string& program, const std::string& thread) {
    const Handle server(::OpenProcess(SYNCHRONIZE, FALSE, number(program)));
    if (server) ::WaitForSingleObject(server.get(), INFINITE);
    ::EnumThreadWindows(number(thread), giveBackIfHeld, 0);
    return 0;
}

}  // namespace automation
