#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "screen/Desktop.h"
#include "screen/Field.h"
#include "screen/Shortcut.h"

namespace zelvo::screen {

/// A screen with named fields. It is made, loaded at its first touch, shown modally, hidden or unloaded; an
/// unloaded window is not shown again. It owns the tab order, the focus and the count of its running actions.
class Window {
public:
    /// `name` is the class name ("frmMessage"); width and height in twips.
    Window(Desktop& desktop, std::string name, double width, double height);
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    const std::string& name() const { return name_; }
    Desktop& desktop() const { return desktop_; }
    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);

    /// Runs onLoad once, at the first touch.
    void touch();
    Event<> onLoad;

    /// Field by name, nullptr when there is none. Names are told apart by case.
    Field* field(std::string_view name) const;
    const std::vector<Field*>& fields() const { return fields_; }
    /// The named fields first, in this order, then all others as they were made. A name of no field: a Fault.
    void setTabOrder(const std::vector<std::string>& names);
    const std::vector<Field*>& tabOrder() const { return tabOrder_; }

    Field* focus() const { return focus_; }
    /// A Tab move from the field that has the focus: the next field that takes the focus and is reachable, or
    /// would be with its page of a tab control inside the main tab in front (which then comes forward). Wraps
    /// around.
    void moveFocus(bool backward = false);
    /// The same from another field than the one that has the focus.
    void moveFocusBehind(const Field& field) { moveFrom(&field, false); }
    /// The next field behind the one that has the focus, once round, that is wanted and can be had once its
    /// pages have come forward; nullptr when there is none.
    Field* nextField(const std::function<bool(const Field&)>& wanted) const;
    /// The tab control whose pages a Tab move never turns.
    void setMainTabs(const Field* tabs) { mainTabs_ = tabs; }

    /// Shows the window modally; returns when it has been hidden or unloaded and none of its actions runs.
    /// The focus goes to the field that it was given before, else to the first of the tab order. Does nothing
    /// for an unloaded window.
    void showModal();
    bool shown() const { return shown_; }
    /// For toolkits: the window can be seen from here on. What was held until then runs, the grids' first row
    /// events above all.
    void appear();
    bool onGlass() const { return onGlass_; }
    /// Ends the modal run; the window can still be read by its caller.
    void hide();
    /// Ends the modal run, or the life of a window that was never shown or only hidden; onUnload runs once,
    /// when no action of the window runs any more.
    void unload();
    bool unloaded() const { return unloaded_; }
    Event<> onUnload;
    /// True when the modal run is to end: something asked for it, and no action runs.
    bool leaving() const;
    /// True as soon as something asked for that: a wait inside an action looks here. No input is taken any
    /// more.
    bool closing() const { return leaving_ != Leaving::No; }

    /// Whose window it is, where that makes it another one for the eye; before what is remembered of it.
    std::string remembersFor;
    /// Name of a thing to be remembered of the window: "frmDoctorOCSmain size".
    std::string rememberedName(std::string_view what) const;

    /// The size changed, by the user or the toolkit (twips); onResize runs.
    void userResize(double width, double height);
    Event<> onResize;
    /// Sees a key before the fields do; setting it to 0 swallows it.
    Event<int&> onKeyPreview;
    /// A field, or the window itself (nullptr), has something new to show; the latter also when the modal run
    /// is to end.
    Event<Field*> onTouched;

    double left = 0, top = 0;
    /// The field that the window opens at, if it does: a toolkit puts it below a grid's current cell or over
    /// a panel's text, wherever these stand on the glass. Left and top are for a screen without places.
    const Field* openedAt = nullptr;
    double width() const { return width_; }
    double height() const { return height_; }

    /// An input of the user has been worked off, and nothing runs any more.
    Event<> onSettled;

    /// What the user does goes through here: it runs as an action of the window. While another action runs,
    /// it waits until that one has ended (unless the running one takes input, as the wait for a notice's page
    /// does).
    void userInput(std::function<void()> input);
    /// A key of the user or an injected one, for the field that has the focus.
    void userKey(const Key& key);
    /// The listeners' part of a key, for a widget that applies it to the focused field itself: false where
    /// one of them swallowed it, or where no input comes in now.
    bool userKeyHeard(const Key& key);
    /// The user presses a combination of keys; of those that bear it the first that applies is run. False
    /// where none does.
    bool userShortcut(std::string_view keys);
    void addShortcut(Shortcut shortcut) { shortcuts_.push_back(std::move(shortcut)); }
    const std::vector<Shortcut>& shortcuts() const { return shortcuts_; }
    /// The user moves the focus to a field.
    void userFocus(Field& field);
    /// The user wants the window closed: it goes, where it may.
    void userClose();

    /// Counts a running action for as long as it lives. A window is not closed, and takes no further input,
    /// before the count is zero.
    class Action {
    public:
        explicit Action(Window& window);
        ~Action() noexcept(false);
        Action(const Action&) = delete;
        Action& operator=(const Action&) = delete;

    private:
        Window& window_;
        int unwinding_;
    };
    bool busy() const { return actions_ > 0; }
    /// Whether the user's input comes in now.
    bool takesInput() const { return actions_ == 0 || inputAllowed_ > 0; }
    /// While it lives, the running action lets the user's input in.
    class InputAllowed {
    public:
        explicit InputAllowed(Window& window);
        ~InputAllowed();
        InputAllowed(const InputAllowed&) = delete;
        InputAllowed& operator=(const InputAllowed&) = delete;

    private:
        Window& window_;
    };

protected:
    /// Whether the window goes when the user wants it closed. One that would lose what was written asks.
    virtual bool mayClose() { return true; }

private:
    friend class Field;
    enum class Leaving { No, Hide, Unload };
    class InputTurn;
    class ModalRun;

    void registerField(Field& field);
    void forget(Field& field);
    bool has(const Field& field) const;
    void touched(Field* field) { onTouched(field); }
    void open();
    void work(const std::function<void()>& input);
    void runWaiting();
    void finish();
    void dispatch(const Key& key);
    bool heard(Field* field, Key& key);
    void giveFocus(Field& field);
    void moveFrom(const Field* from, bool backward);
    void keepFocus();
    Field* nextFrom(const Field* from, bool backward, const std::function<bool(const Field&)>& wanted) const;
    bool canMoveTo(const Field& field, bool turnsMainTabs) const;
    static void bringForward(const Field& field);

    Desktop& desktop_;
    std::string name_, caption_;
    double width_, height_;
    std::vector<Field*> fields_, tabOrder_;
    std::unordered_map<std::string_view, Field*> byName_;
    Field* focus_ = nullptr;
    bool entered_ = false;  ///< onFocus has run for the field that has the focus
    unsigned focusTurn_ = 0;
    const Field* mainTabs_ = nullptr;
    std::vector<Shortcut> shortcuts_;
    std::deque<std::function<void()>> waiting_;
    /// What runs, and who lets the user's input in meanwhile: it comes in where no action runs, or where the
    /// latest one lets it. Each guard changes the two for as long as it lives:
    ///
    ///                   actions_   inputAllowed_   input then
    ///     nothing           0            0         comes in
    ///     Action           +1                      waits, unless it was let in before
    ///     InputTurn        +1            0         waits, whatever was let in before
    ///     InputAllowed                  +1         comes in
    ///     ModalRun          0            0         comes in, whatever ran before
    int actions_ = 0, inputAllowed_ = 0;
    bool loaded_ = false, shown_ = false, onGlass_ = false, unloaded_ = false;
    Leaving leaving_ = Leaving::No;
};

}  // namespace zelvo::screen
