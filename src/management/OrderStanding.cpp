#include "management/OrderStanding.h"

namespace zelvo::management {

namespace {

/// False has been told.
bool readState(screen::Desktop& desktop, const session::Session& session, std::int32_t CBJ_PK,
               const char* caption, data::CBJmState& state) {
    state = {};
    if (session.g_conYakGuk &&
        data::clsZELVORecordSet().RecordSet_CBJmStateInfo(*session.g_conYakGuk, CBJ_PK, state)) {
        return true;
    }
    desktop.alarm("처방전의 진행상태 항목을 가져오는 중 에러 발생.", caption);
    return false;
}

}  // namespace

bool mayChange(screen::Desktop& desktop, const session::Session& session, OrderDetail& detail,
               const char* caption) {
    if (session.m_DTRPK == 0 && !session.m_IsNurse) {
        desktop.inform("로그인 후에 사용하십시오.(m_DTRPK = 0)", caption);
        return false;
    }
    if (detail.listKey() != 0 && !detail.behindList()) return true;
    desktop.inform("처방전을 다시 선택해 주십시오.[처방전PK 선택 에러]", caption);
    if (detail.behindList()) detail.reload();
    return false;
}

bool stillWaits(screen::Desktop& desktop, const session::Session& session, OrderDetail& detail,
                std::int32_t CBJ_PK, const char* caption, data::CBJmState& state) {
    if (!readState(desktop, session, CBJ_PK, caption, state)) return false;
    if (state.CBJ_State == "0" && state.CBJ_IsCanceled != "True") return true;
    desktop.inform("선택하신 처방전은 대기상태가 아닙니다. [한약국으로 직접 연락] 바랍니다.", caption);
    detail.reload();
    return false;
}

bool stillStands(screen::Desktop& desktop, const session::Session& session, OrderDetail& detail,
                 std::int32_t CBJ_PK, const char* caption) {
    data::CBJmState state;
    if (!readState(desktop, session, CBJ_PK, caption, state)) return false;
    if (!state.CBJ_State.empty() || !state.CBJ_IsCanceled.empty()) return true;
    desktop.inform("한약국에서 삭제된 처방전입니다. [한약국으로 직접 연락] 바랍니다.", caption);
    detail.reload();
    return false;
}

}  // namespace zelvo::management
