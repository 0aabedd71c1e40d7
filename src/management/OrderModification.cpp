#include "management/OrderModification.h"

#include <exception>

#include "basics/Numbers.h"
#include "data/Words.h"
#include "management/OrderStanding.h"

namespace zelvo::management {

namespace {

constexpr const char* saveCaption = "처방전수정";
constexpr const char* pageCaption = "처방전 수정";

std::string trimmed(const screen::TextField& field) {
    return basics::trim(field.text());
}

std::string number(std::int64_t value) {
    return basics::decimalText(value);
}

}  // namespace

OrderModification::OrderModification(screen::Window& form, session::Session& session, OrderDetail& detail,
                                     ordering::CostConfirmation& price, account::BalanceView& balance)
    : form_(form), session_(session), detail_(detail), price_(price), balance_(balance) {
    detail_.state.onUpdateClicked.add(
        [this](bool Value) { detail_.keepingOrder([&] { Begin_CBJmUpdate(Value); }); });
    screen::usePressed(detail_.state.ssrCBJmUpdate,
                       [this] { detail_.keepingOrder([&] { Save_CBJmUpdate(); }); });
}

void OrderModification::Begin_CBJmUpdate(bool Value) {
    if (!Value || detail_.behindList() || detail_.listKey() == 0) return detail_.reload();
    const screen::BusyPointer busy(form_.desktop());
    data::CBJmState order;
    if (!stillWaits(form_.desktop(), session_, detail_, detail_.listKey(), saveCaption, order))
        return detail_.state.uncheckUpdate();
    detail_.Set_CBJmEditable(true);
    detail_.state.ssrCBJmUpdate.setVisible(true);
    detail_.sheet.setEditable(true);
    detail_.patient.beginEditing();
    detail_.patient.txtCBJmPatientName.setFocus();
}

void OrderModification::Save_CBJmUpdate() {
    const screen::BusyPointer busy(form_.desktop());
    try {
        save();
    } catch (const std::exception& fault) {
        form_.desktop().alarm(std::string("처방전수정 실패. - ") + fault.what(), saveCaption);
        detail_.reload();
    }
}

void OrderModification::save() {
    screen::Desktop& desktop = form_.desktop();
    const std::int32_t CBJ_PK = detail_.listKey();
    if (detail_.behindList() || CBJ_PK == 0) return detail_.reload();
    // From here on a nurse acts for the order's doctor.
    if (session_.m_IsNurse) session_.m_DTRPK = basics::toInt32(detail_.sender.lblCBJmDTRPK.caption());
    data::CBJmState order;
    if (!stillWaits(desktop, session_, detail_, CBJ_PK, saveCaption, order)) return;

    const bool CostChanged =
        detail_.patient.cboCBJmBesongMethod.text() != detail_.patient.lblCBJmBesongMethod.caption();
    data::CBJmUpdate row;
    row.costChanged = CostChanged;
    if (CostChanged) {
        const std::int16_t payMethod =
            order.CBJ_PayMethod.empty() ? std::int16_t{0} : basics::toInt16(order.CBJ_PayMethod);
        if (!Request_CostUpdate(CBJ_PK, payMethod)) return detail_.reload();
        takeCosts(row);
    }
    row.DTR_PK = session_.m_DTRPK;
    row.CBJ_PK = CBJ_PK;
    takePatient(row);
    takeSenderAndSheet(row);
    // The page may have taken long, and the pharmacy may have begun: then its price is nobody's.
    if (!stillWaits(desktop, session_, detail_, CBJ_PK, saveCaption, order)) {
        if (CostChanged) detail_.costs.showStored();
        return;
    }
    if (!data::clsZELVORecordSet().Update_ChubangJun(session_.connection(), row)) {
        desktop.alarm("처방전수정 실패. [한약국으로 직접 연락] 바랍니다.", saveCaption);
    } else if (CostChanged) {
        desktop.inform("처방전 수정 성공! [처방전비용 변경됨]", saveCaption);
        balance_.Clear_StockView();
    } else {
        desktop.inform("처방전 수정 성공!", saveCaption);
    }
    detail_.reload();
}

/// True when the new price stands in the cost lines; every failure has been shown.
bool OrderModification::Request_CostUpdate(std::int32_t CBJ_PK, std::int16_t payMethod) {
    using ordering::CostReading;
    screen::Desktop& desktop = form_.desktop();
    try {
        if (basics::isBlank(price_.lblCBJcostUpAspURL.caption())) {
            desktop.alarm("처방전 수정 ASP URL을 찾을 수 없습니다.", pageCaption);
            return false;
        }
        const ordering::CostAnswer answer =
            ordering::readCostAnswer(askPage(CBJ_PK, payMethod), ordering::updateCostLines);
        switch (answer.reading) {
            case CostReading::Good:
                showCosts(answer);
                return true;
            case CostReading::NoStart:
                desktop.alarm(answer.reason, saveCaption);
                return false;
            case CostReading::NoEnd:
            case CostReading::NoSeparator:
            case CostReading::Refused:
                desktop.alarm(answer.reason, pageCaption);
                return false;
            case CostReading::Fault:
                throw basics::Fault(answer.reason);
        }
    } catch (const std::exception& fault) {
        desktop.alarm(fault.what(), "처방전 비용확인 에러");
    }
    return false;
}

std::string OrderModification::askPage(std::int32_t CBJ_PK, std::int16_t payMethod) const {
    screen::OrderCostText::UpdateRequest request;
    request.url = price_.lblCBJcostUpAspURL.caption();
    request.doctorKey = number(session_.m_DTRPK);
    request.orderKey = number(CBJ_PK);
    request.besongMethod = number(data::delivery::code(detail_.patient.cboCBJmBesongMethod.text()));
    request.besongZip = detail_.patient.txtCBJmBeZip.text();
    request.besongJuso = detail_.patient.txtCBJmBeJuso.text();
    request.payMethod = number(payMethod);
    const auto page =
        form_.desktop().components().make<screen::OrderCostText>("OrderCostText.clsOrderCostText");
    return page->ChubangJunCostUpdate(request);
}

/// The last two lines of the answer are the pharmacy's own amounts, with and without tax.
void OrderModification::showCosts(const ordering::CostAnswer& answer) {
    const ordering::CostLine &taxed = answer.lines[10], &untaxed = answer.lines[11];
    CostSection::Lines lines;
    lines[CostSection::totalRow] = {answer.total.amount, answer.total.note};
    lines[CostSection::pharmacyRow] = {
        std::int64_t{taxed.amount} + untaxed.amount,
        "[VAT]" + taxed.note + std::string(basics::lineBreak) + "[no VAT]" + untaxed.note};
    for (std::size_t i = 0; i + CostSection::firstLine < lines.size(); ++i)
        lines[i + CostSection::firstLine] = {answer.lines[i].amount, answer.lines[i].note};
    price_.lblMileageMoney.setCaption(number(answer.mileage));
    detail_.costs.show(lines);
}

void OrderModification::takeCosts(data::CBJmUpdate& row) const {
    row.CBJ_BesongCost = detail_.costs.amount(CostSection::deliveryRow);
    row.CCD_BesongCost = detail_.costs.note(CostSection::deliveryRow);
    row.CBJ_ElseCost = detail_.costs.amount(CostSection::otherRow);
    row.CCD_ElseCost = detail_.costs.note(CostSection::otherRow);
    row.mileageMoney = basics::toInt32(price_.lblMileageMoney.caption());
}

void OrderModification::takePatient(data::CBJmUpdate& row) const {
    const PatientSection& patient = detail_.patient;
    row.Patient_Name = trimmed(patient.txtCBJmPatientName);
    row.Patient_Jumin = trimmed(patient.txtCBJmJumin);
    row.Patient_Sex = patient.ssoCBJmSex0.value() ? "1" : "0";
    row.Patient_Age = trimmed(patient.txtCBJmAge);
    row.CBJ_Reci_Tel = trimmed(patient.txtCBJmPaTel);
    row.CBJ_Reci_Cell = trimmed(patient.txtCBJmPaCell);
    row.Patient_Email = trimmed(patient.txtCBJmPaEmail);
    row.CBJ_Reci_Zip = trimmed(patient.txtCBJmBeZip);
    row.CBJ_Reci_Address = trimmed(patient.txtCBJmBeJuso);
    row.CBJ_BesongMsg = trimmed(patient.txtCBJmBesongMsg);
    row.CBJ_BesongMethod = number(data::delivery::code(patient.cboCBJmBesongMethod.text()));
    row.CBJ_Reci_Date = patient.deliveryDate();
}

void OrderModification::takeSenderAndSheet(data::CBJmUpdate& row) const {
    const SenderSection& sender = detail_.sender;
    row.CBJ_Send_Hospital = trimmed(sender.txtCBJmHosPital);
    row.CBJ_Send_Name = trimmed(sender.txtCBJmDTRName);
    row.CBJ_Send_Tel = trimmed(sender.txtCBJmDTRTel);
    row.CBJ_Send_Cell = trimmed(sender.txtCBJmDTRCell);
    row.CBJ_Send_Zip = trimmed(sender.txtCBJmBalZip);
    row.CBJ_Send_Address = trimmed(sender.txtCBJmBalJuso);
    row.CBJ_Msg = trimmed(detail_.sheet.txtCBJmCBMsg);
    row.BogYak = basics::trim(detail_.sheet.rtxCBJmEatMsg.rtf());
    row.HospName = trimmed(detail_.sheet.txtEatGuideHosName2);
    row.PhoneNo = trimmed(detail_.sheet.txtEatGuideCall2);
}

}  // namespace zelvo::management
