#include "platform/qt/Keys.h"

#include <QtGui/QKeyEvent>

namespace zelvo::qt {

namespace {

std::optional<screen::Key> keyWithoutCharacter(int code) {
    switch (code) {
        case Qt::Key_Left:
            return screen::Key{screen::keys::left, 0};
        case Qt::Key_Right:
            return screen::Key{screen::keys::right, 0};
        case Qt::Key_Up:
            return screen::Key{screen::keys::up, 0};
        case Qt::Key_Down:
            return screen::Key{screen::keys::down, 0};
        case Qt::Key_Home:
            return screen::Key{screen::keys::home, 0};
        case Qt::Key_End:
            return screen::Key{screen::keys::end, 0};
        case Qt::Key_Delete:
            return screen::Key{screen::keys::remove, 0};
        default:
            return std::nullopt;
    }
}

std::optional<screen::Key> controlKey(int code) {
    switch (code) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return screen::Key::named("Enter");
        case Qt::Key_Escape:
            return screen::Key::named("Esc");
        case Qt::Key_Backspace:
            return screen::Key::named("Backspace");
        case Qt::Key_Tab:
            return screen::Key::named("Tab");
        default:
            return std::nullopt;
    }
}

}  // namespace

std::optional<screen::Key> modelKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    // AltGr types characters on many keyboards and arrives as Ctrl and Alt together.
    const bool altGr = held.testFlag(Qt::ControlModifier) && held.testFlag(Qt::AltModifier);
    if (!altGr && (held & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) return std::nullopt;
    if (const auto key = controlKey(event.key())) return key;
    if (const auto key = keyWithoutCharacter(event.key())) {
        if (held.testFlag(Qt::ShiftModifier)) return std::nullopt;
        return key;
    }
    const auto characters = event.text().toUcs4();
    if (characters.size() != 1 || characters.front() < U' ' || characters.front() == 127) return std::nullopt;
    return screen::Key::typed(static_cast<char32_t>(characters.front()));
}

}  // namespace zelvo::qt
