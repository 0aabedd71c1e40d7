#include <utility>

#include "screen/Fields.h"
#include "screen/Window.h"

// Buttons of every kind: check, option, press, two-state.
namespace zelvo::screen {

namespace {

bool isBlankKey(const Key& key) {
    return key.character == U' ';
}

/// The keys that press a button which has the focus.
bool presses(const Key& key) {
    return key.character == U' ' || key.character == U'\r';
}

}  // namespace

CheckButton::CheckButton(Window& window, std::string name, Place place, std::string caption)
    : Field(window, std::move(name), FieldKind::Check, place), caption_(std::move(caption)) {}

void CheckButton::setValue(bool value) {
    if (value == value_) return;
    value_ = value;
    touch();
    onClick();
}

void CheckButton::setCaption(std::string_view caption) {
    if (caption == caption_) return;
    caption_ = caption;
    touch();
}

void CheckButton::userClick() {
    userClicks([this] { setValue(!value_); });
}

void CheckButton::applyKey(const Key& key) {
    if (isBlankKey(key)) setValue(!value_);
}

OptionButton::OptionButton(Window& window, std::string name, Place place, std::string caption)
    : Field(window, std::move(name), FieldKind::Option, place), caption_(std::move(caption)) {}

std::string_view OptionButton::group() const {
    return std::string_view(name()).substr(0, name().find('('));
}

void OptionButton::setValue(bool value) {
    if (value == value_) return;
    if (value) unsetOthers();
    value_ = value;
    touch();
    if (value) onClick();
}

void OptionButton::unsetOthers() {
    for (Field* field : window().fields()) {
        if (field == this || field->kind() != FieldKind::Option) continue;
        auto* other = static_cast<OptionButton*>(field);
        if (other->group() == group()) other->setValue(false);
    }
}

void OptionButton::userClick() {
    userClicks([this] { setValue(true); });
}

void OptionButton::applyKey(const Key& key) {
    if (isBlankKey(key)) setValue(true);
}

Button::Button(Window& window, std::string name, Place place, std::string caption)
    : Field(window, std::move(name), FieldKind::Button, place), caption_(std::move(caption)) {}

void Button::setCaption(std::string_view caption) {
    if (caption == caption_) return;
    caption_ = caption;
    touch();
}

void Button::setTextColor(Color color) {
    if (color == textColor_) return;
    textColor_ = color;
    touch();
}

void Button::userPress() {
    userClicks([this] { onPress(); });
}

void Button::applyKey(const Key& key) {
    if (presses(key)) onPress();
}

TwoStateButton::TwoStateButton(Window& window, std::string name, Place place, std::string caption)
    : Field(window, std::move(name), FieldKind::TwoState, place), caption_(std::move(caption)) {}

void TwoStateButton::setValue(bool value) {
    if (value == value_) return;
    value_ = value;
    touch();
    onToggle();
}

void TwoStateButton::setCaption(std::string_view caption) {
    if (caption == caption_) return;
    caption_ = caption;
    touch();
}

void TwoStateButton::repaint() {
    touch();
}

void TwoStateButton::userPress() {
    userClicks([this] { setValue(!value_); });
}

void TwoStateButton::applyKey(const Key& key) {
    if (presses(key)) setValue(!value_);
}

void usePressed(TwoStateButton& button, std::function<void()> act) {
    button.onToggle.add([&button, run = std::move(act)] {
        if (!button.value()) return;
        button.setValue(false);
        button.repaint();
        run();
    });
}

}  // namespace zelvo::screen
