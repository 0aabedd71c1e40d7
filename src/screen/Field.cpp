#include "screen/Field.h"

#include <utility>

#include "screen/Fields.h"
#include "screen/Window.h"

namespace zelvo::screen {

Field::Field(Window& window, std::string name, FieldKind kind, Place place)
    : window_(window), name_(std::move(name)), kind_(kind), place_(place) {
    window_.registerField(*this);
}

Field::~Field() {
    window_.forget(*this);
}

void Field::setVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    touch();
}

void Field::setEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    touch();
}

void Field::setTipText(std::string text) {
    if (text == tipText_) return;
    tipText_ = std::move(text);
    touch();
}

void Field::setLabel(std::string label) {
    if (label == label_) return;
    label_ = std::move(label);
    touch();
}

bool Field::onPageInFront() const {
    const Field* holder = place_.holder;
    if (!holder || holder->kind() != FieldKind::Tabs || place_.page < 0) return true;
    return static_cast<const TabControl*>(holder)->current() == place_.page;
}

bool Field::shown() const {
    for (const Field* at = this; at; at = at->place_.holder) {
        if (!at->visible_ || !at->onPageInFront()) return false;
    }
    return true;
}

bool Field::reachable() const {
    for (const Field* at = this; at; at = at->place_.holder) {
        if (!at->enabled_) return false;
    }
    return shown();
}

void Field::setFocus() {
    window_.giveFocus(*this);
}

bool Field::hasFocus() const {
    return window_.focus() == this;
}

bool Field::takesFocus() const {
    switch (kind_) {
        case FieldKind::Label:
        case FieldKind::Panel:
        case FieldKind::Tabs:
        case FieldKind::Picture:
        case FieldKind::Status:
            return false;
        default:
            return true;
    }
}

void Field::applyKey(const Key&) {}

void Field::touch() {
    window_.touched(this);
}

void Field::userClicks(std::function<void()> act) {
    window_.userInput([this, run = std::move(act)] {
        if (!reachable()) return;
        setFocus();
        if (hasFocus() && reachable() && !window_.closing()) run();
    });
}

}  // namespace zelvo::screen
