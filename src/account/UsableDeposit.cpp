#include "account/UsableDeposit.h"

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
    const std::optional<std::int64_t> won = asked ? usable() : std::nullopt;
    if (won) {
        lblUsableDeposit.setCaption(
            "사용 가능: " +
            basics::formatNumber(static_cast<double>(*won), basics::NumberPicture::SeparatedZero) + "원");
    }
    lblUsableDeposit.setVisible(won.has_value());
}

/// Nothing when a sum can't be read: then the send tells it.
std::optional<std::int64_t> UsableDeposit::usable() const {
    data::clsZELVOStockmoney ledger;
    std::int32_t deposits = 0, mileage = 0, used = 0;
    data::Connection& connection = session_.connection();
    const std::int32_t doctor = session_.m_DTRPK;
    const bool read = ledger.ZELVO_StockMoney(connection, deposits, doctor, "S", "", "") &&
                      ledger.ZELVO_StockMoney(connection, mileage, doctor, "M", "", "") &&
                      ledger.ZELVO_CBJcostSum(connection, used, doctor, "적립", "", "", "");
    if (!read) return std::nullopt;
    return std::int64_t{deposits} - used + mileage;
}

}  // namespace zelvo::account
