#include "platform/qt/PageArea.h"

#include <QtCore/QEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QScrollBar>

namespace zelvo::qt {

PageArea::PageArea(QWidget& page, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidget(&page);
    page.installEventFilter(this);
}

void PageArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    fit();
}

/// With Ctrl it is the window's, which zooms.
void PageArea::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() & Qt::ControlModifier) {
        event->ignore();
    } else {
        QScrollArea::wheelEvent(event);
    }
}

bool PageArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) fit();
    return QScrollArea::eventFilter(watched, event);
}

/// A bar on one side takes of the room along the other.
void PageArea::fit() {
    const QSize least = widget()->minimumSizeHint();
    QSize room = maximumViewportSize();
    const int bar = verticalScrollBar()->sizeHint().width();
    const bool scrollsDown = least.height() > room.height();
    if (scrollsDown) room.rwidth() -= bar;
    if (least.width() > room.width()) room.rheight() -= bar;
    if (!scrollsDown && least.height() > room.height()) room.rwidth() -= bar;
    widget()->resize(room.expandedTo(least));
}

}  // namespace zelvo::qt
