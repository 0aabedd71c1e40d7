#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <memory>
#include <vector>

#include "platform/qt/Mirror.h"
#include "screen/Event.h"

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;
class QWidget;

namespace zelvo::screen {
class TabControl;
class Window;
}  // namespace zelvo::screen

namespace zelvo::qt {

/// Hangs a form in front of a window: each field gets the mirror of its kind on the widget of its name. What
/// the fields touch is drawn when the running event has ended; what the user does to a widget goes to its
/// field, keys before the widget sees them.
class Binder : public QObject {
public:
    /// Throws Fault where a field has no widget in the form.
    Binder(screen::Window& window, QWidget& form);

    /// Draws what waits, now.
    void flush();
    /// Tells the fields where they stand in the window (twips).
    void tellPlaces();
    /// The widget of a field.
    QWidget* widgetOf(const screen::Field& field) const;
    /// A turn of the wheel with Ctrl held zooms; true for one.
    bool turnsZoom(const QWheelEvent& event);

    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void watch(QWidget& widget, Mirror& mirror);
    void touched(screen::Field* field);
    void schedule();
    bool newToPress();
    void showFocus();
    bool keyDown(Mirror* mirror, QKeyEvent& event);
    bool repeatsAPress(const QKeyEvent& event) const;
    bool isShortcut(const QKeyEvent& event);
    bool turnsPage(const QKeyEvent& event);
    bool mouseDown(Mirror& mirror);
    void focusIn(const Mirror& mirror, const QEvent& event);
    screen::TabControl* mainTabs() const;

    screen::Window& window_;
    QWidget& form_;
    std::vector<std::unique_ptr<Mirror>> mirrors_;
    QHash<const screen::Field*, Mirror*> byField_;
    QHash<const QObject*, Mirror*> byWidget_;
    std::vector<Mirror*> waiting_;
    QPointer<QObject> swallowed_;  ///< the rest of a click that only gave the focus
    int turned_ = 0;               ///< of the wheel, towards the next step
    bool scheduled_ = false, focusing_ = false;
    screen::Event<screen::Field*>::Subscription whenTouched_;
};

}  // namespace zelvo::qt
