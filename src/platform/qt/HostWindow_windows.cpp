#include "platform/qt/HostWindow.h"

#include <windows.h>

#include <QtGui/QWindow>
#include <QtWidgets/QWidget>
#include <vector>

namespace zelvo::qt {

namespace {

BOOL CALLBACK takeIfOpen(HWND window, LPARAM windows) {
    if (::IsWindowVisible(window) && ::IsWindowEnabled(window))
        reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

/// The windows that the user could turn to while ours is open: all of the host's that stand on the thread of
/// `window`.
std::vector<HWND> openBeside(HWND window) {
    std::vector<HWND> windows;
    ::EnumThreadWindows(::GetWindowThreadProcessId(window, nullptr), takeIfOpen,
                        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

}  // namespace

struct HostWindow::Insides {
    HWND window = nullptr;
    std::vector<HWND> held;
};

HostWindow::HostWindow(std::uintptr_t named) : insides_(std::make_unique<Insides>()) {
    HWND window = named == 0 ? ::GetActiveWindow() : reinterpret_cast<HWND>(named);
    if (window) window = ::GetAncestor(window, GA_ROOT);
    insides_->window = window;
}

HostWindow::~HostWindow() {
    giveBack();
}

void HostWindow::putUnder(QWidget& ours) {
    if (!::IsWindow(insides_->window)) return;
    insides_->held = openBeside(insides_->window);
    for (const HWND each : insides_->held) ::EnableWindow(each, FALSE);
    const auto own = reinterpret_cast<HWND>(ours.winId());
    // The system's own call: the toolkit knows windows of its own making alone.
    ::SetWindowLongPtrW(own, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(insides_->window));
}

void HostWindow::giveBack() {
    for (const HWND each : insides_->held) ::EnableWindow(each, TRUE);
    insides_->held.clear();
}

}  // namespace zelvo::qt
