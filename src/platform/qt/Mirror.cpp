#include "platform/qt/Mirror.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QWidget>
#include <utility>

#include "platform/qt/Texts.h"
#include "screen/Window.h"

namespace zelvo::qt {

Mirror::Mirror(screen::Field& field, QWidget& widget) : field_(field), widget_(widget) {}

void Mirror::show() {
    const bool nested = std::exchange(drawing_, true);
    widget_.setVisible(field_.visible());
    for (QWidget* word : words) word->setVisible(field_.visible());
    widget_.setEnabled(field_.enabled());
    widget_.setToolTip(qtText(field_.tipText()));
    if (!field_.label().empty()) widget_.setAccessibleName(qtText(field_.label()));
    draw();
    drawing_ = nested;
}

void Mirror::userDoes(const std::function<void()>& act) {
    if (drawing_) return;
    act();
    field_.window().desktop().deliverKeys();
}

bool Mirror::ownKey(const QKeyEvent&) const {
    return false;
}

bool Mirror::specialKey(const QKeyEvent&) {
    return false;
}

bool Mirror::filter(QWidget&, QEvent&) {
    return false;
}

}  // namespace zelvo::qt
