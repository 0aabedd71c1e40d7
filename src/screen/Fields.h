#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "basics/Dates.h"
#include "screen/Field.h"
#include "screen/Index.h"

namespace zelvo::screen {

class Label : public Field {
public:
    Label(Window& window, std::string name, Place place = {}, std::string caption = {});
    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);

private:
    std::string caption_;
};

/// A fixed list from which one entry is chosen; the text is the chosen entry's, "" when none is.
class ComboList : public Field {
public:
    ComboList(Window& window, std::string name, Place place = {});
    void addEntry(std::string_view entry);
    /// Empties the list; nothing is selected then and no event runs.
    void clear();
    int entryCount() const { return static_cast<int>(entries_.size()); }
    const std::string& entry(int index) const { return entries_[checkedIndex(index, entries_.size())]; }
    int selectedIndex() const { return selected_; }
    std::string text() const;
    /// Selects an entry, by the user or the program alike: onSelect runs, also for the entry that was
    /// selected. -1 selects none, without an event.
    void select(int index);
    /// The user picks an entry: it takes the focus first.
    void userSelect(int index);
    void applyKey(const Key& key) override;

    Event<> onSelect;

private:
    std::vector<std::string> entries_;
    int selected_ = -1;
};

/// Items with text and a check mark each. Items count from 0; an index that counts none throws Fault, as in
/// all lists.
class ItemList : public Field {
public:
    ItemList(Window& window, std::string name, Place place = {});
    void addItem(std::string_view text);
    void clear();
    int itemCount() const { return static_cast<int>(items_.size()); }
    const std::string& item(int index) const { return items_[checkedIndex(index, items_.size())].text; }
    bool itemChecked(int index) const { return items_[checkedIndex(index, items_.size())].checked; }
    void setItemChecked(int index, bool checked);
    int selectedIndex() const { return selected_; }
    void select(int index);
    /// The user clicks an item: it is selected, and onItemClick runs.
    void userClick(int index);
    void applyKey(const Key& key) override;

    Event<int> onItemClick;

private:
    struct Item {
        std::string text;
        bool checked = false;
    };
    std::vector<Item> items_;
    int selected_ = -1;
};

/// onClick runs whenever the value really changes, by the user or the program.
class CheckButton : public Field {
public:
    CheckButton(Window& window, std::string name, Place place = {}, std::string caption = {});
    bool value() const { return value_; }
    void setValue(bool value);
    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);
    void userClick();
    void applyKey(const Key& key) override;

    Event<> onClick;

private:
    std::string caption_;
    bool value_ = false;
};

/// Of the option buttons of one array ("ssoSex(0)", "ssoSex(1)") at most one is set; all can be left unset.
class OptionButton : public Field {
public:
    OptionButton(Window& window, std::string name, Place place = {}, std::string caption = {});
    bool value() const { return value_; }
    /// Setting one unsets the others of its array; onClick runs on the one that became set.
    void setValue(bool value);
    const std::string& caption() const { return caption_; }
    void userClick();
    void applyKey(const Key& key) override;

    Event<> onClick;

private:
    /// The name of its array.
    std::string_view group() const;
    void unsetOthers();

    std::string caption_;
    bool value_ = false;
};

class Button : public Field {
public:
    Button(Window& window, std::string name, Place place = {}, std::string caption = {});
    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);
    const Color& textColor() const { return textColor_; }
    void setTextColor(Color color);
    /// The user clicks it: it takes the focus, then onPress runs.
    void userPress();
    void applyKey(const Key& key) override;

    Event<> onPress;

private:
    std::string caption_;
    Color textColor_;
};

/// A button that stays down: onToggle comes on the way down and on the way up.
class TwoStateButton : public Field {
public:
    TwoStateButton(Window& window, std::string name, Place place = {}, std::string caption = {});
    bool value() const { return value_; }
    /// onToggle runs when and only when the value really changes.
    void setValue(bool value);
    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);
    /// Draws the button anew at once.
    void repaint();
    /// The user clicks it: it takes the focus, then its value turns.
    void userPress();
    void applyKey(const Key& key) override;

    Event<> onToggle;

private:
    std::string caption_;
    bool value_ = false;
};

/// Uses a two-state button as a press button: `act` runs on the way down only, after the button has been
/// released and repainted, so that the change of value can't run it twice.
void usePressed(TwoStateButton& button, std::function<void()> act);

class Panel : public Field {
public:
    Panel(Window& window, std::string name, Place place = {}, std::string caption = {});
    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);
    const Color& backColor() const { return backColor_; }
    void setBackColor(Color color);
    Place inside() { return {this, -1}; }

private:
    std::string caption_;
    Color backColor_{240, 240, 240};
};

/// Pages count from 0. onClick is the user's click on a tab, also on the one in front; a page that the
/// program selects brings no click.
class TabControl : public Field {
public:
    TabControl(Window& window, std::string name, std::vector<std::string> captions, Place place = {});
    int pageCount() const { return static_cast<int>(pages_.size()); }
    const std::string& pageCaption(int page) const {
        return pages_[checkedIndex(page, pages_.size())].caption;
    }
    int current() const { return current_; }
    void select(int page);
    bool selectable(int page) const { return pages_[checkedIndex(page, pages_.size())].selectable; }
    void setSelectable(int page, bool selectable);
    Place page(int index) { return {this, index}; }
    /// The user clicks a tab; false when it is not selectable.
    bool userClick(int page);

    Event<> onClick;

private:
    struct Page {
        std::string caption;
        bool selectable = true;
    };
    std::vector<Page> pages_;
    int current_ = 0;
};

/// Three panels, numbered from 1.
class StatusBar : public Field {
public:
    StatusBar(Window& window, std::string name, Place place = {});
    const std::string& panel(int number) const { return panels_[checkedIndex(number - 1, panels_.size())]; }
    void setPanel(int number, std::string_view text);

private:
    std::array<std::string, 3> panels_;
};

class DateField : public Field {
public:
    DateField(Window& window, std::string name, Place place = {});
    const basics::Date& value() const { return value_; }
    /// "yyyy-mm-dd"
    std::string text() const { return basics::dateText(value_); }
    void setValue(const basics::Date& value);
    void userSetValue(const basics::Date& value);

    Event<> onChange;

private:
    basics::Date value_;
};

/// An embedded web view. The toolkit hangs its own navigation behind it and reports how the page came out.
class WebView : public Field {
public:
    WebView(Window& window, std::string name, Place place = {});
    void navigate(std::string_view address);
    void stop();
    const std::string& address() const { return address_; }
    /// The user clicks a link of the page: it opens in the system's browser.
    void userFollow(std::string_view address);

    /// What the toolkit does at a navigation and at a stop.
    std::function<void(const std::string&)> driveNavigation;
    std::function<void()> driveStop;
    Event<> onFinished;
    Event<> onFailed;

private:
    std::string address_;
};

class Picture : public Field {
public:
    Picture(Window& window, std::string name, Place place = {});
};

}  // namespace zelvo::screen
