#pragma once

#include <vector>

#include "ordering/CostConfirmation.h"
#include "ordering/OrderDraft.h"
#include "ordering/SendGate.h"
#include "screen/Window.h"

namespace zelvo::ordering {

/// The way past what is filled in already: a key (F10) that takes the keyboard to the next field of the order
/// which waits for something.
class NextField {
public:
    NextField(screen::Window& form, const OrderDraft& draft, const CostConfirmation& cost,
              const SendGate& gate);

private:
    std::vector<const screen::Field*> openFields() const;
    screen::Field* next() const;

    screen::Window& form_;
    const OrderDraft& draft_;
    const CostConfirmation& cost_;
    const SendGate& gate_;
};

}  // namespace zelvo::ordering
