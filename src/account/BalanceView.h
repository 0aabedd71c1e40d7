#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "data/RecordSet.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "screen/TextField.h"
#include "session/Session.h"

namespace zelvo::account {

/// What the doctor's deposit is worth with the pharmacy. No balance is stored anywhere: each look reckons it
/// anew.
class BalanceView {
public:
    /// `place` is the page "MY OCS".
    BalanceView(screen::Window& form, screen::Place place, session::Session& session);

    screen::Label lblStockInfo, lblStockNote;
    /// The sums A, B and C and the usable balance A - B + C, in won, "###,##0".
    screen::TextField txTotalStock, txtTotalUsedStock, txtTotalMileage, txtUsableStock;
    screen::TwoStateButton ssrStockView0, ssrStockView1;
    screen::DateField dtpStockView0, dtpStockView1;
    screen::Grid tdbInStock, tdbUsedStock, tdbMileage;
    /// The sum of the grid above, "\ " and "###,###".
    screen::TextField txtGridStock, txtGridStockUse, txtGridMileageUse;
    data::RecordSet m_rsInStock, m_rsUsedStock, m_rsMileage;

    /// Binds the empty lists; both dates are today.
    void Init_StockGrids();
    /// Reckons the balance and reads the lists; dates "yyyy-mm-dd" limit the lists only, "" is all. False
    /// when a sum can't be read, the balance leaves 32 bits or a list can't be read; no message.
    bool Load_StockMoney(const std::string& sDate, const std::string& eDate);
    /// Empties it all, so that no figure that may be out of date is left standing.
    void Clear_StockView();

private:
    using SumRead = std::function<bool(std::int32_t& sum)>;
    using RowRead = std::function<std::int16_t(data::RecordSet& rows)>;

    void search(bool byDates);
    bool loadTotals();
    static bool showSum(screen::TextField& field, std::int32_t& sum, const SumRead& read);
    bool showRows(screen::Grid& grid, data::RecordSet& rows, screen::TextField& sumField,
                  const RowRead& read);

    const char* foundNone_ = "";  ///< what lists say that a search found empty
    screen::Window& form_;
    session::Session& session_;
};

}  // namespace zelvo::account
