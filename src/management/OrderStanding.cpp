#include "management/OrderStanding.h"

namespace zelvo::management {

bool stillWaits(screen::Desktop& desktop, const session::Session& session, OrderDetail& detail,
                std::int32_t CBJ_PK, const char* caption, data::CBJmState& state) {
    state = {};
    if (!session.g_conYakGuk ||
        !data::clsZELVORecordSet().RecordSet_CBJmStateInfo(*session.g_conYakGuk, CBJ_PK, state)) {
        desktop.alarm("처방전의 진행상태 항목을 가져오는 중 에러 발생.", caption);
        return false;
    }
    if (state.CBJ_State == "0" && state.CBJ_IsCanceled != "True") return true;
    desktop.inform("선택하신 처방전은 대기상태가 아닙니다. [한약국으로 직접 연락] 바랍니다.", caption);
    detail.reload();
    return false;
}

}  // namespace zelvo::management
