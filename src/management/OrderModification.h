#pragma once

#include <string>

#include "account/BalanceView.h"
#include "data/clsZELVORecordSet.h"
#include "management/OrderDetail.h"
#include "ordering/CostAnswer.h"
#include "ordering/CostConfirmation.h"
#include "session/Session.h"

namespace zelvo::management {

/// Changes an order that still waits: who gets it, where it goes and how, who sent it, its message and its
/// sheet. The switch opens the panel for editing, the button stores; another delivery method has its price
/// asked for first.
class OrderModification {
public:
    OrderModification(screen::Window& form, session::Session& session, OrderDetail& detail,
                      ordering::CostConfirmation& price, account::BalanceView& balance);

private:
    void Begin_CBJmUpdate(bool Value);
    void Save_CBJmUpdate();
    void save();
    bool ageIsSound();
    bool textsFit(const data::CBJmUpdate& row);
    void tell(data::CommitOutcome outcome, bool CostChanged);
    bool Request_CostUpdate(data::CBJmUpdate& row, const data::CBJmState& order);
    std::string askPage(const data::CBJmUpdate& row, const data::CBJmState& order) const;
    void showCosts(const ordering::CostAnswer& answer);
    static void takeCosts(data::CBJmUpdate& row, const ordering::CostAnswer& answer);
    void take(data::CBJmUpdate& row) const;

    screen::Window& form_;
    session::Session& session_;
    OrderDetail& detail_;
    ordering::CostConfirmation& price_;
    account::BalanceView& balance_;
};

}  // namespace zelvo::management
