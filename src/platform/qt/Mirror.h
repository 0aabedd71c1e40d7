#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <functional>
#include <vector>

#include "screen/Field.h"

class QEvent;
class QKeyEvent;
class QWidget;

namespace zelvo::qt {

/// A widget in front of a field: it draws what the field holds and feeds it what the user does.
class Mirror : public QObject {
public:
    Mirror(screen::Field& field, QWidget& widget);

    screen::Field& field() const { return field_; }
    QWidget& widget() const { return widget_; }

    /// Draws everything anew.
    void show();
    /// Whether the widget applies this key by itself, with its own caret, list or calendar, once the field's
    /// listeners have let it pass. All other keys are the field's.
    virtual bool ownKey(const QKeyEvent& key) const;
    /// A key that the screen model has no word for (copy, undo, a word to the left); true when it is done
    /// here and does not go on to the widget.
    virtual bool specialKey(const QKeyEvent& key);
    /// Any other event of the widget or of what stands in it, before they see it; true when it ends here.
    virtual bool filter(QWidget& target, QEvent& event);

    /// Whether the field waits to be drawn.
    bool waits = false;
    /// Whether the user could press it when the glass was last drawn.
    bool pressable = false;
    /// The form's words around the field (its caption, its unit): they come and go with it.
    std::vector<QWidget*> words;
    /// What the form says in the field's place while that is not there.
    QWidget* hint = nullptr;

protected:
    virtual void draw() = 0;
    /// True while the mirror itself changes the widget.
    bool drawing() const { return drawing_; }
    /// The user did something: the field has it, then the keys that the logic has sent are delivered. Nothing
    /// while the mirror itself changes the widget.
    void userDoes(const std::function<void()>& act);
    QString tip() const;

private:
    screen::Field& field_;
    QWidget& widget_;
    bool drawing_ = false;
};

}  // namespace zelvo::qt
