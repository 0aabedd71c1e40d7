#include "platform/qt/Toolkit.h"

#include <QtCore/QThread>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>
#include <array>
#include <memory>

#include "platform/qt/Display.h"
#include "platform/qt/Theme.h"

namespace zelvo::qt {

namespace {

/// The application of ours; its arguments live as long as the process does.
std::unique_ptr<QApplication>& ownApplication() {
    static std::unique_ptr<QApplication> application;
    return application;
}

std::unique_ptr<QApplication> makeApplication(const std::string& platform) {
    static char name[] = "DoctorZELVO", option[] = "-platform";
    static std::string value;
    static std::array<char*, 4> arguments;
    static int count;
    value = platform;
    arguments = {name, option, value.data(), nullptr};
    count = platform.empty() ? 1 : 3;
    auto application = std::make_unique<QApplication>(count, arguments.data());
    // Our windows come and go in the host's process, which ends when the host says so.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    return application;
}

}  // namespace

std::string Toolkit::enter() {
    if (const QCoreApplication* running = QCoreApplication::instance()) {
        if (!qobject_cast<const QApplication*>(running))
            return "The program runs without windows (it has a QCoreApplication only): ZELVO can't open its "
                   "window in it.";
        if (running->thread() != QThread::currentThread())
            return "ZELVO's window can be opened on the thread of the program's windows only.";
    } else {
        const Display display = findDisplay();
        if (!display.missing.empty()) return display.missing;
        ownApplication() = makeApplication(display.platform);
    }
    if (!koreanFontInstalled())
        return "No Korean font is installed on this computer, so ZELVO's texts could not be read. Install one "
               "(Debian: fonts-nanum) and call again.";
    return {};
}

bool Toolkit::leave() {
    auto& application = ownApplication();
    if (application && application->thread() == QThread::currentThread()) application.reset();
    return !application;
}

}  // namespace zelvo::qt
