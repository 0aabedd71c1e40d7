#include "components/AskWindow.h"

namespace zelvo::components {

AskWindow::AskWindow(screen::Desktop& desktop, std::string name, std::string_view caption, double width,
                     double height)
    : Window(desktop, std::move(name), width, height),
      cmdOK(*this, "cmdOK", {}, "확인"),
      cmdCancel(*this, "cmdCancel", {}, "취소") {
    setCaption(caption);
    cmdOK.onPress.add([this] { press(); });
    cmdCancel.onPress.add([this] { unload(); });
    onKeyPreview.add([this](int& code) {
        if (code != screen::keys::escape) return;
        code = screen::keys::none;
        cmdCancel.onPress();
    });
}

// A caller may have the busy pointer on: nobody is busy while the user thinks.
bool AskWindow::ask() {
    const screen::Pointer former = desktop().pointer();
    desktop().setPointer(screen::Pointer::Normal);
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

bool AskWindow::refuse(std::string_view what, screen::Field& where) {
    desktop().inform(what, caption());
    where.setFocus();
    if (auto* text = dynamic_cast<screen::EditField*>(&where)) text->select(0, std::string::npos);
    return false;
}

void AskWindow::fillInOrder(std::initializer_list<screen::TextField*> fields) {
    const screen::TextField* const last = *(fields.end() - 1);
    for (screen::TextField* field : fields) {
        field->onFocus.add([field] { field->select(0, std::string::npos); });
        field->onKeyDown.add([this, isLast = field == last](int& code) {
            if (code != screen::keys::enter) return;
            code = screen::keys::none;
            if (isLast) {
                cmdOK.onPress();
            } else {
                moveFocus();
            }
        });
    }
}

void placeInFront(screen::Window& window) {
    const screen::Window* const front = window.desktop().front();
    if (!front) return;
    window.left = front->left + (front->width() - window.width()) / 2;
    window.top = front->top + (front->height() - window.height()) / 2;
}

}  // namespace zelvo::components
