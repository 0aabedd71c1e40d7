#include "Caller.h"

namespace automation {

namespace {

DWORD processOf(DWORD thread) {
    const Handle opened(::OpenThread(THREAD_QUERY_LIMITED_INFORMATION, FALSE, thread));
    return opened ? ::GetProcessIdOfThread(opened.get()) : 0;
}

BOOL CALLBACK takeIfOpen(HWND window, LPARAM windows) {
    if (::IsWindowVisible(window) && ::IsWindowEnabled(window)) {
        reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    }
    return TRUE;
}

}  // namespace

Caller::Caller(DWORD thread) {
    DWORD process = processOf(thread), owner = 0;
    const HWND front = ::GetForegroundWindow();
    DWORD windows = front ? ::GetWindowThreadProcessId(front, &owner) : 0;
    const bool others =
        windows == 0 || owner == ::GetCurrentProcessId() || (process != 0 && process != owner);
    if (others) {
        windows = thread;
    } else {
        process = owner;
    }
    if (process == 0 || process == ::GetCurrentProcessId()) return;
    process_.reset(::OpenProcess(SYNCHRONIZE, FALSE, process));
    ::EnumThreadWindows(windows, takeIfOpen, reinterpret_cast<LPARAM>(&open_));
    // They are listed from the front to the back.
    window_ = !others ? ::GetAncestor(front, GA_ROOT) : open_.empty() ? nullptr : open_.front();
}

}  // namespace automation
