#include <utility>

#include "screen/Fields.h"
#include "screen/Window.h"

// Combo lists and item lists.
namespace zelvo::screen {

namespace {

/// The entry that an arrow key goes to; -1 for another key or past the ends.
int neighbour(int code, int selected, int count) {
    if (code == keys::down && selected + 1 < count) return selected + 1;
    if (code == keys::up && selected > 0) return selected - 1;
    return -1;
}

}  // namespace

ComboList::ComboList(Window& window, std::string name, Place place)
    : Field(window, std::move(name), FieldKind::Combo, place) {}

void ComboList::addEntry(std::string_view entry) {
    entries_.emplace_back(entry);
    touch();
}

void ComboList::clear() {
    entries_.clear();
    selected_ = -1;
    touch();
}

std::string ComboList::text() const {
    return selected_ < 0 ? std::string() : entry(selected_);
}

void ComboList::select(int index) {
    if (index != -1) checkedIndex(index, entries_.size());
    selected_ = index;
    touch();
    if (index != -1) onSelect();
}

void ComboList::userSelect(int index) {
    userClicks([this, index] {
        if (index >= 0 && index < entryCount()) select(index);
    });
}

void ComboList::applyKey(const Key& key) {
    const int next = neighbour(key.code, selected_, entryCount());
    if (next >= 0) select(next);
}

ItemList::ItemList(Window& window, std::string name, Place place)
    : Field(window, std::move(name), FieldKind::List, place) {}

void ItemList::addItem(std::string_view text) {
    items_.push_back({std::string(text)});
    touch();
}

void ItemList::clear() {
    items_.clear();
    selected_ = -1;
    touch();
}

void ItemList::setItemChecked(int index, bool checked) {
    bool& mark = items_[checkedIndex(index, items_.size())].checked;
    if (mark == checked) return;
    mark = checked;
    touch();
}

void ItemList::select(int index) {
    if (index != -1) checkedIndex(index, items_.size());
    if (index == selected_) return;
    selected_ = index;
    touch();
}

void ItemList::userClick(int index) {
    userClicks([this, index] {
        if (index < 0 || index >= itemCount()) return;
        select(index);
        onItemClick(index);
    });
}

void ItemList::applyKey(const Key& key) {
    const int next = neighbour(key.code, selected_, itemCount());
    if (next < 0) return;
    select(next);
    onItemClick(next);
}

}  // namespace zelvo::screen
