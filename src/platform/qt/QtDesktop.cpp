#include "platform/qt/QtDesktop.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <memory>
#include <thread>
#include <utility>

#include "basics/Fault.h"
#include "platform/qt/BoxDialog.h"
#include "platform/qt/Deaf.h"
#include "platform/qt/Glass.h"
#include "platform/qt/Shell.h"
#include "platform/qt/Texts.h"
#include "screen/Window.h"

namespace zelvo::qt {

namespace {

constexpr double twipsPerInch = 1440;

/// The arrow over a box or a window that waits for the user, whatever the pointer is beneath it.
class PlainPointer {
public:
    explicit PlainPointer(screen::Desktop& desktop) : desktop_(desktop), former_(desktop.pointer()) {
        desktop_.setPointer(screen::Pointer::Normal);
    }
    ~PlainPointer() { desktop_.setPointer(former_); }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;

private:
    screen::Desktop& desktop_;
    screen::Pointer former_;
};

/// The shell in front, for as long as it is.
class InFront {
public:
    InFront(std::vector<Shell*>& shells, Shell& shell) : shells_(shells) { shells_.push_back(&shell); }
    ~InFront() { shells_.pop_back(); }
    InFront(const InFront&) = delete;
    InFront& operator=(const InFront&) = delete;

private:
    std::vector<Shell*>& shells_;
};

}  // namespace

QtDesktop::QtDesktop(screen::SettingsStore& settings, std::function<void(std::string_view)> browse,
                     std::uintptr_t hostWindow)
    : settings_(settings), browse_(std::move(browse)), host_(hostWindow) {}

QtDesktop::~QtDesktop() {
    QtDesktop::setPointer(screen::Pointer::Normal);
}

void QtDesktop::flush() {
    for (Shell* shell : shells_) shell->binder().flush();
}

screen::Answer QtDesktop::messageBox(const screen::MessageBox& box) {
    flush();
    const PlainPointer arrow(*this);
    BoxDialog dialog(box, top());
    if (!top()) {
        host_.putUnder(dialog);
        QObject::connect(&dialog, &BoxDialog::leaving, [this] { host_.turnToHost(); });
    }
    dialog.show();
    if (!top()) host_.bringForward(dialog);
    dropWhatCameBefore(dialog);
    if (dialog.isVisible()) dialog.exec();
    if (top()) top()->activateWindow();
    return dialog.answer();
}

void QtDesktop::setPointer(screen::Pointer pointer) {
    if (pointer == pointer_) return;
    pointer_ = pointer;
    if (pointer == screen::Pointer::Busy) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QGuiApplication::restoreOverrideCursor();
    }
}

void QtDesktop::processEvents(bool userInput) {
    flush();
    QCoreApplication::processEvents(userInput ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
}

void QtDesktop::waitForEvents(std::chrono::milliseconds atMost) {
    flush();
    QTimer wake;
    wake.setSingleShot(true);
    wake.start(atMost);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void QtDesktop::standOverHost(const Glass& glass) {
    if (top()) return;
    QObject::connect(&glass, &Glass::appearing, [this](QWidget* shown) { host_.putUnder(*shown); });
    QObject::connect(&glass, &Glass::appeared, [this](QWidget* shown) { host_.bringForward(*shown); });
    QObject::connect(&glass, &Glass::leaving, [this] { host_.turnToHost(); });
}

std::function<bool()> QtDesktop::beginWait(std::string_view what,
                                           std::chrono::steady_clock::time_point since) {
    flush();
    const std::shared_ptr<Glass> glass(std::make_unique<Glass>(qtText(what), top(), since).release(),
                                       [this](Glass* gone) {
                                           std::unique_ptr<Glass>(gone).reset();
                                           flush();
                                       });
    standOverHost(*glass);
    return [glass] {
        QCoreApplication::processEvents();
        return !glass->isGivenUp();
    };
}

void QtDesktop::waitFor(std::string_view what, const screen::WaitingJob& job) {
    flush();
    std::exception_ptr failure;
    {
        Glass glass(qtText(what), top(), std::chrono::steady_clock::now());
        standOverHost(glass);
        QEventLoop loop;
        std::jthread hand([&](const std::stop_token& stop) {
            try {
                job(stop);
            } catch (...) {
                failure = std::current_exception();
            }
            QMetaObject::invokeMethod(&loop, "quit", Qt::QueuedConnection);
        });
        QObject::connect(&glass, &Glass::givenUp, &loop, [&hand] { hand.request_stop(); });
        loop.exec();
        hand.join();
        if (glass.isGivenUp())
            failure = std::make_exception_ptr(basics::Fault("기다리지 않고 취소하였습니다."));
    }
    if (top()) top()->binder().flush();
    if (failure) std::rethrow_exception(failure);
}

double QtDesktop::screenWidth() const {
    const QScreen& screen = screenInFront();
    return screen.size().width() * twipsPerInch / screen.logicalDotsPerInchX();
}

double QtDesktop::screenHeight() const {
    const QScreen& screen = screenInFront();
    return screen.size().height() * twipsPerInch / screen.logicalDotsPerInchY();
}

void QtDesktop::runModal(screen::Window& window) {
    const PlainPointer arrow(*this);
    Shell shell(window, top());
    const bool isFirst = shells_.empty();
    if (isFirst) host_.putUnder(shell);
    QEventLoop loop;
    const auto whenTouched = window.onTouched.listen([&](const screen::Field* field) {
        if (!field && window.leaving()) loop.quit();
    });
    {
        const InFront front(shells_, shell);
        shell.open();
        if (isFirst) host_.bringForward(shell);
        window.appear();
        deliverKeys();
        if (!window.leaving()) loop.exec();
    }
    if (isFirst) host_.turnToHost();
    shell.putAway();
    if (top()) top()->activateWindow();
}

void QtDesktop::toClipboard(std::string_view text) {
    Desktop::toClipboard(text);
    QGuiApplication::clipboard()->setText(qtText(text));
}

bool QtDesktop::tellsFault(screen::Window& window, const std::exception& fault) {
    alarm(fault.what(), window.caption());
    return true;
}

}  // namespace zelvo::qt
