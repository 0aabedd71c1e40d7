#include "platform/qt/HostWindow.h"

#include <windows.h>

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
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

struct HostWindow::Insides : QAbstractNativeEventFilter {
    HWND window = nullptr;
    std::vector<HWND> held;
    HWND over = nullptr;  ///< ours that stands there now
    QPointer<QWidget> overWidget;

    Insides() { QCoreApplication::instance()->installNativeEventFilter(this); }

    /// With the host's window goes ours, by the system's hand: nobody sees it any more, so it is as if its
    /// user had closed it.
    bool nativeEventFilter(const QByteArray& /*kind*/, void* message, qintptr* /*result*/) override {
        const auto& told = *static_cast<const MSG*>(message);
        if (!over || told.hwnd != over || told.message != WM_DESTROY) return false;
        over = nullptr;
        if (overWidget) QMetaObject::invokeMethod(overWidget.data(), &QWidget::close, Qt::QueuedConnection);
        return false;
    }

    void hold() {
        if (!::IsWindow(window)) return;
        for (const HWND each : openBeside(window)) {
            held.push_back(each);
            ::EnableWindow(each, FALSE);
        }
    }
};

HostWindow::HostWindow(std::uintptr_t named) : insides_(std::make_unique<Insides>()) {
    HWND window = named == 0 ? ::GetActiveWindow() : reinterpret_cast<HWND>(named);
    if (window) window = ::GetAncestor(window, GA_ROOT);
    insides_->window = window;
    insides_->hold();
}

HostWindow::~HostWindow() {
    giveBack();
}

void HostWindow::putUnder(QWidget& ours) {
    insides_->hold();
    const auto own = reinterpret_cast<HWND>(ours.winId());
    // One that can be made small keeps its place in the task bar, where its user looks for it then.
    if ((::GetWindowLongPtrW(own, GWL_STYLE) & WS_MINIMIZEBOX) == 0) return;
    ::SetWindowLongPtrW(own, GWL_EXSTYLE, ::GetWindowLongPtrW(own, GWL_EXSTYLE) | WS_EX_APPWINDOW);
}

void HostWindow::bringForward(QWidget& ours) {
    if (!::IsWindow(insides_->window)) return;
    const auto own = reinterpret_cast<HWND>(ours.winId());
    // The system's own call: the toolkit knows windows of its own making alone, and takes any other owner
    // away from a window that it shows.
    ::SetWindowLongPtrW(own, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(insides_->window));
    // Two windows so joined share what is in front, so another process's window can follow the host's there.
    ::SetForegroundWindow(own);
    insides_->over = own;
    insides_->overWidget = &ours;
}

void HostWindow::giveBack() {
    insides_->over = nullptr;
    for (const HWND each : insides_->held) ::EnableWindow(each, TRUE);
    insides_->held.clear();
}

}  // namespace zelvo::qt
