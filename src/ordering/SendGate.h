#pragma once

#include "composition/OrderFrames.h"
#include "composition/OrderWatch.h"
#include "screen/Event.h"
#include "screen/Fields.h"

namespace zelvo::ordering {

/// The send button stands only for an order whose price has been confirmed and is unchanged since.
class SendGate : public composition::OrderWatch {
public:
    SendGate(screen::Window& form, composition::OrderFrames& frames);

    screen::TwoStateButton ssrCBJSend;

    /// True between a passed check of the order and its next change.
    bool costConfirmed() const { return m_CostConfirmed; }
    /// Opens or shuts the gate: the flag and the button's visibility.
    void Set_CostConfirmed(bool flag);
    /// The gate was set, open or shut.
    screen::Event<> onSet;
    /// The order has passed its checks and its price is being asked for: the flag stands, the button does
    /// not. A change meanwhile takes the flag back.
    void checksPassed() { m_CostConfirmed = true; }
    void priceOutdated() override { Set_CostConfirmed(false); }

private:
    bool m_CostConfirmed = false;
};

}  // namespace zelvo::ordering
