#pragma once

#include <QtWidgets/QWidget>
#include <vector>

class QLabel;

namespace zelvo::qt {

/// Draws how far an order has come as a line of steps. The steps are its labels named "pic…(0)", "pic…(1)" …,
/// of which the one shows that the order has come to; its label "pic…" without a number shows for an order
/// that was taken back.
class ProgressLine : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void findSteps();
    int reached() const;
    void paintStep(QPainter& painter, const QPointF& middle, int step, int reached) const;
    void paintCancelled(QPainter& painter) const;

    std::vector<const QLabel*> steps_;
    const QLabel* cancelled_ = nullptr;
};

}  // namespace zelvo::qt
