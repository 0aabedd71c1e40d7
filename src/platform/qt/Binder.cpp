#include "platform/qt/Binder.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QKeySequence>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QWidget>
#include <algorithm>
#include <utility>

#include "basics/Fault.h"
#include "platform/qt/Composition.h"
#include "platform/qt/Deaf.h"
#include "platform/qt/GridView.h"
#include "platform/qt/Keys.h"
#include "platform/qt/Mirrors.h"
#include "platform/qt/Owned.h"
#include "platform/qt/TextMirror.h"
#include "platform/qt/Texts.h"
#include "platform/qt/Twips.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "screen/TextField.h"
#include "screen/Window.h"

namespace zelvo::qt {

namespace {

/// Drawing comes before all else that has been posted.
const QEvent::Type drawEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

bool isText(const screen::Field& field) {
    return field.kind() == screen::FieldKind::Text || field.kind() == screen::FieldKind::RichText;
}

/// A combination of keys as a shortcut is named. A plus is one however the keyboard makes it.
std::string nameOf(const QKeyEvent& event) {
    Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    int key = event.key();
    if (key == Qt::Key_Equal || key == Qt::Key_Plus) {
        key = Qt::Key_Plus;
        held &= ~Qt::ShiftModifier;
    }
    std::string name = utf8(
        QKeySequence(QKeyCombination(held, static_cast<Qt::Key>(key))).toString(QKeySequence::PortableText));
    if (name.ends_with("Del")) name += "ete";
    return name;
}

}  // namespace

Binder::Binder(screen::Window& window, QWidget& form) : window_(window), form_(form) {
    QHash<QString, QWidget*> byName;
    for (QWidget* widget : form.findChildren<QWidget*>()) byName.insert(widget->objectName(), widget);
    for (screen::Field* field : window.fields()) {
        QWidget* const widget = byName.value(qtText(field->name()));
        if (!widget) throw basics::Fault(window.name() + ": the form lacks " + field->name());
        mirrors_.push_back(makeMirror(*field, *widget));
        byField_.insert(field, mirrors_.back().get());
        watch(*widget, *mirrors_.back());
        for (const char* word : {"caption_", "unit_"}) {
            QWidget* const around = byName.value(QLatin1String(word) + qtText(field->name()));
            if (around) mirrors_.back()->words.push_back(around);
        }
        mirrors_.back()->hint = byName.value(QLatin1String("hint_") + qtText(field->name()));
        mirrors_.back()->show();
    }
    form.installEventFilter(this);
    whenTouched_ = window.onTouched.listen([this](screen::Field* field) { touched(field); });
    schedule();
}

/// The widget, and what of its own stands in it (the body of a scrolled list, the line of a date).
void Binder::watch(QWidget& widget, Mirror& mirror) {
    byWidget_.insert(&widget, &mirror);
    widget.installEventFilter(this);
    const auto kind = mirror.field().kind();
    if (kind == screen::FieldKind::Panel || kind == screen::FieldKind::Tabs) return;
    for (QWidget* inner : widget.findChildren<QWidget*>()) {
        byWidget_.insert(inner, &mirror);
        inner->installEventFilter(this);
    }
}

QWidget* Binder::widgetOf(const screen::Field& field) const {
    const Mirror* mirror = byField_.value(&field);
    return mirror ? &mirror->widget() : nullptr;
}

void Binder::touched(screen::Field* field) {
    Mirror* const mirror = field ? byField_.value(field) : nullptr;
    if (mirror && !std::exchange(mirror->waits, true)) waiting_.push_back(mirror);
    schedule();
}

void Binder::schedule() {
    if (std::exchange(scheduled_, true)) return;
    QCoreApplication::postEvent(this, &owned<QEvent>(drawEvent), Qt::HighEventPriority);
}

bool Binder::event(QEvent* event) {
    if (event->type() != drawEvent) return QObject::event(event);
    flush();
    if (newToPress()) dropWhatCame();
    return true;
}

/// Whether something has come up that can be pressed: a click that waits was aimed at what stood there
/// before.
bool Binder::newToPress() {
    bool found = false;
    for (const auto& mirror : mirrors_) {
        const auto kind = mirror->field().kind();
        if (kind != screen::FieldKind::Button && kind != screen::FieldKind::TwoState &&
            kind != screen::FieldKind::Check && kind != screen::FieldKind::Option)
            continue;
        const bool can = mirror->widget().isVisible() && mirror->widget().isEnabled();
        found = (can && !std::exchange(mirror->pressable, can)) || found;
        mirror->pressable = can;
    }
    return found;
}

void Binder::flush() {
    scheduled_ = false;
    const std::vector<Mirror*> waiting = std::exchange(waiting_, {});
    for (Mirror* mirror : waiting) {
        mirror->waits = false;
        mirror->show();
    }
    showFocus();
}

/// The toolkit's focus follows the window's. Where the field that has it can't be reached any more, the form
/// keeps the keys for it.
void Binder::showFocus() {
    const screen::Field* focus = window_.focus();
    QWidget* target = focus && focus->reachable() ? widgetOf(*focus) : &form_;
    if (!target || !form_.isVisible()) return;
    QWidget* const has = form_.window()->focusWidget();
    // Something stands over the form (a glass) and has it.
    if (has && has != &form_ && !form_.isAncestorOf(has)) return;
    if (has && (has == target || (target != &form_ && target->isAncestorOf(has)))) return;
    focusing_ = true;
    target->setFocus(Qt::OtherFocusReason);
    focusing_ = false;
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
    // A key that its widget has passed over goes on to those around it, and has been heard already.
    if (event->type() == QEvent::KeyPress && watched != form_.window()->focusWidget()) return false;
    if (watched == &form_) {
        return event->type() == QEvent::KeyPress && keyDown(nullptr, static_cast<QKeyEvent&>(*event));
    }
    Mirror* const mirror = byWidget_.value(watched);
    if (!mirror) return false;
    switch (event->type()) {
        case QEvent::KeyPress:
            return keyDown(mirror, static_cast<QKeyEvent&>(*event));
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            swallowed_ = mouseDown(*mirror) ? watched : nullptr;
            return swallowed_ != nullptr;
        case QEvent::MouseMove:
            return swallowed_ == watched;
        case QEvent::MouseButtonRelease:
            return std::exchange(swallowed_, nullptr) == watched;
        case QEvent::Wheel:
            if (turnsZoom(static_cast<const QWheelEvent&>(*event))) return true;
            // A turn of the wheel over a page must not change what a list or a date says.
            return mirror->field().kind() == screen::FieldKind::Combo ||
                   mirror->field().kind() == screen::FieldKind::Date;
        case QEvent::FocusIn:
            focusIn(*mirror, *event);
            return false;
        case QEvent::InputMethod:
            if (Composition::current().isEcho(*watched, static_cast<QInputMethodEvent&>(*event))) return true;
            [[fallthrough]];
        default:
            return mirror->filter(static_cast<QWidget&>(*watched), *event);
    }
}

/// A key that went down in a field's widget, or in the form while no field can have it.
bool Binder::keyDown(Mirror* mirror, QKeyEvent& event) {
    if (Composition::current().takesKey(event) || repeatsAPress(event)) return true;
    if (turnsPage(event) || isShortcut(event)) return true;
    if (event.key() == Qt::Key_Backtab ||
        (event.key() == Qt::Key_Tab && event.modifiers() == Qt::ShiftModifier)) {
        window_.userInput([this] { window_.moveFocus(true); });
        return true;
    }
    const auto key = modelKey(event);
    if (!key) return mirror && mirror->specialKey(event);
    const bool own = mirror && mirror->ownKey(event) && window_.focus() == &mirror->field();
    if (own && key->code != screen::keys::tab) {
        if (mirror->field().kind() == screen::FieldKind::Grid) return false;  // asks the field itself
        const bool stands = window_.userKeyHeard(*key);
        window_.desktop().deliverKeys();
        return !stands;
    }
    auto* const text = dynamic_cast<TextMirror*>(mirror);
    if (text && key->character >= U' ' && window_.focus() == &mirror->field()) {
        text->userWrites(*key);
    } else {
        window_.userKey(*key);
        window_.desktop().deliverKeys();
    }
    return true;
}

/// A key that is held writes on in a text, but it presses and answers nothing twice.
bool Binder::repeatsAPress(const QKeyEvent& event) const {
    if (!event.isAutoRepeat()) return false;
    const int key = event.key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape || key == Qt::Key_Space) {
        const screen::Field* focus = window_.focus();
        if (!focus) return true;
        if (isText(*focus)) return false;
        return focus->kind() != screen::FieldKind::Grid ||
               !static_cast<const screen::Grid*>(focus)->editing();
    }
    return false;
}

/// The window's outermost tabs, turned by Ctrl+Tab, Ctrl+Page Up and Down, or Alt and a number.
bool Binder::turnsPage(const QKeyEvent& event) {
    screen::TabControl* const tabs = mainTabs();
    if (!tabs) return false;
    const int count = tabs->pageCount();
    int page = -1;
    if (event.modifiers() & Qt::ControlModifier) {
        const bool forward = event.key() == Qt::Key_Tab || event.key() == Qt::Key_PageDown;
        const bool backward = event.key() == Qt::Key_Backtab || event.key() == Qt::Key_PageUp;
        const int step = forward ? 1 : count - 1;
        if (forward != backward) page = (tabs->current() + step) % count;
        while (page >= 0 && page != tabs->current() && !tabs->selectable(page)) page = (page + step) % count;
    } else if (event.modifiers() == Qt::AltModifier && event.key() >= Qt::Key_1) {
        if (event.key() - Qt::Key_1 < count) page = event.key() - Qt::Key_1;
    }
    if (page < 0) return false;
    Composition::current().end();
    static_cast<void>(tabs->userClick(page));
    window_.desktop().deliverKeys();
    return true;
}

bool Binder::turnsZoom(const QWheelEvent& event) {
    if (!event.modifiers().testFlag(Qt::ControlModifier)) return false;
    turned_ += event.angleDelta().y();
    const int steps = turned_ / QWheelEvent::DefaultDeltasPerStep;
    turned_ -= steps * QWheelEvent::DefaultDeltasPerStep;
    if (steps != 0) window_.desktop().zoom().step(steps);
    return true;
}

/// Keys that type a character alone are no shortcut.
bool Binder::isShortcut(const QKeyEvent& event) {
    if (event.key() == 0 || event.key() == Qt::Key_unknown) return false;
    const bool function = event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F35;
    if (!function && !event.modifiers().testFlag(Qt::ControlModifier)) return false;
    const std::string name = nameOf(event);
    const auto& known = window_.shortcuts();
    const bool bears = std::any_of(known.begin(), known.end(), [&](const screen::Shortcut& one) {
        return one.keys == name && one.applies();
    });
    if (!bears) return false;
    if (event.isAutoRepeat()) return true;
    Composition::current().end();
    static_cast<void>(window_.userShortcut(name));
    window_.desktop().deliverKeys();
    return true;
}

screen::TabControl* Binder::mainTabs() const {
    const auto isMain = [](const screen::Field* field) {
        return field->kind() == screen::FieldKind::Tabs &&
               (!field->place().holder || field->place().holder->kind() == screen::FieldKind::Panel);
    };
    const auto found = std::find_if(window_.fields().begin(), window_.fields().end(), isMain);
    return found == window_.fields().end() ? nullptr : static_cast<screen::TabControl*>(*found);
}

/// A click gives the focus before it does anything else. True where it ends here: the focus went elsewhere,
/// or the text that entering the field has selected stays selected.
bool Binder::mouseDown(Mirror& mirror) {
    screen::Field& field = mirror.field();
    if (!field.takesFocus() || field.hasFocus() || !field.reachable()) return false;
    window_.userFocus(field);
    window_.desktop().deliverKeys();
    flush();
    if (!field.hasFocus()) return true;
    return isText(field) && static_cast<const screen::EditField&>(field).selectionLength() > 0;
}

/// The toolkit moved its focus by itself: a label's shortcut is the user's wish, all else is taken back. A
/// focus that returns with the window to the field that has it is no entering.
void Binder::focusIn(const Mirror& mirror, const QEvent& event) {
    if (focusing_ || window_.focus() == &mirror.field()) return;
    if (static_cast<const QFocusEvent&>(event).reason() == Qt::ShortcutFocusReason) {
        window_.userFocus(mirror.field());
        window_.desktop().deliverKeys();
    }
    schedule();
}

void Binder::tellPlaces() {
    for (const auto& mirror : mirrors_) {
        const QWidget& widget = mirror->widget();
        const QPoint corner = widget.mapTo(&form_, QPoint(0, 0));
        screen::Field& field = mirror->field();
        field.left = twips(widget, corner.x());
        field.top = twips(widget, corner.y());
        field.width = twips(widget, widget.width());
        field.height = twips(widget, widget.height());
        if (field.kind() == screen::FieldKind::Grid) static_cast<GridView&>(mirror->widget()).tellPlaces();
    }
}

}  // namespace zelvo::qt
