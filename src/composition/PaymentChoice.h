#pragma once

#include <string>
#include <string_view>

#include "composition/OrderFrames.h"
#include "composition/OrderWatch.h"
#include "screen/Fields.h"

namespace zelvo::composition {

/// What a doctor may pay with.
struct ValidPay {
    bool deposit = false, later = false, settled = false;
};

/// Reads DTR_ValidPay: its first, second and last character as they stand, each "1" for yes.
ValidPay validPay(std::string_view DTR_ValidPay);

/// What the doctor may pay with, and the choice.
class PaymentChoice {
public:
    PaymentChoice(screen::Window& form, OrderFrames& frames, OrderWatch& watch);

    screen::ComboList cboPaymentMethod;

    /// Offers these methods and selects the first of them.
    void offer(const ValidPay& valid);

private:
    OrderWatch& watch_;
    std::string m_LastPayMethod;
};

}  // namespace zelvo::composition
