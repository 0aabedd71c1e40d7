#pragma once

#include <QtCore/QString>
#include <QtCore/QTimer>
#include <QtWidgets/QWidget>
#include <chrono>

#include "platform/qt/Deaf.h"

class QLabel;
class QPushButton;

namespace zelvo::qt {

/// Stands over a window that waits for something outside: says for what and since when, and takes one thing
/// only, giving up. For the first half second of a wait it can't be seen.
class Glass : public QWidget {
    Q_OBJECT

public:
    /// `over` is the window; nullptr where none stands yet. `since` is when the wait began.
    Glass(const QString& what, QWidget* over, std::chrono::steady_clock::time_point since);
    ~Glass() override;

    bool isGivenUp() const { return givenUp_; }

signals:
    void givenUp();
    /// Before and after it comes to be seen, and before it goes.
    void appearing(QWidget* glass);
    void appeared(QWidget* glass);
    void leaving();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Everything but the button and Esc.
    class Hearing : public Deaf {
    public:
        explicit Hearing(Glass& glass) : glass_(glass) {}
        bool passes(QWidget& target, QEvent& event) override;

    private:
        Glass& glass_;
    };

    void appear();
    void tellTime();
    void giveUp();

    QWidget* over_;
    std::chrono::steady_clock::time_point since_;
    QString clock_;  ///< the time of day at which the wait began
    QLabel* time_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QTimer second_;
    bool givenUp_ = false;
    Hearing hearing_{*this};
};

}  // namespace zelvo::qt
