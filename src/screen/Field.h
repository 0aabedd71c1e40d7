#pragma once

#include <functional>
#include <string>

#include "screen/Event.h"
#include "screen/Key.h"

namespace zelvo::screen {

class Window;
class Field;

enum class FieldKind {
    Text,
    Label,
    Combo,
    List,
    Check,
    Option,
    Button,
    TwoState,
    Panel,
    Tabs,
    Status,
    Grid,
    Date,
    RichText,
    Web,
    Picture
};

/// Where a field stands: in the window itself, in a panel, or on a page of a tab control.
struct Place {
    Field* holder = nullptr;
    int page = -1;
};

struct Color {
    int red = 0, green = 0, blue = 0;
    bool operator==(const Color&) const = default;
};

/// A named field of a window. It holds its state itself and needs no toolkit: a toolkit draws what it holds
/// (told by Window::onTouched) and feeds it what the user does (the user... operations).
class Field {
public:
    /// Registers the field with its window under its name ("txtChubsu", "ssoSex(0)").
    Field(Window& window, std::string name, FieldKind kind, Place place);
    virtual ~Field();
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;

    const std::string& name() const { return name_; }
    FieldKind kind() const { return kind_; }
    Window& window() const { return window_; }
    const Place& place() const { return place_; }

    /// The field's own property, wherever its holders stand.
    bool visible() const { return visible_; }
    void setVisible(bool visible);
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    /// True when the user can see it: itself and all holders visible, their pages in front.
    bool shown() const;
    /// True when the user can reach it: shown, itself and all holders enabled.
    bool reachable() const;

    /// Gives the field the focus as the logic does: the pages that it stands on come forward, the former
    /// field is left, onFocus runs once the field has it. Nothing happens for a field that has it or that
    /// can't take it.
    void setFocus();
    bool hasFocus() const;
    /// Whether a Tab move stops here. Labels, panels, tab controls, pictures and the status bar never take
    /// the focus.
    virtual bool takesFocus() const;
    bool tabStop() const { return tabStop_ && !(passedOver && passedOver()); }
    void setTabStop(bool stop) { tabStop_ = stop; }

    /// Whether a Tab move passes the field over as the window stands; none is a stop always.
    std::function<bool()> passedOver;

    const std::string& tipText() const { return tipText_; }
    void setTipText(std::string text);
    /// The words that name the field for a reader of the screen; the label in front of it.
    const std::string& label() const { return label_; }
    void setLabel(std::string label);

    /// Place on the glass in twips, fed back by the toolkit; 0 in the console.
    double left = 0, top = 0, width = 0, height = 0;

    Event<> onFocus;
    Event<> onLostFocus;
    /// A key goes down (its code), then is typed (its character; Enter 13, Backspace 8, Esc 27). Setting it
    /// to 0 swallows it.
    Event<int&> onKeyDown;
    Event<char32_t&> onKeyPress;

    /// The field's own handling of a key that no listener swallowed, character included.
    virtual void applyKey(const Key& key);
    /// The field is about to lose the focus (a pending edit ends here).
    virtual void leave() {}
    /// The window opens: what its user has made of the field before is taken up.
    virtual void recall() {}

protected:
    /// Tells the toolkit that something it shows has changed.
    void touch();
    /// The user clicks the field: it takes the focus, then `act` runs, unless the focus went elsewhere or the
    /// field can't be reached any more. One action of the window.
    void userClicks(std::function<void()> act);

private:
    bool onPageInFront() const;

    Window& window_;
    std::string name_;
    FieldKind kind_;
    Place place_;
    bool visible_ = true, enabled_ = true, tabStop_ = true;
    std::string tipText_, label_;
};

}  // namespace zelvo::screen
