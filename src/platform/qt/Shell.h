#pragma once

#include <QtCore/QSize>
#include <QtWidgets/QWidget>
#include <memory>

#include "platform/qt/Binder.h"
#include "platform/qt/MenuLetters.h"
#include "platform/qt/Readers.h"
#include "platform/qt/ZoomedForm.h"
#include "screen/WindowExtent.h"

class QScreen;
class QScrollArea;

namespace zelvo::qt {

/// The screen of this program's window in front, else the first one.
QScreen& screenInFront();

/// The window on the glass: a title bar round a form, bound to a window of the screen model for as long as
/// that is shown.
class Shell : public QWidget {
    Q_OBJECT

public:
    /// `over` is the window that it opens from, nullptr for the first.
    Shell(screen::Window& window, Shell* over);
    ~Shell() override;

    screen::Window& window() const { return window_; }
    Binder& binder() const { return *binder_; }
    /// Puts it on the screen, where its window wants to stand.
    void open();
    /// Takes it off the screen; its size is remembered where the user has changed it.
    void putAway();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void zoom();
    void tellPlaces();
    QPoint wantedCorner(const Shell* over) const;
    double sizeZoom() const;
    screen::WindowExtent extent() const;

    std::unique_ptr<Readers> readers_;          ///< the first window's, for all that open from it
    std::unique_ptr<MenuLetters> menuLetters_;  ///< likewise
    screen::Window& window_;
    Shell* over_;
    QScrollArea& scroll_;
    std::unique_ptr<Binder> binder_;
    std::unique_ptr<ZoomedForm> zoomed_;
    QSize told_;
    screen::WindowExtent opened_;
    screen::Event<screen::Field*>::Subscription whenTouched_;
    screen::Event<>::Subscription whenZoomed_;
};

}  // namespace zelvo::qt
