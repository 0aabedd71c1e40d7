#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>
#include <vector>

namespace zelvo::qt {

/// A ring in the accent colour round the widget that has the focus, over all that stands in a window. It
/// lets the mouse through, follows its widget and goes with it.
class FocusRing : public QWidget {
    Q_OBJECT

public:
    explicit FocusRing(QWidget& topLevel);
    ~FocusRing() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void follow(QWidget* target);
    void place();

    QWidget& topLevel_;
    QPointer<QWidget> target_;
    std::vector<QPointer<QWidget>> watched_;  ///< the target and all that it stands in
    QRect round_;                             ///< the whole ring, in the window
};

}  // namespace zelvo::qt
