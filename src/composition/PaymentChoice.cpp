#include "composition/PaymentChoice.h"

#include "basics/Utf8.h"
#include "data/Words.h"

namespace zelvo::composition {

ValidPay validPay(std::string_view DTR_ValidPay) {
    const std::size_t count = basics::characterCount(DTR_ValidPay);
    const auto isSet = [DTR_ValidPay, count](std::size_t index) {
        return index < count && basics::part(DTR_ValidPay, index, 1) == "1";
    };
    return {.deposit = isSet(0), .later = isSet(1), .settled = count > 0 && isSet(count - 1)};
}

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

void PaymentChoice::offer(const ValidPay& valid) {
    cboPaymentMethod.clear();
    if (valid.deposit) cboPaymentMethod.addEntry(data::pay::deposit);
    if (valid.later) cboPaymentMethod.addEntry(data::pay::later);
    if (valid.settled) cboPaymentMethod.addEntry(data::pay::settled);
    if (cboPaymentMethod.entryCount() > 0) cboPaymentMethod.select(0);
}

}  // namespace zelvo::composition
