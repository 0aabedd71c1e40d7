#include "platform/qt/ClinicStyle.h"

#include <QtGui/QPainter>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <algorithm>
#include <array>

#include "platform/qt/Contrast.h"

namespace zelvo::qt {

namespace {

constexpr int fieldHeight = 26, tabHeight = 28, mainTabHeight = 32, headingHeight = 22;
constexpr int buttonEdge = 12, tabEdge = 14, innerTabEdge = 10;
constexpr double radius = 4;
/// Shares of the text's colour in what is drawn on its ground.
constexpr double fieldLine = 0.32, markLine = 0.55, dimLine = 0.16, frameLine = 0.25, plainButton = 0.05,
                 hotButton = 0.1, pressedButton = 0.2;

QColor shade(const QStyleOption& option, double share) {
    return blended(option.palette.color(QPalette::WindowText), option.palette.color(QPalette::Window), share);
}

bool isEnabled(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_Enabled);
}

bool isPrimary(const QWidget* widget) {
    return widget && widget->property("primary").toBool();
}

void drawBox(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& line) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(line);
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
}

/// The box of a field: its own ground where the user can change it, else its panel's.
void drawField(QPainter& painter, const QStyleOption& option, bool changes) {
    const QColor fill = option.palette.color(changes ? QPalette::Base : QPalette::Window);
    drawBox(painter, option.rect, fill, shade(option, changes ? fieldLine : dimLine));
}

void drawButton(QPainter& painter, const QStyleOption& option, bool primary) {
    const bool down = (option.state & (QStyle::State_Sunken | QStyle::State_On)) != QStyle::State_None;
    const bool hot = isEnabled(option) && option.state.testFlag(QStyle::State_MouseOver);
    if (primary && isEnabled(option)) {
        const QColor accent = option.palette.color(QPalette::Highlight);
        const QColor fill =
            down ? blended(Qt::black, accent, 0.25) : blended(Qt::black, accent, hot ? 0.12 : 0);
        drawBox(painter, option.rect, fill, fill);
        return;
    }
    const double share = down ? pressedButton : hot ? hotButton : plainButton;
    drawBox(painter, option.rect, shade(option, isEnabled(option) ? share : 0),
            shade(option, isEnabled(option) ? fieldLine : dimLine));
}

void drawArrow(QPainter& painter, const QStyleOption& option, const QRect& room) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(shade(option, isEnabled(option) ? 0.75 : 0.35), 1.5, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    const QPointF middle = QRectF(room).center();
    const std::array<QPointF, 3> points{middle + QPointF(-4, -2), middle + QPointF(0, 2),
                                        middle + QPointF(4, -2)};
    painter.drawPolyline(points.data(), static_cast<int>(points.size()));
    painter.restore();
}

/// A mark that can be set: its ground, and on it, where it is set, a tick or a dot in the accent colour.
void drawMark(QPainter& painter, const QStyleOption& option, bool round) {
    const bool set = option.state.testFlag(QStyle::State_On), enabled = isEnabled(option);
    const QColor accent = enabled ? option.palette.color(QPalette::Highlight) : shade(option, 0.45);
    const QColor ground =
        enabled ? option.palette.color(QPalette::Base) : option.palette.color(QPalette::Window);
    const QColor onAccent =
        enabled ? option.palette.color(QPalette::HighlightedText) : option.palette.color(QPalette::Window);
    QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const double side = std::min(box.width(), box.height());
    box = QRectF(box.center() - QPointF(side / 2, side / 2), QSizeF(side, side));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(set ? accent : shade(option, enabled ? markLine : dimLine));
    painter.setBrush(set ? accent : ground);
    if (round) {
        painter.drawEllipse(box);
    } else {
        painter.drawRoundedRect(box, 3, 3);
    }
    if (set && round) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(onAccent);
        painter.drawEllipse(box.center(), side * 0.2, side * 0.2);
    } else if (set) {
        painter.setPen(QPen(onAccent, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const auto at = [&](double x, double y) { return box.topLeft() + QPointF(x, y) * side; };
        const std::array<QPointF, 3> tick{at(0.25, 0.52), at(0.44, 0.7), at(0.77, 0.32)};
        painter.drawPolyline(tick.data(), static_cast<int>(tick.size()));
    }
    painter.restore();
}

bool isHeading(const QWidget* bar) {
    const auto* tabs = qobject_cast<const QTabBar*>(bar);
    return tabs && tabs->count() == 1;
}

/// A tab control that stands in no other.
bool isOutermost(const QWidget* bar) {
    const QWidget* holder = bar ? bar->parentWidget() : nullptr;
    if (!holder || !qobject_cast<const QTabWidget*>(holder)) return false;
    for (holder = holder->parentWidget(); holder; holder = holder->parentWidget()) {
        if (qobject_cast<const QTabWidget*>(holder)) return false;
    }
    return true;
}

void drawTab(QPainter& painter, const QStyleOption& option) {
    const bool hot = option.state.testFlag(QStyle::State_MouseOver) && isEnabled(option);
    const bool front = option.state.testFlag(QStyle::State_Selected);
    if (hot && !front) painter.fillRect(option.rect.adjusted(0, 2, 0, -2), shade(option, plainButton));
    if (!front) return;
    const QColor accent =
        readableOn(option.palette.color(QPalette::Window), option.palette.color(QPalette::Highlight));
    painter.fillRect(QRect(option.rect.left(), option.rect.bottom() - 1, option.rect.width(), 2), accent);
}

}  // namespace

ClinicStyle::ClinicStyle() : QProxyStyle(QLatin1String("fusion")) {}

void ClinicStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    switch (element) {
        case PE_PanelLineEdit: {
            // A line inside a field of another kind stands in that field's box.
            const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            if (!frame || frame->lineWidth == 0) {
                // Nor has one of a record a box of its own.
                if (option->state.testFlag(State_ReadOnly)) return;
                if (qobject_cast<const QAbstractSpinBox*>(widget ? widget->parentWidget() : nullptr)) return;
                break;
            }
            drawField(*painter, *option, isEnabled(*option) && !option->state.testFlag(State_ReadOnly));
            return;
        }
        case PE_IndicatorCheckBox:
            drawMark(*painter, *option, false);
            return;
        case PE_IndicatorRadioButton:
            drawMark(*painter, *option, true);
            return;
        case PE_Frame: {
            // Filled, not stroked: at broken scales a stroke comes to lie under what the frame holds.
            const QRect& rect = option->rect;
            const QRect inner = rect.adjusted(1, 1, -1, -1);
            for (const QRect& side : QRegion(rect).subtracted(inner))
                painter->fillRect(side, shade(*option, frameLine));
            return;
        }
        case PE_FrameLineEdit:
        case PE_FrameFocusRect:  // the ring shows it
            return;
        case PE_PanelButtonCommand:
            drawButton(*painter, *option, isPrimary(widget));
            return;
        case PE_FrameTabBarBase:
        case PE_FrameTabWidget: {
            const auto* tabs = qobject_cast<const QTabWidget*>(widget);
            if (tabs && tabs->count() < 2) return;
            const QRect& rect = option->rect;
            const int y = element == PE_FrameTabWidget ? rect.top() : rect.bottom();
            painter->fillRect(QRect(rect.left(), y, rect.width(), 1), shade(*option, frameLine));
            return;
        }
        default:
            break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ClinicStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (element == CE_TabBarTabShape) {
        if (!isHeading(widget)) drawTab(*painter, *option);
        return;
    }
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element == CE_PushButtonLabel && button && isPrimary(widget) && isEnabled(*option)) {
        QStyleOptionButton label(*button);
        label.palette.setColor(QPalette::ButtonText, label.palette.color(QPalette::HighlightedText));
        QProxyStyle::drawControl(element, &label, painter, widget);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ClinicStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const {
    if (control != CC_ComboBox) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    drawField(*painter, *option, isEnabled(*option));
    drawArrow(*painter, *option, proxy()->subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget));
}

QSize ClinicStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                    const QWidget* widget) const {
    const int line = option ? option->fontMetrics.height() : 0;
    const auto heighten = [this, line](QSize wanted) {
        return QSize(wanted.width(), std::max(zoomed(fieldHeight), line + 8));
    };
    switch (type) {
        case CT_TabWidget:
            return size + QSize(0, 1);
        case CT_TabBarTab:
            if (isHeading(widget)) return {size.width(), std::max(zoomed(headingHeight), line + 4)};
            return {option ? size.width() : size.width() + zoomed(tabEdge),
                    std::max(zoomed(isOutermost(widget) ? mainTabHeight : tabHeight), line + 10)};
        case CT_PushButton:
            return heighten(size + QSize(2 * zoomed(buttonEdge), 0));
        case CT_LineEdit: {
            const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            if (frame && frame->lineWidth == 0) break;
            return heighten(QProxyStyle::sizeFromContents(type, option, size, widget));
        }
        case CT_ComboBox:
        case CT_SpinBox:
            return heighten(QProxyStyle::sizeFromContents(type, option, size, widget));
        default:
            break;
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

QRect ClinicStyle::subElementRect(SubElement element, const QStyleOption* option,
                                  const QWidget* widget) const {
    switch (element) {
        case SE_TabWidgetTabContents:
            return QProxyStyle::subElementRect(SE_TabWidgetTabPane, option, widget).adjusted(0, 1, 0, 0);
        case SE_LineEditContents: {
            const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            const int edge = frame && frame->lineWidth > 0 ? 2 : 0;
            return QProxyStyle::subElementRect(element, option, widget).adjusted(edge, 0, -edge, 0);
        }
        default:
            return QProxyStyle::subElementRect(element, option, widget);
    }
}

int ClinicStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_TabBarTabHSpace:
            return isHeading(widget) ? 0 : 2 * zoomed(isOutermost(widget) ? tabEdge : innerTabEdge);
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return zoomed(16);
        case PM_TabBarTabOverlap:
        case PM_TabBarBaseOverlap:
        case PM_TabBarTabShiftVertical:
        case PM_ButtonShiftHorizontal:
        case PM_ButtonShiftVertical:
            return 0;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ClinicStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* answer) const {
    // Long captions are elided by nobody; a mnemonic's line would cut Hangul.
    if (hint == SH_TabBar_ElideMode) return Qt::ElideNone;
    return QProxyStyle::styleHint(hint, option, widget, answer);
}

}  // namespace zelvo::qt
