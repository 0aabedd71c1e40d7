#pragma once

#include <optional>
#include <string>

#include "data/TextLengths.h"
#include "ordering/CostAnswer.h"
#include "ordering/CostCheck.h"
#include "ordering/OrderDraft.h"
#include "ordering/SendGate.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "screen/TextField.h"
#include "tables/XArrayDB.h"

namespace zelvo::ordering {

/// Columns of the cost lines.
namespace cost {
inline constexpr int label = 0, amount = 1, button = 2, note = 3;
inline constexpr int lastRow = 10;  ///< row 0 is the total, rows 1 to 10 the lines
}  // namespace cost

/// The price of the order on the screen: asked of the pharmacy's cost page, shown line by line.
class CostConfirmation {
public:
    CostConfirmation(screen::Window& form, OrderDraft& draft, SendGate& gate);

    screen::TwoStateButton ssrCostConfirm;
    screen::Grid tdbCostConfirm;
    screen::TextField txtCOMcost;
    /// Total and mileage in won, decimal, without separators.
    screen::Label lblSumcost, lblMileageMoney;
    /// Shown beside cost lines that no longer hold, because the order has changed or has been sent.
    screen::Label lblCostOutdated;
    /// Addresses of the cost pages for new and for modified orders.
    screen::Label lblCBJcostAspURL, lblCBJcostUpAspURL;

    /// The cost lines of the last confirmation: label, amount ("###,##0"), nothing, note. Without rows before
    /// the first.
    tables::XArrayDB m_xaCostConfirm;

    /// Whether the pharmacy's tables can hold the order as it stands. What they can't has been told, and has
    /// the focus.
    bool orderFits();
    /// How long the server's text columns are; asked for once a session, before they are needed.
    const data::TextLengths& textLengths();
    /// The row style of the cost lines.
    void Form_Load();

private:
    bool Confirm_Cost();
    bool currentHerbIsSound();
    bool passesChecks();
    void focusFault(CheckResult result);
    bool Request_Cost();
    std::string askPage(const composition::modHanYakGuk::CostFields& fields) const;
    void clearCosts();
    void showCosts(const CostAnswer& answer);
    void showNote();
    bool outdated() const;
    void showFreshness();

    screen::Window& form_;
    OrderDraft& draft_;
    SendGate& gate_;
    std::optional<data::TextLengths> textLengths_;
};

}  // namespace zelvo::ordering
