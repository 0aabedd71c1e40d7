#pragma once

#include <functional>

#include "composition/OrderWatch.h"
#include "management/OrderDetail.h"
#include "ordering/OrderDraft.h"

namespace zelvo::management {

/// Makes the order in view, whatever has become of it, the starting point of a new one: what was composed
/// then, at today's prices, for the patient who stands on the order tab now.
class OrderReuse {
public:
    /// `showOrderTab` brings the tab forward on which the new order then stands.
    OrderReuse(screen::Window& form, OrderDetail& detail, ordering::OrderDraft& draft,
               composition::OrderWatch& watch, std::function<void()> showOrderTab);

private:
    void Reuse_Order();
    void Copy_CBJmToComposition();
    void copySheet();
    void copyDose();
    void copyHerbs();
    bool allOffered() const;

    screen::Window& form_;
    OrderDetail& detail_;
    ordering::OrderDraft& draft_;
    composition::OrderWatch& watch_;
    std::function<void()> showOrderTab_;
};

}  // namespace zelvo::management
