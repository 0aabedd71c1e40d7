#include "platform/qt/FramePanel.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>

#include "platform/qt/Contrast.h"

namespace zelvo::qt {

namespace {

constexpr int edge = 8;          ///< from the border to the caption
constexpr int underHeading = 4;  ///< from a heading to what it heads
constexpr double radius = 5;
/// How much of a colour made for a light ground a dark one takes.
constexpr double darkShare = 0.16;

}  // namespace

FramePanel::FramePanel(QWidget* parent) : QFrame(parent) {
    setFrameShape(QFrame::NoFrame);
}

void FramePanel::setCaption(const QString& caption) {
    if (caption == caption_) return;
    caption_ = caption;
    setAccessibleName(caption);
    makeRoom();
}

void FramePanel::setFramed(bool framed) {
    framed_ = framed;
    makeRoom();
}

void FramePanel::setQuiet(bool quiet) {
    quiet_ = quiet;
    makeRoom();
}

void FramePanel::setBackColor(std::optional<QColor> color) {
    if (color == backColor_) return;
    backColor_ = color;
    tint();
}

/// The colour goes through the palette, so that read-only fields have it too.
void FramePanel::tint() {
    if (tinting_) return;
    tinting_ = true;
    QPalette own;
    if (backColor_) {
        const QColor ground =
            (parentWidget() ? parentWidget()->palette() : QPalette()).color(QPalette::Window);
        const bool light = ground.lightnessF() > 0.5F;
        own.setColor(QPalette::Window, light ? *backColor_ : blended(*backColor_, ground, darkShare));
    }
    setPalette(own);
    tinting_ = false;
    update();
}

QFont FramePanel::captionFont() const {
    QFont bold = font();
    bold.setBold(!quiet_);
    return bold;
}

int FramePanel::captionHeight() const {
    if (caption_.isEmpty()) return 0;
    const int text = QFontMetrics(captionFont()).height();
    return framed() ? edge + text : text + underHeading;
}

void FramePanel::makeRoom() {
    const int border = framed() ? 1 : 0;
    setContentsMargins(border, border + captionHeight(), border, border);
    updateGeometry();
    update();
}

/// A heading is as high as its caption and takes no more.
QSize FramePanel::withCaption(QSize size) const {
    if (layout()) return size;
    return size.expandedTo(QSize(0, captionHeight()));
}

QSize FramePanel::sizeHint() const {
    return withCaption(QFrame::sizeHint());
}

QSize FramePanel::minimumSizeHint() const {
    return withCaption(QFrame::minimumSizeHint());
}

void FramePanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor text = palette().color(QPalette::WindowText), ground = palette().color(QPalette::Window);
    const bool border = framed();
    if (border || backColor_) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(border ? QPen(blended(text, ground, 0.22)) : QPen(Qt::NoPen));
        painter.setBrush(backColor_ ? QBrush(ground) : QBrush(Qt::NoBrush));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    }
    if (caption_.isEmpty()) return;
    painter.setFont(captionFont());
    painter.setPen(quiet_ ? blended(text, ground, 0.72) : text);
    const int indent = border ? 1 + edge : 0;
    const QRect room(indent, indent, width() - 2 * indent, painter.fontMetrics().height());
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(caption_, Qt::ElideRight, room.width()));
}

void FramePanel::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::FontChange) makeRoom();
    if (event->type() == QEvent::PaletteChange && backColor_) tint();
}

}  // namespace zelvo::qt
