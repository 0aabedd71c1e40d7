#include "platform/qt/Deaf.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QEvent>
#include <QtCore/QThread>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include "platform/qt/Composition.h"

namespace zelvo::qt {

namespace {

/// A window that the window manager keeps back is not waited for longer (milliseconds).
constexpr qint64 longestWait = 1000;
constexpr unsigned long slice = 2;

/// What the user begins: a release only ends what was begun before.
bool isBegun(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TabletPress:
        case QEvent::NativeGesture:
        case QEvent::DragEnter:
        case QEvent::Drop:
            return true;
        default:
            return false;
    }
}

/// What the user has done, as the system tells it; the rest is the program's own doing.
class DeafToUser : public Deaf {
    bool passes(QWidget&, QEvent& event) override {
        return !event.spontaneous() && event.type() != QEvent::InputMethod &&
               event.type() != QEvent::Shortcut;
    }
};

}  // namespace

Deaf::Deaf() : front_(QApplication::activeModalWidget()) {
    qApp->installEventFilter(this);
}

Deaf::~Deaf() {
    qApp->removeEventFilter(this);
    if (composed_) Composition::current().drop();
}

bool Deaf::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) return false;
    // Only the user closes a window by such an event.
    const bool closes = event->type() == QEvent::Close && event->spontaneous();
    if (!closes && !isBegun(event->type())) return false;
    if (QApplication::activeModalWidget() != front_) return false;
    if (passes(static_cast<QWidget&>(*watched), *event)) return false;
    composed_ = composed_ || event->type() == QEvent::InputMethod;
    if (closes) event->ignore();
    return true;
}

bool Deaf::passes(QWidget&, QEvent&) {
    return false;
}

void dropWhatCame() {
    const DeafToUser deaf;
    QGuiApplication::sync();
}

void dropWhatCameBefore(const QWidget& window) {
    const DeafToUser deaf;
    QElapsedTimer waited;
    waited.start();
    const QWindow* const handle = window.windowHandle();
    while (handle && window.isVisible() && !handle->isExposed() && waited.elapsed() < longestWait) {
        QCoreApplication::processEvents();
        QThread::msleep(slice);
    }
    QGuiApplication::sync();
}

}  // namespace zelvo::qt
