#include "platform/qt/FocusRing.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QRadioButton>

#include "platform/qt/Contrast.h"

namespace zelvo::qt {

namespace {

constexpr int thickness = 2;
/// How far the ring stands outside a widget with a border, and outside a bare mark with its words.
constexpr int reach = 2, bareReach = 3;
constexpr double radius = 5;

bool hasRing(const QWidget* widget, const QWidget& topLevel) {
    return widget && widget != &topLevel && topLevel.isAncestorOf(widget) &&
           widget->focusPolicy() != Qt::NoFocus;
}

bool standsBare(const QWidget& widget) {
    return qobject_cast<const QRadioButton*>(&widget) || qobject_cast<const QCheckBox*>(&widget);
}

}  // namespace

FocusRing::FocusRing(QWidget& topLevel) : QWidget(&topLevel), topLevel_(topLevel) {
    setObjectName(QLatin1String("focusRing"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    hide();
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { follow(hasRing(now, topLevel_) ? now : nullptr); });
}

FocusRing::~FocusRing() = default;

void FocusRing::follow(QWidget* target) {
    for (const auto& widget : watched_) {
        if (widget) widget->removeEventFilter(this);
    }
    watched_.clear();
    target_ = target;
    for (QWidget* widget = target; widget; widget = widget->parentWidget()) {
        widget->installEventFilter(this);
        watched_.emplace_back(widget);
        if (widget == &topLevel_) break;
    }
    place();
}

bool FocusRing::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::Hide:
        case QEvent::ZOrderChange:
            place();
            break;
        default:
            break;
    }
    return false;
}

/// Only what can be seen of it: in a page that is scrolled, the ring is cut where its widget is.
void FocusRing::place() {
    if (!target_ || !target_->isVisible()) {
        hide();
        return;
    }
    const int out = standsBare(*target_) ? bareReach : reach;
    const auto inWindow = [&](const QWidget& widget) {
        return QRect(widget.mapTo(&topLevel_, QPoint(0, 0)), widget.size()).adjusted(-out, -out, out, out);
    };
    round_ = inWindow(*target_);
    QRect seen = round_ & topLevel_.rect();
    for (const QWidget* holder = target_->parentWidget(); holder && holder != &topLevel_;
         holder = holder->parentWidget())
        seen &= inWindow(*holder);
    if (seen.isEmpty()) {
        hide();
        return;
    }
    setGeometry(seen);
    // Nothing lies over the widget itself: what it draws need not be drawn again here.
    const int thick = thickness + 1;
    const QRect hole = round_.adjusted(thick, thick, -thick, -thick);
    setMask(QRegion(rect()).subtracted(hole.translated(-seen.topLeft())));
    show();
    raise();
    update();
}

void FocusRing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette& colors = topLevel_.palette();
    painter.setPen(
        QPen(readableOn(colors.color(QPalette::Window), colors.color(QPalette::Highlight)), thickness));
    const double half = thickness / 2.0;
    painter.drawRoundedRect(QRectF(round_.translated(-pos())).adjusted(half, half, -half, -half), radius,
                            radius);
}

}  // namespace zelvo::qt
