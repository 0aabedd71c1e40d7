#include "management/OrderCancel.h"

#include <exception>

#include "basics/Numbers.h"
#include "management/OrderStanding.h"

namespace zelvo::management {

namespace {

constexpr const char* caption = "처방전 취소";
constexpr int numberColumn = 0, keyColumn = 1;

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
    const screen::Grid& list = search_.tdbCBJ;
    if (detail_.behindList() || !list.onRow()) return detail_.reload();
    const std::int32_t CBJ_PK = detail_.listKey();
    const std::string order =
        "[" + list.value("발행날짜") + "] [" + list.value("환자명") + "] [" + list.value("주문서") + "]";
    if (!desktop.ask(order + " \r\n처방전을 취소하시겠습니까?", caption, screen::Answer::No)) return;
    if (CBJ_PK == 0) return desktop.inform("처방전을 다시 선택해 주십시오.[처방전PK 선택 에러]", caption);
    data::CBJmState state;
    if (!stillWaits(desktop, session_, detail_, CBJ_PK, "처방전취소", state)) return;
    if (!data::clsZELVORecordSet().Update_CBJCancel(session_.connection(), CBJ_PK))
        return desktop.alarm("[처방전 취소] 실패. (한약국 서버 연결 확인)", caption);
    desktop.inform(order + "\r\n\r\n처방전을 성공적으로 취소 하였습니다.", caption);
    removeRow(CBJ_PK);
    balance_.Clear_StockView();
    detail_.withdraw();
}

void OrderCancel::removeRow(std::int32_t CBJ_PK) {
    tables::XArrayDB& orders = search_.m_xaCBJ;
    const int row = orders.find(0, keyColumn, basics::decimalText(std::int64_t{CBJ_PK}));
    if (row >= 0) orders.deleteRows(row);
    for (int left = orders.lowerRow(); left <= orders.upperRow(); ++left) {
        orders.set(left, numberColumn, std::int32_t{left + 1});
        form_.desktop().yield();
    }
    search_.tdbCBJ.bind(&orders);
}

}  // namespace zelvo::management
