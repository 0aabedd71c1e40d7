#include "platform/qt/HostWindow.h"

#include <windows.h>

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>
#include <utility>
#include <vector>

#include "platform/qt/HeldMark.h"

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

/// What has the keys of that window, a field of it for one; nullptr where nothing of it has.
HWND withKeysIn(HWND window) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    if (!::GetGUIThreadInfo(::GetWindowThreadProcessId(window, nullptr), &state)) return nullptr;
    return ::GetAncestor(state.hwndFocus, GA_ROOT) == window ? state.hwndFocus : nullptr;
}

}  // namespace

struct HostWindow::Insides : QAbstractNativeEventFilter {
    HWND window = nullptr;
    HWND withKeys = nullptr;  ///< what had its keys before ours came
    std::vector<HWND> held;
    HWND over = nullptr;  ///< ours that stands there now
    QPointer<QWidget> overWidget;

    explicit Insides(HWND host) : window(host), withKeys(host ? withKeysIn(host) : nullptr) {
        QCoreApplication::instance()->installNativeEventFilter(this);
        hold();
    }

    /// With the host's window goes ours, by the system's hand: nobody sees it any more, so it is as if its
    /// user had closed it.
    bool nativeEventFilter(const QByteArray& /*kind*/, void* message, qintptr* /*result*/) override {
        const auto& told = *static_cast<const MSG*>(message);
        if (!over || told.hwnd != over || told.message != WM_DESTROY) return false;
        over = nullptr;
        if (overWidget) QMetaObject::invokeMethod(overWidget.data(), "close", Qt::QueuedConnection);
        return false;
    }

    void hold() {
        if (!::IsWindow(window)) return;
        for (const HWND each : openBeside(window)) {
            held.push_back(each);
            ::SetPropW(each, heldMark, reinterpret_cast<HANDLE>(std::uintptr_t{::GetCurrentProcessId()}));
            ::EnableWindow(each, FALSE);
        }
    }

    void release() {
        for (const HWND each : held) {
            ::RemovePropW(each, heldMark);
            ::EnableWindow(each, TRUE);
        }
        held.clear();
    }

    /// A held window has lost its keys, and most hosts never give them to anything in it by themselves.
    void giveKeysBack() const {
        if (!::IsWindow(withKeys) || ::GetForegroundWindow() != window) return;
        const DWORD own = ::GetCurrentThreadId();
        const DWORD host = ::GetWindowThreadProcessId(withKeys, nullptr);
        const bool joined = own != host && ::AttachThreadInput(own, host, TRUE);
        ::SetFocus(withKeys);
        if (joined) ::AttachThreadInput(own, host, FALSE);
    }
};

HostWindow::HostWindow(std::uintptr_t named) {
    const HWND window = named == 0 ? ::GetActiveWindow() : reinterpret_cast<HWND>(named);
    insides_ = std::make_unique<Insides>(window ? ::GetAncestor(window, GA_ROOT) : nullptr);
}

HostWindow::~HostWindow() {
    insides_->release();
    insides_->giveKeysBack();
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

void HostWindow::turnToHost() {
    const HWND leaving = std::exchange(insides_->over, nullptr);
    if (!leaving || ::GetForegroundWindow() != leaving || !::IsWindow(insides_->window)) return;
    // One that is held can't come to the front; ours takes its time to leave, so the user would type into it.
    insides_->release();
    ::SetForegroundWindow(insides_->window);
    insides_->hold();
}

}  // namespace zelvo::qt
