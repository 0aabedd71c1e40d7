#include "screen/AskWindow.h"

#include "screen/SmallWindow.h"

namespace zelvo::screen {

AskWindow::AskWindow(Desktop& desktop, std::string name, std::string_view caption, double width,
                     double height)
    : AskWindow(desktop, std::move(name), caption, width, height, Ok()) {}

AskWindow::AskWindow(Desktop& desktop, std::string name, std::string_view caption, double width,
                     double height, Ok ok)
    : Window(desktop, std::move(name), width, height),
      cmdOK(*this, ok.name, {}, ok.caption),
      cmdCancel(*this, "cmdCancel", {}, "취소") {
    setCaption(caption);
    cmdOK.onPress.add([this] { press(); });
    cmdCancel.onPress.add([this] { userClose(); });
    onEscape(*this, [this] { cmdCancel.onPress(); });
    addZoomKeys(*this);
}

// A caller may have the busy pointer on: nobody is busy while the user thinks.
bool AskWindow::ask() {
    const Pointer former = desktop().pointer();
    desktop().setPointer(Pointer::Normal);
    showModal();
    unload();
    desktop().setPointer(former);
    return confirmed_;
}

void AskWindow::press() {
    if (!confirm()) return;
    confirmed_ = true;
    unload();
}

bool AskWindow::refuse(std::string_view what, Field& where, std::string_view boxCaption) {
    desktop().inform(what, boxCaption);
    where.setFocus();
    if (auto* text = dynamic_cast<EditField*>(&where)) text->select(0, std::string::npos);
    return false;
}

void AskWindow::fillInOrder(std::initializer_list<TextField*> fields) {
    const TextField* const last = *(fields.end() - 1);
    for (TextField* field : fields) {
        field->onFocus.add([field] { field->select(0, std::string::npos); });
        field->onKeyDown.add([this, isLast = field == last](int& code) {
            if (code != keys::enter) return;
            code = keys::none;
            if (isLast) {
                cmdOK.onPress();
            } else {
                moveFocus();
            }
        });
    }
}

void placeInFront(Window& window) {
    const Window* const front = window.desktop().front();
    if (!front) return;
    window.left = front->left + (front->width() - window.width()) / 2;
    window.top = front->top + (front->height() - window.height()) / 2;
}

}  // namespace zelvo::screen
