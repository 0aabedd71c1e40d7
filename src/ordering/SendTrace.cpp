#include "ordering/SendTrace.h"

#include <exception>
#include <utility>

#include "data/OrderOutcome.h"
#include "ordering/ClinicFolder.h"
#include "ordering/SendLog.h"
#include "session/YakGukConnection.h"

namespace zelvo::ordering {

namespace {

constexpr const char* sendCaption = "처방전 전송";
constexpr const char* failedCaption = "처방전 전송 실패";

std::optional<bool> orderStands(data::Connection& connection, const UnsettledSend& send) {
    return data::orderStands(connection, send.DTR_PK, send.CBJ_PK, send.serverTime);
}

}  // namespace

void SendTrace::Form_Load() {
    try {
        const auto files = fileSystem(desktop_);
        files->clearHalfWritten(clinicFolder(*files));
    } catch (const std::exception&) {
        // A machine without a home folder, say: nothing was left there either.
    }
}

bool SendTrace::settlesFormer() {
    auto former = unsettled_.left(session_.m_DTRPK, session_.connection().server);
    if (unsettled_.metUnreadable()) {
        desktop_.inform(
            "결과를 확인할 수 없었던 처방전의 기록을 읽을 수 없습니다. 그런 처방전이 있었다면 [처방전 관리]에서 "
            "확인하여 주십시오.",
            sendCaption);
    }
    for (UnsettledSends::Left& left : former) {
        if (!settles(left)) return false;
    }
    return true;
}

bool SendTrace::settles(UnsettledSends::Left& left) {
    const UnsettledSend& send = left.send;
    const std::string patient = send.patientName.empty() ? "" : "[" + send.patientName + "] ";
    const std::string former = "[" + send.serverTime + "] " + patient + "결과를 확인할 수 없었던 처방전은 ";
    const std::optional<bool> stands = orderStands(session_.connection(), send);
    if (!stands) {
        const std::string again = session::onceStartedAgain(session_);
        desktop_.alarm(former + "지금도 저장 여부를 확인할 수 없습니다. 처방전을 전송하지 않았습니다." +
                           (again.empty() ? "" : " " + again + "전송하여 주십시오."),
                       failedCaption);
        return false;
    }
    const std::string fate =
        *stands ? "저장되어 있습니다. 진료부에는 전달되지 않았을 수 있습니다." : "저장되지 않았습니다.";
    if (!left.mark) {
        // Whoever answers there, and here as well, would send one order twice without knowing.
        return desktop_.ask(
            former + fate +
                "\r\n다른 ZELVO 창에서 이 처방전에 대해 묻고 있습니다. 그 창에서 먼저 답하여 주십시오."
                "\r\n\r\n그래도 지금 처방전을 전송하시겠습니까?",
            sendCaption, screen::Answer::No);
    }
    bool goesOn = true;
    if (*stands) {
        goesOn = desktop_.ask(former + fate + "\r\n\r\n지금 처방전을 전송하시겠습니까?", sendCaption,
                              screen::Answer::No);
    } else {
        unsettled_.removeLog(send);
        desktop_.inform(former + fate + " 지금 처방전을 전송합니다.", sendCaption);
    }
    // Whoever doesn't go on may come back to the same order: then it is asked again.
    if (goesOn) unsettled_.settle(*left.mark);
    return goesOn;
}

// The mark comes first: killed before the log, there is no log of an order that never was.
void SendTrace::leave(UnsettledSend send, const std::optional<std::string>& log, KeptBoxes& kept) {
    sending_ = std::move(send);
    if (log) sending_.logPrint = printOf(*log);
    leaveMark();
    if (!leaveLog(log)) {
        kept.inform("[처방전 전송은 정상적으로 전송] 되었습니다. -  처방전 로그 파일 기록에 실패하였습니다.",
                    "처방전 로그");
    } else if (!mark_) {
        kept.inform(
            "처방전 전송 중의 표시를 기록하지 못했습니다. 전송 중에 ZELVO가 종료되었다면 다음 전송에서 저장 여부를 "
            "알려 드릴 수 없습니다.",
            sendCaption);
    }
}

void SendTrace::leaveMark() {
    mark_ = nullptr;
    try {
        mark_ = unsettled_.mark(sending_);
    } catch (const std::exception&) {
        noteFileTrouble(desktop_, "mark of a send");  // told when the transaction has ended
    }
}

bool SendTrace::leaveLog(const std::optional<std::string>& log) {
    log_ = nullptr;
    try {
        if (log) log_ = Write_SendLog(*fileSystem(desktop_), *log, sending_.serverTime);
    } catch (const std::exception&) {
        noteFileTrouble(desktop_, "log of a send");
    }
    return log_ != nullptr;
}

bool SendTrace::stands(data::CommitOutcome outcome, KeptBoxes& kept) {
    std::optional<bool> stands;
    if (outcome == data::CommitOutcome::Unknown) {
        stands = data::askAnother(session_.connection(),
                                  [this](data::Connection& other) { return orderStands(other, sending_); });
    } else {
        stands = outcome == data::CommitOutcome::Done;
    }
    const auto log = std::exchange(log_, nullptr);
    if (stands == true) return true;
    kept.clear();
    if (!stands) {
        const std::string unknown = "처방전 전송 결과를 확인할 수 없습니다. ";
        kept.alarm(
            unknown +
                (mark_
                     ? "다시 전송하지 마십시오. ZELVO를 다시 시작하여 전송하면 먼저 저장 여부를 확인하여 "
                       "알려 드립니다."
                     : session::onceStartedAgain(session_) +
                           "[처방전 관리]에서 발행날짜로 확인하여, 저장되어 있지 않을 때에만 다시 전송하여 주십시오."),
            failedCaption);
        mark_ = nullptr;  // whoever sends next asks
        return false;
    }
    kept.alarm("처방전 전송 실패 - 처방전이 저장되지 않았습니다. [비용확인]부터 다시 실행하여 주십시오.",
               failedCaption);
    try {
        if (log) log->remove();
    } catch (const std::exception&) {
        // It stays; the box of the refused order says enough.
    }
    settle();
    return false;
}

void SendTrace::settle() {
    if (const auto mark = std::exchange(mark_, nullptr)) unsettled_.settle(*mark);
}

}  // namespace zelvo::ordering
