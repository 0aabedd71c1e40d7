#include "platform/qt/Toolkit.h"

#include <QtCore/QThread>
#include <QtCore/QTranslator>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>
#include <array>
#include <clocale>
#include <memory>
#include <string>

#include "platform/qt/Display.h"
#include "platform/qt/Owned.h"
#include "platform/qt/Theme.h"

namespace zelvo::qt {

namespace {

/// The application of ours. Only `leave` ends it: when a process ends without that, the toolkit's own state
/// goes first, and an application that went after it would fall.
std::unique_ptr<QApplication>& ownApplication() {
    static auto& application = owned<std::unique_ptr<QApplication>>();
    return application;
}

/// The toolkit takes over the user's locale. The host's stays as it was: its numbers, its dates, its texts.
class HostLocale {
public:
    HostLocale() = default;
    ~HostLocale() { std::setlocale(LC_ALL, before_.c_str()); }
    HostLocale(const HostLocale&) = delete;
    HostLocale& operator=(const HostLocale&) = delete;

private:
    std::string before_ = std::setlocale(LC_ALL, nullptr);
};

/// An object of the thread that the first application of ours was made on, nullptr before that. The toolkit
/// takes that thread for the process's own for good. Where it ends before the process does, its record is
/// given back once too often, and the parts of the toolkit that last as long as the process would speak to
/// what is gone: an object that stays holds the record.
const QObject*& threadHolder() {
    static const QObject* holder = nullptr;
    return holder;
}

/// The toolkit's own words, in the menus of fields and the dialogs of printer and file, where its Korean is
/// installed.
void speakKorean(QApplication& application) {
    auto& words = owned<QTranslator>(&application);
    if (words.load(QStringLiteral("qtbase_ko"), translationsFolder()))
        QCoreApplication::installTranslator(&words);
}

std::unique_ptr<QApplication> makeApplication(const std::string& platform) {
    static char name[] = "DoctorZELVO", option[] = "-platform";
    static std::string value;
    static std::array<char*, 4> arguments;
    static int count;
    value = platform;
    arguments = {name, option, value.data(), nullptr};
    count = platform.empty() ? 1 : 3;
    const HostLocale host;
    stayLoaded();
    if (!threadHolder()) threadHolder() = &owned<QObject>();
    auto application = std::make_unique<QApplication>(count, arguments.data());
    // Our windows come and go in the host's process, which ends when the host says so.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    speakKorean(*application);
    return application;
}

}  // namespace

std::string Toolkit::enter() {
    if (const QCoreApplication* running = QCoreApplication::instance()) {
        if (!qobject_cast<const QApplication*>(running)) {
            return "The program runs without windows (it has a QCoreApplication only): ZELVO can't open its "
                   "window in it.";
        }
        if (running->thread() != QThread::currentThread())
            return "ZELVO's window can be opened on the thread of the program's windows only.";
    } else if (threadHolder() && threadHolder()->thread() != QThread::currentThread()) {
        return "ZELVO's window can be opened on the thread of the first call only.";
    } else if (mainLoopRunsElsewhere()) {
        return "ZELVO's window can be opened on the thread of the program's main loop only.";
    } else {
        const Display display = findDisplay();
        if (!display.missing.empty()) return display.missing;
        ownApplication() = makeApplication(display.platform);
    }
    if (!koreanFontInstalled()) {
        return "No Korean font is installed on this computer, so ZELVO's texts could not be read. Install one (" +
               koreanFontToInstall() + ") and call again.";
    }
    return {};
}

bool Toolkit::leave() {
    auto& application = ownApplication();
    if (application && application->thread() == QThread::currentThread()) application.reset();
    return !application;
}

}  // namespace zelvo::qt
