#include "platform/qt/MenuLetters.h"

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include "platform/qt/Shell.h"

namespace zelvo::qt {

MenuLetters::MenuLetters() {
    qApp->installEventFilter(this);
}

bool MenuLetters::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Polish) return false;
    auto* const menu = qobject_cast<QMenu*>(watched);
    if (!menu) return false;
    const QWidget* owner = menu->parentWidget();
    while (qobject_cast<const QMenu*>(owner)) owner = owner->parentWidget();
    if (owner && qobject_cast<const Shell*>(owner->window())) menu->setFont(owner->window()->font());
    return false;
}

}  // namespace zelvo::qt
