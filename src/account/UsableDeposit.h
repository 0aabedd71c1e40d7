#pragma once

#include "composition/PaymentChoice.h"
#include "screen/Fields.h"
#include "session/Session.h"

namespace zelvo::account {

/// What the doctor can still pay with, beside the choice of the pay method while it stands on the deposit:
/// known before the price is asked for, and not only when the order is refused.
class UsableDeposit {
public:
    UsableDeposit(screen::Window& form, composition::OrderFrames& frames, session::Session& session,
                  composition::PaymentChoice& payment);

    screen::Label lblUsableDeposit;

    /// The figure may be out of date, or another doctor's: it goes until the doctor comes to the choice
    /// again.
    void forget() { lblUsableDeposit.setVisible(false); }

private:
    void show();

    screen::Window& form_;
    session::Session& session_;
    composition::PaymentChoice& payment_;
};

}  // namespace zelvo::account
