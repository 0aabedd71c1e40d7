#include "platform/qt/ProgressLine.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QLabel>
#include <algorithm>
#include <array>

#include "platform/qt/Contrast.h"

namespace zelvo::qt {

namespace {

constexpr double radius = 6, reachedRadius = 8, lineWidth = 2;
/// Shares of the text's colour in what is still to come.
constexpr double toCome = 0.3;

QPointF middleOf(const QLabel& step) {
    return QRectF(step.geometry()).center();
}

}  // namespace

bool ProgressLine::event(QEvent* event) {
    // The form is complete when it is polished.
    if (event->type() == QEvent::Polish) findSteps();
    return QWidget::event(event);
}

void ProgressLine::findSteps() {
    steps_.clear();
    for (QLabel* label : findChildren<QLabel*>()) {
        const QString name = label->objectName();
        if (!name.startsWith(QLatin1String("pic"))) continue;
        label->installEventFilter(this);
        if (name.endsWith(QLatin1Char(')'))) {
            steps_.push_back(label);
        } else {
            cancelled_ = label;
        }
    }
    std::sort(steps_.begin(), steps_.end(),
              [](const QLabel* a, const QLabel* b) { return a->objectName() < b->objectName(); });
}

bool ProgressLine::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) update();
    return QWidget::eventFilter(watched, event);
}

/// The step that shows, -1 for none.
int ProgressLine::reached() const {
    for (std::size_t step = 0; step < steps_.size(); ++step) {
        if (!steps_[step]->isHidden()) return static_cast<int>(step);
    }
    return -1;
}

void ProgressLine::paintEvent(QPaintEvent*) {
    if (steps_.empty()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor accent = palette().color(QPalette::Highlight);
    const QColor dim =
        blended(palette().color(QPalette::WindowText), palette().color(QPalette::Window), toCome);
    const int here = reached();
    for (std::size_t step = 1; step < steps_.size(); ++step) {
        painter.setPen(QPen(static_cast<int>(step) <= here ? accent : dim, lineWidth));
        painter.drawLine(middleOf(*steps_[step - 1]), middleOf(*steps_[step]));
    }
    for (std::size_t step = 0; step < steps_.size(); ++step)
        paintStep(painter, middleOf(*steps_[step]), static_cast<int>(step), here);
    if (cancelled_ && !cancelled_->isHidden()) paintCancelled(painter);
}

/// What is done is filled and ticked, the present step larger, what is to come hollow.
void ProgressLine::paintStep(QPainter& painter, const QPointF& middle, int step, int reached) const {
    const QColor ground = palette().color(QPalette::Window), accent = palette().color(QPalette::Highlight);
    if (step > reached) {
        painter.setPen(QPen(blended(palette().color(QPalette::WindowText), ground, toCome), lineWidth));
        painter.setBrush(ground);
        painter.drawEllipse(middle, radius - 1, radius - 1);
        return;
    }
    const double size = step == reached ? reachedRadius : radius;
    painter.setPen(QPen(ground, 1));
    painter.setBrush(accent);
    painter.drawEllipse(middle, size, size);
    painter.setPen(
        QPen(palette().color(QPalette::HighlightedText), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    if (step == reached) {
        painter.setBrush(palette().color(QPalette::HighlightedText));
        painter.drawEllipse(middle, 2.5, 2.5);
        return;
    }
    const std::array<QPointF, 3> tick{middle + QPointF(-2.8, 0.2), middle + QPointF(-0.8, 2.2),
                                      middle + QPointF(2.8, -2)};
    painter.drawPolyline(tick.data(), static_cast<int>(tick.size()));
}

/// A plate over the whole line, for the words that say so.
void ProgressLine::paintCancelled(QPainter& painter) const {
    const QColor ground = palette().color(QPalette::Window);
    const QRectF plate = QRectF(cancelled_->geometry()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(readableOn(ground, QColor(200, 0, 0)), 1.5));
    painter.setBrush(blended(QColor(200, 0, 0), ground, 0.1));
    painter.drawRoundedRect(plate, 4, 4);
}

}  // namespace zelvo::qt
