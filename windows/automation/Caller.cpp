#include "Caller.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <vector>

#include "Com.h"
#include "platform/qt/HeldMark.h"

namespace automation {

namespace {

BOOL CALLBACK takeIfOpen(HWND window, LPARAM windows) {
    if (::IsWindowVisible(window) && ::IsWindowEnabled(window)) {
        reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    }
    return TRUE;
}

/// A window that is looked for among those of one program.
struct Held {
    DWORD program;
    bool found = false;
};

BOOL CALLBACK lookForMark(HWND window, LPARAM held) {
    Held& looked = *reinterpret_cast<Held*>(held);
    DWORD owner = 0;
    ::GetWindowThreadProcessId(window, &owner);
    if (owner != looked.program) return TRUE;
    const auto holder = reinterpret_cast<std::uintptr_t>(::GetPropW(window, zelvo::qt::heldMark));
    const Handle opened(::OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(holder)));
    looked.found = opened && ::WaitForSingleObject(opened.get(), 0) == WAIT_TIMEOUT;
    return looked.found ? FALSE : TRUE;
}

/// Whether what has the keys is something in that window: a splash has nothing that takes any.
bool takesKeys(HWND window) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    return ::GetGUIThreadInfo(::GetWindowThreadProcessId(window, nullptr), &state) &&
           state.hwndFocus != window && ::GetAncestor(state.hwndFocus, GA_ROOT) == window;
}

/// What a user takes for a window of the program: no splash, no palette, and none of no size, as some
/// languages' programs keep one.
bool isWhole(HWND window) {
    RECT place{};
    return (::GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) == 0 &&
           ::GetWindowRect(window, &place) && !::IsRectEmpty(&place) &&
           ((::GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION || takesKeys(window));
}

/// Whether that program is this one, or this one again for another chart.
bool isOurs(DWORD program) {
    const Handle opened(::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, program));
    std::array<wchar_t, 1024> path{};
    auto length = static_cast<DWORD>(path.size());
    if (!opened || !::QueryFullProcessImageNameW(opened.get(), 0, path.data(), &length)) return false;
    std::error_code missing;
    return std::filesystem::equivalent(path.data(), ownPath(), missing);
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
    const bool isInFront = frontThread != 0 && !isOurs(owner) && (process_ == 0 || process_ == owner);
    if (process_ == 0 && isInFront) process_ = owner;
    if (process_ == 0 || process_ == ::GetCurrentProcessId()) return;
    Held marked{process_};
    ::EnumWindows(lookForMark, reinterpret_cast<LPARAM>(&marked));
    held_ = marked.found;
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
