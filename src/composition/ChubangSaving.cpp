#include "composition/ChubangSaving.h"

#include <exception>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "composition/frmMyChuBang.h"
#include "composition/modHanYakGuk.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::composition {

namespace {

constexpr const char* pressCaption = "내약속처방으로 등록";

screen::MessageBox alarmBox(const char* text, const char* caption) {
    return {.text = text, .caption = caption, .icon = screen::BoxIcon::Critical};
}

/// Throws Fault for a line without a herb key, grams or number.
data::UserHerbLine lineOf(const tables::XArrayDB& herbs, int row) {
    return {.DGL_CallSign = herbs.text(row, herb::name),
            .DGL_PK = basics::toInt32(herbs.text(row, herb::key)),
            .UDET_Weight = basics::toSingle(herbs.text(row, herb::grams)),
            .UDET_Order = basics::toInt16(herbs.text(row, herb::order)),
            .UDET_Note = herbs.text(row, herb::note)};
}

}  // namespace

ChubangSaving::ChubangSaving(screen::Window& form, OrderFrames& frames, session::Session& session,
                             HerbTable& herbs)
    : form_(form), frames_(frames), session_(session), herbs_(herbs) {
    herbs_.sscMyChubangReg.onPress.add([this] { Save_Chubang(); });
}

void ChubangSaving::Save_Chubang() {
    screen::Desktop& desktop = form_.desktop();
    herbs_.tdbDGL.commitEdit();
    if (!herbs_.tdbDGL.onRow()) return;
    if (session_.m_DTRPK == 0) {
        desktop.inform("로그인 후에 사용하십시오.(m_DTRPK = 0)", pressCaption);
        return;
    }
    std::string name, memo;
    if (!linesSound() || !askName(name, memo)) return;
    desktop.messageBox(store(name, memo));
}

/// False at the first herb line with an error, which is then current and has been told of.
bool ChubangSaving::linesSound() {
    screen::Desktop& desktop = form_.desktop();
    const screen::BusyPointer busy(desktop);
    const tables::XArrayDB& herbs = session_.g_xaDrug;
    for (int row = herbs.lowerRow(); row <= herbs.upperRow(); ++row) {
        desktop.yield();
        if (herbs.text(row, herb::state) != herb::incomplete) continue;
        desktop.inform("구성한 약재정보에 오류가 있습니다. 확인 바랍니다.", pressCaption);
        herbs_.tdbDGL.setCurrentRow(row);
        herbs_.tdbDGL.setFocus();
        return false;
    }
    return true;
}

bool ChubangSaving::askName(std::string& name, std::string& memo) {
    frmMyChuBang window(form_.desktop());
    placeBeside(window, frames_.c1eCBJMsg);
    return window.Show_MyChubangADD(name, memo) == 0;
}

/// The transaction from its begin to its end; gives what there is to say of it.
screen::MessageBox ChubangSaving::store(const std::string& name, const std::string& memo) {
    screen::MessageBox failed = alarmBox("내약속처방으로 등록중 오류가 발생했습니다.", "내약속처방 등록");
    const screen::BusyPointer busy(form_.desktop(), "내약속처방으로 등록하는 중입니다.");
    try {
        data::Connection& connection = session_.connection();
        data::Transaction transaction(connection);
        const std::int32_t UCB_PK =
            data::clsZELVORecordSet().Insert_MyChubang(connection, session_.m_DTRPK, name, memo);
        if (UCB_PK == -1) return failed;
        if (!storeLines(UCB_PK))
            return alarmBox("처방약재 추가 중 오류가 발생했습니다.", "처방약재 추가오류");
        switch (transaction.commit()) {
            case data::CommitOutcome::Done:
                return {.text = "내약속처방에 등록되었습니다.", .caption = "내약속처방등록"};
            case data::CommitOutcome::Unknown:
                return alarmBox(
                    "등록 결과를 확인할 수 없습니다. ZELVO를 다시 시작하여 [처방읽어오기]에서 확인하여 주십시오.",
                    "내약속처방 등록");
            case data::CommitOutcome::Refused:
                break;
        }
    } catch (const std::exception&) {
        // A transaction that can't be begun, say: nothing is stored.
    }
    return failed;
}

bool ChubangSaving::storeLines(std::int32_t UCB_PK) {
    const tables::XArrayDB& herbs = session_.g_xaDrug;
    data::Together together(session_.connection());  // one trip to the server
    bool sound = true;
    for (int row = herbs.lowerRow(); row <= herbs.upperRow(); ++row) {
        try {
            if (data::clsZELVORecordSet().Insert_MyChubangDetail(session_.connection(), UCB_PK,
                                                                 lineOf(herbs, row)) == -1)
                return false;
        } catch (const basics::Fault&) {
            sound = false;
        }
        form_.desktop().yield();
    }
    return together.send() == together.count() && sound;
}

}  // namespace zelvo::composition
