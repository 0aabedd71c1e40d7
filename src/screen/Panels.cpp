#include <utility>

#include "screen/Fields.h"
#include "screen/Window.h"

// Labels, panels, tab controls and what else only shows: status bar, date, web view, picture.
namespace zelvo::screen {

Label::Label(Window& window, std::string name, Place place, std::string caption)
    : Field(window, std::move(name), FieldKind::Label, place), caption_(std::move(caption)) {}

void Label::setCaption(std::string_view caption) {
    if (caption == caption_) return;
    caption_ = caption;
    touch();
}

Panel::Panel(Window& window, std::string name, Place place, std::string caption)
    : Field(window, std::move(name), FieldKind::Panel, place), caption_(std::move(caption)) {}

void Panel::setCaption(std::string_view caption) {
    if (caption == caption_) return;
    caption_ = caption;
    touch();
}

void Panel::setBackColor(Color color) {
    if (color == backColor_) return;
    backColor_ = color;
    touch();
}

TabControl::TabControl(Window& window, std::string name, std::vector<std::string> captions, Place place)
    : Field(window, std::move(name), FieldKind::Tabs, place) {
    for (std::string& caption : captions) pages_.push_back({std::move(caption)});
}

void TabControl::select(int page) {
    checkedIndex(page, pages_.size());
    if (page == current_) return;
    current_ = page;
    touch();
}

void TabControl::setSelectable(int page, bool selectable) {
    bool& can = pages_[checkedIndex(page, pages_.size())].selectable;
    if (can == selectable) return;
    can = selectable;
    touch();
}

bool TabControl::userClick(int page) {
    if (page < 0 || page >= pageCount() || !selectable(page) || !reachable()) return false;
    window().userInput([this, page] {
        if (!selectable(page) || !reachable()) return;
        // A tab takes no focus, but a click on it ends what was being edited, as a click on any other field
        // would.
        if (Field* edited = window().focus()) edited->leave();
        if (!selectable(page) || !reachable() || window().closing()) return;
        select(page);
        onClick();
    });
    return true;
}

StatusBar::StatusBar(Window& window, std::string name, Place place)
    : Field(window, std::move(name), FieldKind::Status, place) {}

void StatusBar::setPanel(int number, std::string_view text) {
    std::string& panel = panels_[checkedIndex(number - 1, panels_.size())];
    if (panel == text) return;
    panel = text;
    touch();
}

DateField::DateField(Window& window, std::string name, Place place)
    : Field(window, std::move(name), FieldKind::Date, place) {}

void DateField::setValue(const basics::Date& value) {
    if (value == value_) return;
    value_ = value;
    touch();
    onChange();
}

void DateField::userSetValue(const basics::Date& value) {
    if (!basics::isValid(value)) return;
    userClicks([this, value] { setValue(value); });
}

WebView::WebView(Window& window, std::string name, Place place)
    : Field(window, std::move(name), FieldKind::Web, place) {}

void WebView::navigate(std::string_view address) {
    address_ = address;
    touch();
    if (driveNavigation) driveNavigation(address_);
}

void WebView::stop() {
    if (driveStop) driveStop();
}

void WebView::userFollow(std::string_view address) {
    userClicks([this, link = std::string(address)] { window().desktop().openBrowser(link); });
}

Picture::Picture(Window& window, std::string name, Place place)
    : Field(window, std::move(name), FieldKind::Picture, place) {}

}  // namespace zelvo::screen
