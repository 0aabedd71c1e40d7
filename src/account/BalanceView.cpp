#include "account/BalanceView.h"

#include <exception>
#include <limits>
#include <optional>

#include "basics/Numbers.h"
#include "basics/Pictures.h"
#include "data/Words.h"
#include "data/clsZELVORecordSet.h"
#include "data/clsZELVOStockmoney.h"
#include "screen/Window.h"

namespace zelvo::account {

namespace {

/// The money column of the three lists.
constexpr int moneyColumn = 1;
constexpr const char *unsearched = "[전체검색] 또는 [날짜로 검색]을 누르면 내역이 표시됩니다.",
                     *unread = "내역을 읽지 못하였습니다. 다시 검색하여 주십시오.",
                     *foundNone = "내역이 없습니다.", *noneThen = "이 기간에는 내역이 없습니다.";

std::vector<screen::GridColumn> ledgerColumns(const char* dateField, const char* moneyField) {
    return {{.caption = "날짜", .field = dateField, .width = 2100},
            {.caption = "금액(원)",
             .field = moneyField,
             .alignRight = true,
             .format = basics::NumberPicture::SeparatedZero,
             .width = 1400}};
}

}  // namespace

BalanceView::BalanceView(screen::Window& form, screen::Place place, session::Session& session)
    : lblStockInfo(form, "lblStockInfo", place, " 적립금/마일리지 정보"),
      lblStockNote(form, "lblStockNote", place, "( 마일리지 금액은 적립금에 포함 됩니다. )"),
      txTotalStock(form, "txTotalStock", place),
      txtTotalUsedStock(form, "txtTotalUsedStock", place),
      txtTotalMileage(form, "txtTotalMileage", place),
      txtUsableStock(form, "txtUsableStock", place),
      ssrStockView0(form, "ssrStockView(0)", place, "전체검색"),
      ssrStockView1(form, "ssrStockView(1)", place, "날짜로 검색"),
      dtpStockView0(form, "dtpStockView(0)", place),
      dtpStockView1(form, "dtpStockView(1)", place),
      tdbInStock(form, "tdbInStock", place, ledgerColumns("STK_Date", "STK_Money")),
      tdbUsedStock(form, "tdbUsedStock", place, ledgerColumns("CBJ_RegDate", "CBJ_SumCost")),
      tdbMileage(form, "tdbMileage", place, ledgerColumns("STK_Date", "STK_Money")),
      txtGridStock(form, "txtGridStock", place),
      txtGridStockUse(form, "txtGridStockUse", place),
      txtGridMileageUse(form, "txtGridMileageUse", place),
      form_(form),
      session_(session) {
    for (screen::TextField* field : {&txTotalStock, &txtTotalUsedStock, &txtTotalMileage, &txtUsableStock,
                                     &txtGridStock, &txtGridStockUse, &txtGridMileageUse}) {
        field->setReadOnly(true);
        field->alignRight = true;
    }
    txTotalStock.setLabel("적립한 적립금 총 누계 [A]");
    txtTotalUsedStock.setLabel("사용한 적립금 총 누계 [B]");
    txtTotalMileage.setLabel("마일리지 금액 총 누계 [C]");
    txtUsableStock.setLabel("현재 사용 가능한 적립금 [A-B+C]");
    dtpStockView0.setLabel("시작 날짜");
    dtpStockView1.setLabel("끝 날짜");
    for (screen::Grid* grid : {&tdbInStock, &tdbUsedStock, &tdbMileage}) {
        grid->allowsUpdate = false;
        grid->emptyHint = unsearched;
    }
    tdbInStock.setCaption(" 적립금 적립 내역");
    tdbUsedStock.setCaption(" 적립금 사용 내역");
    tdbMileage.setCaption(" 마일리지 누적 내역");

    screen::usePressed(ssrStockView0, [this] { search(false); });
    screen::usePressed(ssrStockView1, [this] { search(true); });
}

void BalanceView::Init_StockGrids() {
    tdbInStock.bind(&m_rsInStock);
    tdbUsedStock.bind(&m_rsUsedStock);
    tdbMileage.bind(&m_rsMileage);
    dtpStockView0.setValue(basics::today());
    dtpStockView1.setValue(basics::today());
}

void BalanceView::search(bool byDates) {
    bool ok = false;
    {
        const screen::BusyPointer busy(form_.desktop(), "적립금 내역을 불러오는 중입니다.");
        ok = byDates ? Load_StockMoney(dtpStockView0.text(), dtpStockView1.text()) : Load_StockMoney("", "");
    }
    if (!ok) form_.desktop().alarm("적립금 정보 확인 중 오류 발생.", "적립금 정보");
}

namespace {

/// All that the view shows.
void readLedger(data::Connection& line, std::int32_t doctor, const std::string& from, const std::string& to) {
    data::clsZELVOStockmoney ledger;
    data::clsZELVORecordSet records;
    std::int32_t sum = 0;
    data::RecordSet rows;
    ledger.ZELVO_StockMoney(line, sum, doctor, "S", "", "");
    ledger.ZELVO_StockMoney(line, sum, doctor, "M", "", "");
    ledger.ZELVO_CBJcostSum(line, sum, doctor, std::string(data::pay::deposit), "", "", "");
    records.RecordSet_StockMoneyIN(line, rows, doctor, from, to);
    records.RecordSet_StockMoneyUsed(line, rows, doctor, from, to);
    records.RecordSet_StockMileage(line, rows, doctor, from, to);
}

}  // namespace

bool BalanceView::Load_StockMoney(const std::string& sDate, const std::string& eDate) {
    const std::string from = sDate, to = sDate.empty() ? std::string() : eDate;
    const std::int32_t doctor = session_.m_DTRPK;
    // On a server the sums and the rows share a trip.
    const auto asks = [&](data::Connection& line) { readLedger(line, doctor, from, to); };
    std::optional<data::ReadAhead> ahead;
    if (session_.g_conYakGuk) ahead.emplace(*session_.g_conYakGuk, asks);
    bool ok = loadTotals();
    foundNone_ = from.empty() ? foundNone : noneThen;
    if (ok) {
        data::clsZELVORecordSet records;
        const auto read = [&](auto operation) {
            return [&, operation](data::RecordSet& rows) {
                return (records.*operation)(session_.connection(), rows, doctor, from, to);
            };
        };
        using data::clsZELVORecordSet;
        ok = showRows(tdbInStock, m_rsInStock, txtGridStock,
                      read(&clsZELVORecordSet::RecordSet_StockMoneyIN)) &&
             ok;
        ok = showRows(tdbUsedStock, m_rsUsedStock, txtGridStockUse,
                      read(&clsZELVORecordSet::RecordSet_StockMoneyUsed)) &&
             ok;
        ok = showRows(tdbMileage, m_rsMileage, txtGridMileageUse,
                      read(&clsZELVORecordSet::RecordSet_StockMileage)) &&
             ok;
    }
    form_.desktop().setPointer(screen::Pointer::Normal);
    return ok;
}

/// The four figures. After a sum that can't be read the usable balance keeps what it showed.
bool BalanceView::loadTotals() {
    const std::int32_t doctor = session_.m_DTRPK;
    data::clsZELVOStockmoney ledger;
    std::int32_t deposits = 0, mileage = 0, used = 0;
    bool ok = showSum(txTotalStock, deposits, [&](std::int32_t& sum) {
        return ledger.ZELVO_StockMoney(session_.connection(), sum, doctor, "S", "", "");
    });
    ok = showSum(txtTotalMileage, mileage,
                 [&](std::int32_t& sum) {
                     return ledger.ZELVO_StockMoney(session_.connection(), sum, doctor, "M", "", "");
                 }) &&
         ok;
    ok = showSum(txtTotalUsedStock, used,
                 [&](std::int32_t& sum) {
                     return ledger.ZELVO_CBJcostSum(session_.connection(), sum, doctor,
                                                    std::string(data::pay::deposit), "", "", "");
                 }) &&
         ok;
    if (!ok) return false;

    const std::int64_t usable = std::int64_t{deposits} - used + mileage;
    using Won = std::numeric_limits<std::int32_t>;
    if (usable < Won::min() || usable > Won::max()) {
        txtUsableStock.setText("");
        return false;
    }
    txtUsableStock.setText(basics::wonText(usable));
    return true;
}

bool BalanceView::showSum(screen::TextField& field, std::int32_t& sum, const SumRead& read) {
    field.setText("");
    bool ok = false;
    try {
        ok = read(sum);
    } catch (const std::exception&) {
        // No connection: a failed sum like any other.
    }
    if (!ok) sum = 0;
    field.setText(basics::wonText(sum));
    return ok;
}

/// A list and its sum. A read that failed leaves the list empty and the sum blank.
bool BalanceView::showRows(screen::Grid& grid, data::RecordSet& rows, screen::TextField& sumField,
                           const RowRead& read) {
    try {
        const bool opened = read(rows) != -1;
        if (!opened) rows.close();
        grid.emptyHint = opened ? foundNone_ : unread;
        grid.bind(&rows);
        sumField.setText("");
        if (!opened || grid.rowCount() == 0) return opened;
        double sum = 0;
        for (int row = 0; row < grid.rowCount(); ++row) {
            const std::string money = grid.valueAt(row, moneyColumn);
            if (!money.empty()) sum += basics::toNumber(money);
            form_.desktop().yield();
        }
        grid.moveFirst();
        sumField.setText("\\ " + basics::formatNumber(sum, basics::NumberPicture::Separated));
        return true;
    } catch (const std::exception&) {
        if (rows.isOpen()) rows.close();
        grid.emptyHint = unread;
        grid.bind(&rows);
        sumField.setText("");
        return false;
    }
}

void BalanceView::Clear_StockView() {
    for (screen::TextField* field : {&txTotalStock, &txtTotalMileage, &txtTotalUsedStock, &txtUsableStock,
                                     &txtGridStock, &txtGridStockUse, &txtGridMileageUse}) {
        field->setText("");
    }
    for (data::RecordSet* rows : {&m_rsInStock, &m_rsUsedStock, &m_rsMileage}) rows->close();
    for (screen::Grid* grid : {&tdbInStock, &tdbUsedStock, &tdbMileage}) {
        grid->emptyHint = unsearched;
        grid->refresh();
    }
}

}  // namespace zelvo::account
