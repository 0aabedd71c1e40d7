#include "ordering/OrderSend.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <utility>
#include <vector>

#include "basics/Dates.h"
#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Pictures.h"
#include "basics/Text.h"
#include "data/OrderOutcome.h"
#include "data/Words.h"
#include "data/clsZELVOStockmoney.h"
#include "ordering/ClinicFolder.h"
#include "ordering/OrderRows.h"
#include "ordering/SendLog.h"

namespace zelvo::ordering {

namespace {

constexpr const char* sendCaption = "처방전전송";
constexpr const char* costCaption = "비용확인";
constexpr const char* rowCaption = "처방전전송 에러";
constexpr const char* failedCaption = "처방전 전송 실패";
constexpr const char *mileageFailed =
                         "처방전 전송 중 오류 발생 - 처방전 Mileage 금액 (t_CBJDetail) 저장 에러",
                     *costsFailed =
                         "처방전 전송 중 오류 발생 - 처방전 비용상세 테이블(t_CBJcostDetail) 저장 에러",
                     *herbsFailed = "처방전 전송 중 오류 발생 - 처방전 약재 테이블(t_CBJDetail) 저장 에러",
                     *sheetFailed = "처방전 전송 중 오류 발생 - 처방전 복용법 테이블(t_EatGuide) 저장 에러";
constexpr const char* faultCaption = "처방전 전송 에러";
constexpr const char* unreadBalance = "처방전비용과 적립금을 확인하는중 에러발생.";

std::int64_t orderCost(const data::ChubangJun& row) {
    return std::int64_t{row.CBJ_JojeCost} + row.CBJ_DrugCost + row.CBJ_TJMLCost + row.CBJ_TJALCost +
           row.CBJ_PouchCost + row.CBJ_BoxCost + row.CBJ_FormCost + row.CBJ_BesongCost + row.CBJ_VATCost +
           row.CBJ_ElseCost;
}

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
      trace_(form.desktop(), draft.session) {
    lblsvrTime.setVisible(false);
    screen::usePressed(gate_.ssrCBJSend, [this] {
        Send_Order();
        // The button has gone: an order that was not sent has to be priced again first.
        if (gate_.ssrCBJSend.hasFocus()) price_.ssrCostConfirm.setFocus();
    });
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
    if (paysFromDeposit() && !depositCovers()) return draft_.payment.cboPaymentMethod.setFocus();

    const screen::BusyPointer busy(desktop, "처방전을 전송하는 중입니다.");
    try {
        if (wantsOtherHerbs()) return draft_.herbs.tdbDGL.setFocus();
        if (!trace_.settlesFormer()) return;
    } catch (const std::exception& fault) {
        desktop.alarm(faultText(fault.what()), faultCaption);
        return;
    }
    const bool stored = storeOrder();
    kept_.show(desktop);
    if (!stored) return;
    onStored();
    tellChart();
    trace_.settle();
    offerReturn();
}

bool OrderSend::paysFromDeposit() const {
    return draft_.payment.cboPaymentMethod.text() == data::pay::deposit;
}

/// Whether the doctor's deposit pays for the order; what stands against it has been shown.
bool OrderSend::depositCovers() {
    screen::Desktop& desktop = form_.desktop();
    std::string shortage;
    try {
        if (!balance_.Load_StockMoney("", "")) throw basics::Fault("");
        shortage = shortageOf(basics::toInt32(basics::removeAll(balance_.txtUsableStock.text(), ",")));
    } catch (const std::exception&) {
        desktop.alarm(unreadBalance, costCaption);
        return false;
    }
    if (!shortage.empty()) desktop.inform(shortage, costCaption);
    return shortage.empty();
}

/// What a deposit of that many won lacks for the order, "" when it pays for it.
std::string OrderSend::shortageOf(std::int64_t usable) const {
    const std::string& sum = price_.lblSumcost.caption();
    const std::int64_t total = basics::IsNumeric(sum) ? basics::toInt32(sum) : 0;
    if (usable == 0) {
        return "적립된 금액이 없습니다.\r\n\r\n"
               "[후불][후불정산]으로 전송하시거나 또는 [한약국으로 연락] 주십시오.";
    }
    if (total <= usable) return {};
    const auto shortfall = static_cast<double>(total - usable);
    return "적립금이 [ " + basics::formatNumber(shortfall, basics::NumberPicture::Separated) +
           " ]원 부족합니다.\r\n\r\n"
           "[후불][후불정산]로 전송하시거나 또는 [한약국으로 연락] 주십시오.";
}

/// The deposit once more, with the order's rows written: another session of the doctor may have spent it
/// since the first look. The sums hold the order itself by now.
bool OrderSend::stillCovered() {
    if (!paysFromDeposit()) return true;
    const std::optional<std::int64_t> usable =
        data::clsZELVOStockmoney().usable(draft_.session.connection(), draft_.session.m_DTRPK);
    if (!usable) {
        kept_.alarm(unreadBalance, costCaption);
        return false;
    }
    const std::string shortage = shortageOf(*usable - ownBalance_);
    if (!shortage.empty()) kept_.inform(shortage, costCaption);
    return shortage.empty();
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

/// The transaction from its begin to its end; true when the order stands. What there is to say of it is kept.
bool OrderSend::storeOrder() {
    std::optional<data::Transaction> transaction;
    try {
        // The clock is read in the trip that begins.
        transaction.emplace(
            draft_.session.connection(), data::newOrdersTurn(draft_.session.m_DTRPK),
            [](data::Connection& line) { data::clsZELVORecordSet().RecordSet_SvrGetdate(line); });
    } catch (const std::exception&) {
        kept_.alarm(faultText("한약국 서버 연결 확인"), faultCaption);
        return false;
    }
    std::int32_t CBJ_PK = 0;
    if (!writeRows(CBJ_PK)) {
        transaction->rollback();
        return false;
    }
    leaveTrace(CBJ_PK);
    return trace_.stands(transaction->commit(), kept_);
}

/// Mark and log, before the commit: who gives up waiting for its answer, and ends the program, must not send
/// twice.
void OrderSend::leaveTrace(std::int32_t CBJ_PK) {
    std::optional<std::string> log;
    try {
        log = sendLogText(form_.desktop(), draft_, price_.m_xaCostConfirm, lblsvrTime.caption());
    } catch (const std::exception&) {
        noteFileTrouble(form_.desktop(), "log of a send");  // not composed is not written
    }
    trace_.leave({.DTR_PK = draft_.session.m_DTRPK,
                  .CBJ_PK = CBJ_PK,
                  .serverTime = lblsvrTime.caption(),
                  .server = draft_.session.connection().server,
                  .patientName = draft_.patient.txtPatientName.text()},
                 log, kept_);
}

/// What comes behind the order's own row goes to the server in one trip: a step hands its statements in, and
/// the one that fails there is told as its step tells it.
bool OrderSend::writeRows(std::int32_t& CBJ_PK) {
    if (!stampTime()) return false;
    data::Together together(draft_.session.connection());
    std::vector<std::pair<std::size_t, const char*>> steps;
    const auto step = [&](bool handedIn, const char* failure) {
        steps.emplace_back(together.count(), failure);
        return handedIn;
    };
    const bool handedIn = step(Send_InsertOrder(CBJ_PK), mileageFailed) &&
                          step(Send_InsertCostDetail(CBJ_PK), costsFailed) &&
                          (!draft_.hasHerbs() || step(Send_InsertDrugs(CBJ_PK), herbsFailed)) &&
                          step(Send_InsertEatGuide(CBJ_PK), sheetFailed);
    const std::size_t ran = together.send();
    const auto failed =
        std::find_if(steps.begin(), steps.end(), [ran](const auto& done) { return ran < done.first; });
    if (failed != steps.end()) {
        kept_.clear();
        kept_.alarm(failed->second, rowCaption);
        return false;
    }
    return handedIn && stillCovered();
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
    kept_.alarm("DB서버 시간 가져오기 실패!", failedCaption);
    return false;
}

bool OrderSend::Send_InsertOrder(std::int32_t& CBJ_PK) {
    return attempt([this, &CBJ_PK] {
        composition::modHanYakGuk::CostFields fields;
        if (draft_.costFields(fields) == -1) {
            kept_.alarm("처방전 전송 오류, 처방전 항목(Xarray) 정보 가져오는 중 오류 발생", "처방전 전송");
            return false;
        }
        const data::ChubangJun row = orderRow(draft_, fields, price_.m_xaCostConfirm, lblsvrTime.caption());
        draft_.patient.txtPatientAge.setText(basics::removeBlanks(draft_.patient.txtPatientAge.text()));
        CBJ_PK = data::clsZELVORecordSet().Insert_ChubangJun(draft_.session.connection(), row);
        if (CBJ_PK == -1) {
            kept_.alarm("처방전 전송 중 오류 발생 - 처방전 테이블(t_ChubangJun) 저장 에러", rowCaption);
            return false;
        }
        ownBalance_ = row.CBJ_PayMethod == 1 ? -orderCost(row) : 0;
        const std::string& mileage = price_.lblMileageMoney.caption();
        if (!basics::IsNumeric(mileage) || basics::toNumber(mileage) <= 0) return true;
        return Send_InsertMileage(row.DTR_PK, CBJ_PK, basics::toInt32(mileage), lblsvrTime.caption());
    });
}

bool OrderSend::Send_InsertMileage(std::int32_t DTR_PK, std::int32_t CBJ_PK, std::int32_t STK_Money,
                                   const std::string& STK_Date) {
    return attempt([&] {
        ownBalance_ += STK_Money;
        if (data::clsZELVORecordSet().Insert_ChubangJun_Mileage(draft_.session.connection(), DTR_PK, CBJ_PK,
                                                                STK_Money, STK_Date) != -1) {
            return true;
        }
        kept_.alarm(mileageFailed, rowCaption);
        return false;
    });
}

bool OrderSend::Send_InsertCostDetail(std::int32_t CBJ_PK) {
    return attempt([this, CBJ_PK] {
        if (data::clsZELVORecordSet().Insert_ChubangJun_CostDetail(draft_.session.connection(), CBJ_PK,
                                                                   costNotes(price_.m_xaCostConfirm)) != -1) {
            return true;
        }
        kept_.alarm(costsFailed, rowCaption);
        return false;
    });
}

bool OrderSend::Send_InsertDrugs(std::int32_t CBJ_PK) {
    return attempt([this, CBJ_PK] {
        data::clsZELVORecordSet records;
        for (int row = 0; row <= draft_.lines().upperRow(); ++row) {
            if (records.Insert_ChubangJun_Detail(draft_.session.connection(), CBJ_PK,
                                                 herbLine(draft_.lines(), row)) == -1) {
                kept_.alarm(herbsFailed, rowCaption);
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
        kept_.alarm(sheetFailed, rowCaption);
        return false;
    });
}

/// A step of the send: a fault in it is kept for the user and counts as its failure.
bool OrderSend::attempt(const std::function<bool()>& step) {
    try {
        return step();
    } catch (const std::exception& fault) {
        kept_.alarm(fault.what(), rowCaption);
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
    } else {
        draft_.options.tdbJobList.setFocus();  // where the next order begins
    }
}

}  // namespace zelvo::ordering
