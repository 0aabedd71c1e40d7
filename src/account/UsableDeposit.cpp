#include "account/UsableDeposit.h"

#include <optional>

#include "basics/Pictures.h"
#include "data/Words.h"
#include "data/clsZELVOStockmoney.h"
#include "screen/Window.h"

namespace zelvo::account {

UsableDeposit::UsableDeposit(screen::Window& form, composition::OrderFrames& frames,
                             session::Session& session, composition::PaymentChoice& payment)
    : lblUsableDeposit(form, "lblUsableDeposit", frames.c1eSendmain.inside()),
      form_(form),
      session_(session),
      payment_(payment) {
    lblUsableDeposit.setVisible(false);
    lblUsableDeposit.setTipText("현재 사용 가능한 적립금 [A-B+C]");
    payment_.cboPaymentMethod.onSelect.add([this] { show(); });
    payment_.cboPaymentMethod.onFocus.add([this] { show(); });
}

/// Reckoned when the doctor comes to the choice: nothing is read on the way to the window's first sight.
void UsableDeposit::show() {
    const bool asked = form_.onGlass() && session_.m_DTRPK != 0 && session_.g_conYakGuk != nullptr &&
                       payment_.cboPaymentMethod.text() == data::pay::deposit;
    const std::optional<std::int64_t> won =
        asked ? data::clsZELVOStockmoney().usable(session_.connection(), session_.m_DTRPK) : std::nullopt;
    if (won) {
        lblUsableDeposit.setCaption(
            "사용 가능: " +
            basics::formatNumber(static_cast<double>(*won), basics::NumberPicture::SeparatedZero) + "원");
    }
    lblUsableDeposit.setVisible(won.has_value());
}

}  // namespace zelvo::account
