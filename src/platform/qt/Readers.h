#pragma once

class QString;
class QWidget;

namespace zelvo::screen {
struct Key;
}

namespace zelvo::qt {

/// While it lives, a reader of the screen finds in our windows what a user sees of them: windows that are
/// windows, lists that bear their labels, tables without their hidden columns.
class Readers {
public:
    Readers();
    ~Readers();
    Readers(const Readers&) = delete;
    Readers& operator=(const Readers&) = delete;
};

/// Says something to a reader of the screen that has no focus to say it: a price, a key that was refused.
void speak(const QWidget& within, const QString& text);
/// Says that a key which writes has written nothing.
void speakRefusal(const QWidget& within, const screen::Key& key);

}  // namespace zelvo::qt
