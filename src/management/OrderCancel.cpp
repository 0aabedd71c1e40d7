#include "management/OrderCancel.h"

#include <exception>

#include "management/OrderStanding.h"
#include "session/YakGukConnection.h"

namespace zelvo::management {

namespace {

constexpr const char* caption = "처방전 취소";
constexpr int numberColumn = 0;

}  // namespace

OrderCancel::OrderCancel(screen::Window& form, session::Session& session, OrderSearch& search,
                         OrderDetail& detail, account::BalanceView& balance)
    : form_(form), session_(session), search_(search), detail_(detail), balance_(balance) {
    screen::usePressed(detail_.state.ssrCBJmCancel,
                       [this] { detail_.keepingOrder([&] { Cancel_Order(); }); });
}

void OrderCancel::Cancel_Order() {
    try {
        cancel();
    } catch (const std::exception& fault) {
        form_.desktop().alarm(fault.what(), caption);
    }
}

void OrderCancel::cancel() {
    screen::Desktop& desktop = form_.desktop();
    const screen::Errand errand(desktop, "처방전을 취소하는 중입니다.");
    if (!mayChange(desktop, session_, detail_, caption)) return;
    const screen::Grid& list = search_.tdbCBJ;
    const int row = list.currentRow();
    const std::int32_t CBJ_PK = detail_.listKey();
    const std::string order =
        "[" + list.value("발행날짜") + "] [" + list.value("환자명") + "] [" + list.value("주문서") + "]";
    if (!desktop.ask(order + " \r\n처방전을 취소하시겠습니까?", caption, screen::Answer::No)) return;
    data::CBJmState state;
    if (!stillWaits(desktop, session_, detail_, CBJ_PK, "처방전취소", state)) return;
    switch (data::clsZELVORecordSet().Update_CBJCancel(session_.connection(), CBJ_PK)) {
        case data::CommitOutcome::Refused:
            return desktop.alarm("[처방전 취소] 실패. (한약국 서버 연결 확인)", caption);
        case data::CommitOutcome::Unknown:
            desktop.alarm("처방전 취소 결과를 확인할 수 없습니다. " + session::onceStartedAgain(session_) +
                              "[취소된 처방전]을 검색하여 확인하여 주십시오.",
                          caption);
            balance_.Clear_StockView();
            return detail_.reload();
        case data::CommitOutcome::Done:
            break;
    }
    desktop.inform(order + "\r\n\r\n처방전을 성공적으로 취소 하였습니다.", caption);
    removeRow(row);
    balance_.Clear_StockView();
    detail_.withdraw();
    search_.tdbCBJ.setFocus();
}

/// Of the list nothing but the current row has changed meanwhile: a search and a sort wait for the end of an
/// action.
void OrderCancel::removeRow(int row) {
    tables::XArrayDB& orders = search_.m_xaCBJ;
    orders.deleteRows(row);
    for (int left = orders.lowerRow(); left <= orders.upperRow(); ++left) {
        orders.set(left, numberColumn, std::int32_t{left + 1});
        form_.desktop().yield();
    }
    search_.tdbCBJ.bind(&orders);
}

}  // namespace zelvo::management
