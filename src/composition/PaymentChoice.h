#pragma once

#include <string>
#include <string_view>

#include "composition/OrderFrames.h"
#include "composition/OrderWatch.h"
#include "screen/Fields.h"

namespace zelvo::composition {

/// What the doctor may pay with, and the choice.
class PaymentChoice {
public:
    PaymentChoice(screen::Window& form, OrderFrames& frames, OrderWatch& watch);

    screen::ComboList cboPaymentMethod;

private:
    OrderWatch& watch_;
    std::string m_LastPayMethod;
};

}  // namespace zelvo::composition
