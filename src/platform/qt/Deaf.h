#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

class QWidget;

namespace zelvo::qt {

/// While it lives, nothing that the user does reaches a window, unless one comes up over all others.
class Deaf : public QObject {
    Q_OBJECT

public:
    Deaf();
    ~Deaf() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    /// Whether an event of the user's passes all the same.
    virtual bool passes(QWidget& target, QEvent& event);

private:
    QPointer<QWidget> front_;
    bool composed_ = false;
};

/// Drops what the user has done up to now: it was not meant for what has just come up. Returns when all that
/// is new has been painted.
void dropWhatCame();
/// The same for a window that has just been shown.
void dropWhatCameBefore(const QWidget& window);

}  // namespace zelvo::qt
