#include "Caller.h"

#include <algorithm>
#include <vector>

#include "Com.h"

namespace automation {

namespace {

BOOL CALLBACK takeIfOpen(HWND window, LPARAM windows) {
    if (::IsWindowVisible(window) && ::IsWindowEnabled(window)) {
        reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    }
    return TRUE;
}

/// What a user takes for a window of the program: no splash, no palette.
bool isWhole(HWND window) {
    return (::GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) == 0 &&
           (::GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
}

}  // namespace

Caller::Caller(DWORD thread) {
    ::SetLastError(ERROR_SUCCESS);
    process_ = processOf(thread);
    // Nobody says then that the window in front is the chart's.
    if (process_ == 0 && ::GetLastError() == ERROR_ACCESS_DENIED) return;
    DWORD owner = 0;
    const HWND front = ::GetForegroundWindow();
    const DWORD frontThread = front ? ::GetWindowThreadProcessId(front, &owner) : 0;
    const bool isInFront =
        frontThread != 0 && owner != ::GetCurrentProcessId() && (process_ == 0 || process_ == owner);
    if (process_ == 0 && isInFront) process_ = owner;
    if (process_ == 0 || process_ == ::GetCurrentProcessId()) return;
    // They are listed from the front to the back.
    std::vector<HWND> open;
    if (isInFront) open.push_back(::GetAncestor(front, GA_ROOT));
    ::EnumThreadWindows(isInFront ? frontThread : thread, takeIfOpen, reinterpret_cast<LPARAM>(&open));
    const auto whole = std::ranges::find_if(open, isWhole);
    if (!open.empty()) window_ = whole != open.end() ? *whole : open.front();
}

DWORD Caller::processOf(DWORD thread) {
    const Handle opened(::OpenThread(THREAD_QUERY_LIMITED_INFORMATION, FALSE, thread));
    return opened ? ::GetProcessIdOfThread(opened.get()) : 0;
}

}  // namespace automation
