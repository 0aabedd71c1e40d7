#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "account/BalanceView.h"
#include "ordering/ChartRecord.h"
#include "ordering/CostConfirmation.h"
#include "ordering/KeptBoxes.h"
#include "ordering/OrderDraft.h"
#include "ordering/SendGate.h"
#include "ordering/SendTrace.h"
#include "screen/Event.h"
#include "screen/Fields.h"

namespace zelvo::ordering {

/// The send: the order on the screen becomes rows of the pharmacy's database, in one transaction, and the
/// chart is told.
class OrderSend {
public:
    OrderSend(screen::Window& form, OrderDraft& draft, SendGate& gate, CostConfirmation& price,
              account::BalanceView& balance);

    /// Clears what sends of killed programs left half-written on this machine.
    void Form_Load() { trace_.Form_Load(); }

    /// The server's time of the last send, "yyyy-mm-dd hh:mm:ss": stamp of the order, its mileage and its
    /// log.
    screen::Label lblsvrTime;

    /// An order has been committed; comes first.
    screen::Event<> onStored;
    /// Raised once for each order that has been committed, before the user is told.
    screen::Event<const ChartRecord&> Send2Chart;

private:
    void Send_Order();
    bool paysFromDeposit() const;
    bool depositCovers();
    std::string shortageOf(std::int64_t usable) const;
    bool stillCovered();
    std::string duplicateHerb() const;
    bool wantsOtherHerbs();
    bool storeOrder();
    void leaveTrace(std::int32_t CBJ_PK);
    bool writeRows(std::int32_t& CBJ_PK);
    bool stampTime();
    bool Send_InsertOrder(std::int32_t& CBJ_PK);
    bool Send_InsertMileage(std::int32_t DTR_PK, std::int32_t CBJ_PK, std::int32_t STK_Money,
                            const std::string& STK_Date);
    bool Send_InsertCostDetail(std::int32_t CBJ_PK);
    bool Send_InsertDrugs(std::int32_t CBJ_PK);
    bool Send_InsertEatGuide(std::int32_t CBJ_PK);
    bool attempt(const std::function<bool()>& step);
    void tellChart();
    void offerReturn();

    screen::Window& form_;
    OrderDraft& draft_;
    SendGate& gate_;
    CostConfirmation& price_;
    account::BalanceView& balance_;
    SendTrace trace_;
    KeptBoxes kept_;
    /// What the order's own rows add to the doctor's balance, in won: its mileage, less its cost.
    std::int64_t ownBalance_ = 0;
};

}  // namespace zelvo::ordering
