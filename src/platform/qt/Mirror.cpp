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
    if (hint) hint->setVisible(!field_.visible());
    widget_.setEnabled(field_.enabled());
    widget_.setToolTip(tip());
    // A label says what it shows.
    if (!field_.label().empty() && field_.kind() != screen::FieldKind::Label)
        widget_.setAccessibleName(qtText(field_.label()));
    draw();
    drawing_ = nested;
}

/// The field's tip and the keys that serve it, in their own words where the tip does not say what they do.
QString Mirror::tip() const {
    QStringList lines;
    for (const screen::Shortcut& one : field_.window().shortcuts()) {
        if (one.serves != &field_) continue;
        const std::string& says = field_.tipText().empty() ? one.what : field_.tipText();
        lines += QStringLiteral("%1 [%2]").arg(qtText(says), qtText(one.keys));
    }
    return lines.isEmpty() ? qtText(field_.tipText()) : lines.join(QLatin1Char('\n'));
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
