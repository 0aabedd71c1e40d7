#include "ordering/OrderSend.h"

#include <exception>
#include <optional>
#include <utility>

#include "basics/Dates.h"
#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Pictures.h"
#include "basics/Text.h"
#include "data/OrderOutcome.h"
#include "data/Words.h"
#include "ordering/OrderRows.h"
#include "ordering/SendLog.h"

namespace zelvo::ordering {

namespace {

constexpr const char* sendCaption = "처방전전송";
constexpr const char* costCaption = "비용확인";
constexpr const char* rowCaption = "처방전전송 에러";
constexpr const char* failedCaption = "처방전 전송 실패";
constexpr const char* faultCaption = "처방전 전송 에러";

std::string faultText(const std::string& description) {
    return "처방전 전송 오류 - [" + description + " ]";
}

}  // namespace

OrderSend::OrderSend(screen::Window& form, OrderDraft& draft, SendGate& gate, CostConfirmation& price,
                     account::BalanceView& balance)
    : lblsvrTime(form, "lblsvrTime", draft.frames.c1eSendmain.inside()),
      form_(form),
      draft_(draft),
      gate_(gate),
      price_(price),
      balance_(balance),
      unsettled_(form.desktop()) {
    lblsvrTime.setVisible(false);
    screen::usePressed(gate_.ssrCBJSend, [this] { Send_Order(); });
}

void OrderSend::Send_Order() {
    screen::Desktop& desktop = form_.desktop();
    if (draft_.session.m_DTRPK == 0) {
        desktop.inform("로그인 후에 사용 하십시오.[한의사PK = 0]", sendCaption);
        return;
    }
    if (!gate_.costConfirmed()) {
        desktop.inform("[비용확인]을 실행한 후에 처방전을 전송하여 주십시오.", sendCaption);
        return;
    }
    // Before anything else: one confirmation, one send. A refused order needs a new confirmation.
    gate_.Set_CostConfirmed(false);
    // Names and the like may have been typed over since the price was asked for.
    if (!price_.orderFits()) return;
    if (draft_.payment.cboPaymentMethod.text() == data::pay::deposit && !depositCovers()) return;

    const screen::BusyPointer busy(desktop);
    try {
        if (wantsOtherHerbs()) {
            draft_.herbs.tdbDGL.setFocus();
            return;
        }
        if (!settlesFormer()) return;
    } catch (const std::exception& fault) {
        desktop.alarm(faultText(fault.what()), faultCaption);
        return;
    }
    switch (storeOrder()) {
        case Stored::No:
            return showKept();
        case Stored::Refused:
            return desktop.alarm(
                "처방전 전송 실패 - 처방전이 저장되지 않았습니다. [비용확인]부터 다시 실행하여 주십시오.",
                failedCaption);
        case Stored::Unknown:
            return showKept();
        case Stored::Yes:
            break;
    }
    showKept();
    tellChart();
    settle();
    offerReturn();
}

/// Whether the doctor's deposit pays for the order; what stands against it has been shown.
bool OrderSend::depositCovers() {
    screen::Desktop& desktop = form_.desktop();
    std::int64_t usable = 0, total = 0;
    try {
        if (!balance_.Load_StockMoney("", "")) throw basics::Fault("");
        usable = basics::toInt32(basics::removeAll(balance_.txtUsableStock.text(), ","));
        const std::string& sum = price_.lblSumcost.caption();
        total = basics::IsNumeric(sum) ? basics::toInt32(sum) : 0;
    } catch (const std::exception&) {
        desktop.alarm("처방전비용과 적립금을 확인하는중 에러발생.", costCaption);
        return false;
    }
    if (usable == 0) {
        desktop.inform(
            "적립된 금액이 없습니다.\r\n\r\n"
            "[후불][후불정산]으로 전송하시거나 또는 [한약국으로 연락] 주십시오.",
            costCaption);
        return false;
    }
    if (total > usable) {
        const auto shortfall = static_cast<double>(total - usable);
        desktop.inform("적립금이 [ " + basics::formatNumber(shortfall, basics::NumberPicture::Separated) +
                           " ]원 부족합니다.\r\n\r\n"
                           "[후불][후불정산]로 전송하시거나 또는 [한약국으로 연락] 주십시오.",
                       costCaption);
        return false;
    }
    return true;
}

/// The first herb name that stands on two lines, "" when none does.
std::string OrderSend::duplicateHerb() const {
    namespace herb = composition::herb;
    const tables::XArrayDB& herbs = draft_.lines();
    for (int row = 0; row < herbs.upperRow(); ++row) {
        std::string text = herbs.text(row, herb::name);
        if (herbs.find(row + 1, herb::name, text) >= 0) return text;
    }
    return {};
}

/// True when the same herb stands twice and the user wants to look at the composition again.
bool OrderSend::wantsOtherHerbs() {
    if (!draft_.hasHerbs()) return false;
    const std::string name = duplicateHerb();
    return !name.empty() &&
           form_.desktop().ask("[ " + name +
                                   " ] 약재명이 중복되었습니다. 다시 구성하시겠습니까?\r\n\r\n"
                                   "예(Y) = 약재정보를 다시 구성\r\n\r\n"
                                   "아니오(N) = 처방전 전송",
                               "처방전 전송");
}

/// Tells what became of this doctor's sends whose outcome was not known. False when the order is not to be
/// sent now: one of them stands and that is enough, or nobody can say.
bool OrderSend::settlesFormer() {
    data::Connection& connection = draft_.session.connection();
    for (const UnsettledSend& send : unsettled_.of(draft_.session.m_DTRPK, connection.server)) {
        const std::string former = "[" + send.serverTime + "] 결과를 확인할 수 없었던 처방전은 ";
        const std::optional<bool> stands =
            data::orderStands(connection, send.DTR_PK, send.CBJ_PK, send.serverTime);
        if (!stands) {
            form_.desktop().alarm(
                former + "지금도 저장 여부를 확인할 수 없습니다. 처방전을 전송하지 않았습니다.",
                failedCaption);
            return false;
        }
        bool goesOn = true;
        if (*stands) {
            goesOn = form_.desktop().ask(former +
                                             "저장되어 있습니다. 진료부에는 전달되지 않았습니다.\r\n\r\n"
                                             "지금 처방전을 전송하시겠습니까?",
                                         "처방전 전송", screen::Answer::No);
        } else {
            Remove_SendLog(form_.desktop(), send.serverTime);
            form_.desktop().inform(former + "저장되지 않았습니다. 지금 처방전을 전송합니다.", "처방전 전송");
        }
        unsettled_.settle(send);
        if (!goesOn) return false;
    }
    return true;
}

/// The transaction from its begin to its end. What there is to say of it is kept until then.
OrderSend::Stored OrderSend::storeOrder() {
    kept_.clear();
    std::optional<data::Transaction> transaction;
    try {
        transaction.emplace(draft_.session.connection(), data::newOrdersTurn(draft_.session.m_DTRPK));
    } catch (const std::exception&) {
        keepAlarm(faultText("한약국 서버 연결 확인"), faultCaption);
        return Stored::No;
    }
    sending_ = {};
    sending_.DTR_PK = draft_.session.m_DTRPK;
    sending_.server = draft_.session.connection().server;
    if (!writeRows(sending_.CBJ_PK)) {
        transaction->rollback();
        return Stored::No;
    }
    sending_.serverTime = lblsvrTime.caption();
    if (!Write_SendLog(form_.desktop(), draft_, price_.m_xaCostConfirm, lblsvrTime.caption())) {
        kept_.push_back(
            {.text = "[처방전 전송은 정상적으로 전송] 되었습니다. -  처방전 로그 파일 기록에 실패하였습니다.",
             .caption = "처방전 로그"});
    }
    // Marked before: who gives up waiting for the answer, and ends the program, must not send twice.
    marked_ = mark();
    switch (transaction->commit()) {
        case data::CommitOutcome::Done:
            return Stored::Yes;
        case data::CommitOutcome::Refused:
            return refused();
        case data::CommitOutcome::Unknown:
            break;
    }
    return askAfter();
}

/// Writes the mark that lets the next session ask what became of the order; false when it can't be written.
bool OrderSend::mark() const {
    try {
        unsettled_.add(sending_);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

/// What became of the order is known. A mark that can't be taken away is asked after once more.
void OrderSend::settle() const {
    try {
        if (marked_) unsettled_.settle(sending_);
    } catch (const std::exception&) {
        // The order itself is in order.
    }
}

OrderSend::Stored OrderSend::refused() {
    settle();
    Remove_SendLog(form_.desktop(), sending_.serverTime);
    return Stored::Refused;
}

/// The line broke between the commit and its answer: one more connection asks whether the order stands.
OrderSend::Stored OrderSend::askAfter() {
    const std::optional<bool> stands =
        data::askAnother(draft_.session.connection(), [this](data::Connection& other) {
            return data::orderStands(other, sending_.DTR_PK, sending_.CBJ_PK, sending_.serverTime);
        });
    if (stands) return *stands ? Stored::Yes : refused();
    const std::string unknown = "처방전 전송 결과를 확인할 수 없습니다. ";
    kept_ = {};
    keepAlarm(
        unknown +
            (marked_
                 ? "다시 전송하지 마십시오. ZELVO를 다시 시작하여 전송하면 먼저 저장 여부를 확인하여 알려 드립니다."
                 : "[처방전 관리]에서 발행날짜로 확인한 후 다시 전송하여 주십시오."),
        failedCaption);
    return Stored::Unknown;
}

bool OrderSend::writeRows(std::int32_t& CBJ_PK) {
    return stampTime() && Send_InsertOrder(CBJ_PK) && Send_InsertCostDetail(CBJ_PK) &&
           (!draft_.hasHerbs() || Send_InsertDrugs(CBJ_PK)) && Send_InsertEatGuide(CBJ_PK);
}

bool OrderSend::stampTime() {
    lblsvrTime.setCaption("");
    try {
        const std::string time = data::clsZELVORecordSet().RecordSet_SvrGetdate(draft_.session.connection());
        if (time != "-1") lblsvrTime.setCaption(basics::formatDateTime(time));
    } catch (const std::exception&) {
        lblsvrTime.setCaption("");
    }
    if (!lblsvrTime.caption().empty()) return true;
    keepAlarm("DB서버 시간 가져오기 실패!", failedCaption);
    return false;
}

bool OrderSend::Send_InsertOrder(std::int32_t& CBJ_PK) {
    return attempt([this, &CBJ_PK] {
        composition::modHanYakGuk::CostFields fields;
        if (draft_.costFields(fields) == -1) {
            keepAlarm("처방전 전송 오류, 처방전 항목(Xarray) 정보 가져오는 중 오류 발생", "처방전 전송");
            return false;
        }
        const data::ChubangJun row = orderRow(draft_, fields, price_.m_xaCostConfirm, lblsvrTime.caption());
        draft_.patient.txtPatientAge.setText(basics::removeBlanks(draft_.patient.txtPatientAge.text()));
        CBJ_PK = data::clsZELVORecordSet().Insert_ChubangJun(draft_.session.connection(), row);
        if (CBJ_PK == -1) {
            keepAlarm("처방전 전송 중 오류 발생 - 처방전 테이블(t_ChubangJun) 저장 에러", rowCaption);
            return false;
        }
        const std::string& mileage = price_.lblMileageMoney.caption();
        if (!basics::IsNumeric(mileage) || basics::toNumber(mileage) <= 0) return true;
        return Send_InsertMileage(row.DTR_PK, CBJ_PK, basics::toInt32(mileage), lblsvrTime.caption()) == 1;
    });
}

/// 1, or -1 when the insert failed, or 0 on a fault.
std::int16_t OrderSend::Send_InsertMileage(std::int32_t DTR_PK, std::int32_t CBJ_PK, std::int32_t STK_Money,
                                           const std::string& STK_Date) {
    std::int16_t status = 0;
    attempt([&] {
        status = data::clsZELVORecordSet().Insert_ChubangJun_Mileage(draft_.session.connection(), DTR_PK,
                                                                     CBJ_PK, STK_Money, STK_Date);
        if (status == -1) {
            keepAlarm("처방전 전송 중 오류 발생 - 처방전 Mileage 금액 (t_CBJDetail) 저장 에러", rowCaption);
        }
        return status == 1;
    });
    return status;
}

bool OrderSend::Send_InsertCostDetail(std::int32_t CBJ_PK) {
    return attempt([this, CBJ_PK] {
        if (data::clsZELVORecordSet().Insert_ChubangJun_CostDetail(draft_.session.connection(), CBJ_PK,
                                                                   costNotes(price_.m_xaCostConfirm)) != -1) {
            return true;
        }
        keepAlarm("처방전 전송 중 오류 발생 - 처방전 비용상세 테이블(t_CBJcostDetail) 저장 에러", rowCaption);
        return false;
    });
}

bool OrderSend::Send_InsertDrugs(std::int32_t CBJ_PK) {
    return attempt([this, CBJ_PK] {
        data::clsZELVORecordSet records;
        for (int row = 0; row <= draft_.lines().upperRow(); ++row) {
            if (records.Insert_ChubangJun_Detail(draft_.session.connection(), CBJ_PK,
                                                 herbLine(draft_.lines(), row)) == -1) {
                keepAlarm("처방전 전송 중 오류 발생 - 처방전 약재 테이블(t_CBJDetail) 저장 에러", rowCaption);
                return false;
            }
        }
        return true;
    });
}

bool OrderSend::Send_InsertEatGuide(std::int32_t CBJ_PK) {
    return attempt([this, CBJ_PK] {
        const composition::DosageSheet& sheet = draft_.sheet;
        if (data::clsZELVORecordSet().Insert_ChubangJun_EatGuide(
                draft_.session.connection(), CBJ_PK, sheet.rtxEatGuide.rtf(), sheet.txtEatGuideHosName.text(),
                sheet.txtEatGuideCall.text()) != -1) {
            return true;
        }
        keepAlarm("처방전 전송 중 오류 발생 - 처방전 복용법 테이블(t_EatGuide) 저장 에러", rowCaption);
        return false;
    });
}

/// A step of the send: a fault in it is kept for the user and counts as its failure.
bool OrderSend::attempt(const std::function<bool()>& step) {
    try {
        return step();
    } catch (const std::exception& fault) {
        keepAlarm(fault.what(), rowCaption);
        return false;
    }
}

/// The order stands, whatever the chart's handler does: what it throws is told and changes nothing.
void OrderSend::tellChart() {
    std::string description;
    try {
        Send2Chart(chartRecord(draft_, price_.lblSumcost.caption()));
        return;
    } catch (const std::exception& fault) {
        description = fault.what();
    } catch (...) {
        description = "알 수 없는 오류";
    }
    form_.desktop().alarm("처방전은 전송되었습니다. 진료부에 전달하는 중 오류 발생 - [" + description + " ]",
                          "처방전 전송");
}

void OrderSend::offerReturn() {
    if (form_.desktop().ask("[" + draft_.options.tdbJobList.value(composition::option::name) +
                                "] 처방전 전송을 성공했습니다.\r"
                                "[벡소라]에도 진료기록을 남기려면 [진료부에 기록]을 실행하십시오.\r"
                                "  참고 : [벡소라]에 처방에 대한 자료가 표시되어 있습니다.\r\r"
                                "ZELVO를 종료하고 [벡소라]로 복귀하시겠습니까?",
                            "처방전 전송 성공")) {
        form_.unload();
    }
}

void OrderSend::keepAlarm(std::string text, std::string caption) {
    kept_.push_back(
        {.text = std::move(text), .caption = std::move(caption), .icon = screen::BoxIcon::Critical});
}

void OrderSend::showKept() {
    for (const screen::MessageBox& box : std::exchange(kept_, {})) form_.desktop().messageBox(box);
}

}  // namespace zelvo::ordering
