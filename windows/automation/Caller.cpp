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
    DWORD process = processOf(thread);
    DWORD owner = 0;
    const HWND front = ::GetForegroundWindow();
    const DWORD frontThread = front ? ::GetWindowThreadProcessId(front, &owner) : 0;
    if (frontThread != 0 && owner != ::GetCurrentProcessId() && (process == 0 || process == owner)) {
        window_ = ::GetAncestor(front, GA_ROOT);
        process = owner;
        ::EnumThreadWindows(frontThread, takeIfOpen, reinterpret_cast<LPARAM>(&open_));
    }
    if (process != 0 && process != ::GetCurrentProcessId()) {
        process_.reset(::OpenProcess(SYNCHRONIZE, FALSE, process));
    }
}

}  // namespace automation
