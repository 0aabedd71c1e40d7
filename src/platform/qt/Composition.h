#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QPointer>

class QInputMethodEvent;
class QKeyEvent;

namespace zelvo::qt {

/// What an input method is composing in this program's windows. A method whose composition the program ends
/// may say its last syllable once more, to whatever has the focus by then: that echo reaches no field.
class Composition : public QObject {
    Q_OBJECT

public:
    /// The one of this program's input method.
    static Composition& current();

    /// Ends what is being composed where it was begun: before the focus moves, and before anything is
    /// selected.
    void end();
    /// Drops what is being composed.
    void drop();
    /// Hears what an input method says to a widget; true for an echo, which must not arrive.
    bool isEcho(QObject& target, const QInputMethodEvent& event);
    /// Hears a key; true where it ends here: Esc belongs to a running composition first.
    bool takesKey(const QKeyEvent& event);
    /// The toolkit's own ways to move the focus come after this.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit Composition(QObject* method);

    QPointer<QObject> composing_;  ///< where
    bool echoDue_ = false;
    QElapsedTimer sinceEnd_;  ///< invalid once a key came
};

}  // namespace zelvo::qt
