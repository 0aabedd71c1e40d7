#include "platform/qt/Composition.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <memory>
#include <utility>

namespace zelvo::qt {

namespace {

/// An input method that ends a composition at Esc says so just before it hands the key on (milliseconds).
constexpr qint64 sameKey = 500;

}  // namespace

Composition& Composition::current() {
    QInputMethod* const method = QGuiApplication::inputMethod();
    if (auto* known = method->findChild<Composition*>()) return *known;
    std::unique_ptr<Composition> made(new Composition(method));  // the method's child from here on
    return *made.release();
}

Composition::Composition(QObject* method) : QObject(method) {
    qApp->installEventFilter(this);
}

bool Composition::eventFilter(QObject* watched, QEvent* event) {
    const bool clicks = event->type() == QEvent::MouseButtonPress && watched->isWindowType();
    if (clicks || event->type() == QEvent::FocusAboutToChange) end();
    return false;
}

void Composition::end() {
    if (!composing_) return;
    QGuiApplication::inputMethod()->commit();
    echoDue_ = !composing_;
}

void Composition::drop() {
    composing_ = nullptr;
    echoDue_ = true;
    QGuiApplication::inputMethod()->reset();
}

bool Composition::isEcho(QObject& target, const QInputMethodEvent& event) {
    const bool composes = !event.preeditString().isEmpty();
    if (composes) echoDue_ = false;
    if (composing_ && !composes) sinceEnd_.start();
    composing_ = composes ? &target : nullptr;
    return echoDue_ && !event.commitString().isEmpty();
}

bool Composition::takesKey(const QKeyEvent& event) {
    const bool justEnded = sinceEnd_.isValid() && sinceEnd_.elapsed() < sameKey;
    sinceEnd_.invalidate();
    echoDue_ = false;
    if (event.key() != Qt::Key_Escape || (!composing_ && !justEnded)) return false;
    end();
    return true;
}

}  // namespace zelvo::qt
