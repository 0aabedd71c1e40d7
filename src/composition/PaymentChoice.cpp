#include "composition/PaymentChoice.h"

namespace zelvo::composition {

PaymentChoice::PaymentChoice(screen::Window& form, OrderFrames& frames, OrderWatch& watch)
    : cboPaymentMethod(form, "cboPaymentMethod", frames.c1eSendmain.inside()), watch_(watch) {
    cboPaymentMethod.setLabel("지불방식:");
    cboPaymentMethod.onSelect.add([this] {
        const std::string method = cboPaymentMethod.text();
        if (method == m_LastPayMethod) return;
        m_LastPayMethod = method;
        watch_.priceOutdated();
    });
}

}  // namespace zelvo::composition
