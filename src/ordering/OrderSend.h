#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "account/BalanceView.h"
#include "ordering/ChartRecord.h"
#include "ordering/CostConfirmation.h"
#include "ordering/OrderDraft.h"
#include "ordering/SendGate.h"
#include "ordering/UnsettledSends.h"
#include "screen/Event.h"
#include "screen/Fields.h"

namespace zelvo::ordering {

/// The send: the order on the screen becomes rows of the pharmacy's database, in one transaction, and the
/// chart is told.
class OrderSend {
public:
    OrderSend(screen::Window& form, OrderDraft& draft, SendGate& gate, CostConfirmation& price,
              account::BalanceView& balance);

    /// The server's time of the last send, "yyyy-mm-dd hh:mm:ss": stamp of the order, its mileage and its
    /// log.
    screen::Label lblsvrTime;

    /// Raised once for each order that has been committed, before the user is told.
    screen::Event<const ChartRecord&> Send2Chart;

private:
    enum class Stored { No, Refused, Unknown, Yes };

    void Send_Order();
    bool depositCovers();
    std::string duplicateHerb() const;
    bool wantsOtherHerbs();
    bool settlesFormer();
    Stored storeOrder();
    Stored askAfter();
    Stored refused();
    bool mark() const;
    void settle() const;
    bool writeRows(std::int32_t& CBJ_PK);
    bool stampTime();
    bool Send_InsertOrder(std::int32_t& CBJ_PK);
    std::int16_t Send_InsertMileage(std::int32_t DTR_PK, std::int32_t CBJ_PK, std::int32_t STK_Money,
                                    const std::string& STK_Date);
    bool Send_InsertCostDetail(std::int32_t CBJ_PK);
    bool Send_InsertDrugs(std::int32_t CBJ_PK);
    bool Send_InsertEatGuide(std::int32_t CBJ_PK);
    bool attempt(const std::function<bool()>& step);
    void tellChart();
    void offerReturn();

    void keepAlarm(std::string text, std::string caption);
    void showKept();

    screen::Window& form_;
    OrderDraft& draft_;
    SendGate& gate_;
    CostConfirmation& price_;
    account::BalanceView& balance_;
    UnsettledSends unsettled_;
    UnsettledSend sending_;
    bool marked_ = false;
    /// What there is to say while the transaction is open; shown when it has ended.
    std::vector<screen::MessageBox> kept_;
};

}  // namespace zelvo::ordering
