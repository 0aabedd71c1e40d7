#include "platform/qt/HostWindow.h"

#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace zelvo::qt {

// A host with windows of this toolkit is one application with us, so a modal window of ours holds its
// windows; those of another toolkit can't be reached from here on every kind of display.
struct HostWindow::Insides {};

HostWindow::HostWindow(std::uintptr_t /*named*/) {}

HostWindow::~HostWindow() = default;

void HostWindow::putUnder(QWidget& ours) {
    const QWidget* const host = QApplication::activeWindow();
    if (!host) return;
    static_cast<void>(ours.winId());  // makes the system's window
    ours.windowHandle()->setTransientParent(host->window()->windowHandle());
}

void HostWindow::bringForward(QWidget& /*ours*/) {}

void HostWindow::turnToHost() {}

}  // namespace zelvo::qt
