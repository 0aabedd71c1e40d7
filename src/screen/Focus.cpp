#include <algorithm>
#include <functional>
#include <utility>

#include "basics/Fault.h"
#include "screen/Fields.h"
#include "screen/Window.h"

// The focus of a window and its tab order.
namespace zelvo::screen {

void Window::setTabOrder(const std::vector<std::string>& names) {
    std::vector<Field*> order, seen;  // the second one sorted
    order.reserve(fields_.size());
    seen.reserve(fields_.size());
    const auto append = [&](Field* next) {
        const auto at = std::lower_bound(seen.begin(), seen.end(), next, std::less<>());
        if (at != seen.end() && *at == next) return;
        seen.insert(at, next);
        order.push_back(next);
    };
    for (const std::string& name : names) {
        Field* const named = field(name);
        if (!named) throw basics::Fault(name_ + " has no such field: " + name);
        append(named);
    }
    for (Field* other : fields_) append(other);
    tabOrder_ = std::move(order);
}

void Window::moveFocus(bool backward) {
    moveFrom(focus_, backward);
}

void Window::moveFrom(const Field* from, bool backward) {
    Field* const next = nextFrom(from, backward, [this](const Field& field) {
        return field.takesFocus() && canMoveTo(field, false) && field.tabStop();
    });
    if (next) giveFocus(*next);
}

/// The keys are always somebody's: where the field that had them went out of reach, like a button that its
/// press has hidden, they go on to the next that is in reach.
void Window::keepFocus() {
    if (!shown_ || (focus_ && focus_->reachable())) return;
    const Action moving(*this);
    Field* const next = nextFrom(focus_, false, [](const Field& field) {
        return field.takesFocus() && field.tabStop() && field.reachable();
    });
    if (next) giveFocus(*next);
}

Field* Window::nextField(const std::function<bool(const Field&)>& wanted) const {
    return nextFrom(focus_, false, [&](const Field& field) {
        return field.takesFocus() && canMoveTo(field, true) && wanted(field);
    });
}

/// The field itself comes last. Without one the search comes in from outside: at the first field, or back
/// from the last.
Field* Window::nextFrom(const Field* from, bool backward,
                        const std::function<bool(const Field&)>& wanted) const {
    const std::size_t count = tabOrder_.size();
    const auto at = std::find(tabOrder_.begin(), tabOrder_.end(), from);
    std::size_t position = static_cast<std::size_t>(at - tabOrder_.begin());
    if (at == tabOrder_.end()) position = backward ? 0 : count - 1;
    for (std::size_t step = 0; step < count; ++step) {
        position = (position + (backward ? count - 1 : 1)) % count;
        if (wanted(*tabOrder_[position])) return tabOrder_[position];
    }
    return nullptr;
}

/// Whether the focus can go to a field: it and its holders visible and enabled, its pages in front or to be
/// turned to.
bool Window::canMoveTo(const Field& field, bool turnsMainTabs) const {
    for (const Field* at = &field; at; at = at->place().holder) {
        if (!at->visible() || !at->enabled()) return false;
        const auto [holder, page] = at->place();
        if (!holder || holder->kind() != FieldKind::Tabs || page < 0) continue;
        const auto* tabs = static_cast<const TabControl*>(holder);
        if (tabs->current() == page) continue;
        if ((tabs == mainTabs_ && !turnsMainTabs) || !tabs->selectable(page)) return false;
    }
    return true;
}

void Window::bringForward(const Field& field) {
    for (const Field* at = &field; at->place().holder; at = at->place().holder) {
        const auto [holder, page] = at->place();
        if (holder->kind() == FieldKind::Tabs && page >= 0) static_cast<TabControl*>(holder)->select(page);
    }
}

/// The new field has the focus before the former one is told, so that a handler's own move, made at any point
/// of this, is the later one and stands.
void Window::giveFocus(Field& field) {
    if ((focus_ == &field && (entered_ || !shown_)) || !field.takesFocus() || !canMoveTo(field, true)) return;
    if (shown_ && closing()) return;
    Field* const former = std::exchange(focus_, &field);
    const bool formerEntered = std::exchange(entered_, false) && former;
    const unsigned turn = ++focusTurn_;
    const auto stands = [&] { return turn == focusTurn_ && focus_ == &field && !closing(); };
    if (formerEntered) {
        touched(former);
        former->leave();
        if (focus_ != former && has(*former)) former->onLostFocus();
        if (!stands()) return;
    }
    bringForward(field);
    touched(&field);
    if (!shown_ || !stands()) return;
    entered_ = true;
    field.onFocus.runWhile(stands);
}

}  // namespace zelvo::screen
