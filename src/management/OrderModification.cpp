#include "management/OrderModification.h"

#include <exception>
#include <string_view>
#include <vector>

#include "basics/Numbers.h"
#include "data/Words.h"
#include "management/OrderStanding.h"
#include "ordering/OrderFit.h"
#include "session/YakGukConnection.h"

namespace zelvo::management {

namespace {

constexpr const char* saveCaption = "처방전수정";
constexpr const char* pageCaption = "처방전 수정";

std::string trimmed(const screen::TextField& field) {
    return basics::trim(field.text());
}

/// A text of the order that can be changed: its column, and what the doctor calls it.
struct Column {
    std::string data::CBJmUpdate::*member;
    std::string_view column, label;
};
struct Text : Column {
    screen::TextField& field;
    bool ofSheet = false;
};

constexpr Column sheetText{&data::CBJmUpdate::BogYak, "BogYak", "복용법"};

std::vector<Text> texts(OrderDetail& detail) {
    using Row = data::CBJmUpdate;
    PatientSection& patient = detail.patient;
    SenderSection& sender = detail.sender;
    SheetSection& sheet = detail.sheet;
    return {
        {{&Row::Patient_Name, "Patient_Name", "환자명"}, patient.txtCBJmPatientName},
        {{&Row::Patient_Jumin, "Patient_Jumin", "주민번호"}, patient.txtCBJmJumin},
        {{&Row::CBJ_Reci_Tel, "CBJ_Reci_Tel", "환자 전화번호"}, patient.txtCBJmPaTel},
        {{&Row::CBJ_Reci_Cell, "CBJ_Reci_Cell", "환자 핸드폰"}, patient.txtCBJmPaCell},
        {{&Row::Patient_Email, "Patient_Email", "이메일"}, patient.txtCBJmPaEmail},
        {{&Row::CBJ_Reci_Zip, "CBJ_Reci_Zip", "배송주소의 우편번호"}, patient.txtCBJmBeZip},
        {{&Row::CBJ_Reci_Address, "CBJ_Reci_Address", "배송주소"}, patient.txtCBJmBeJuso},
        {{&Row::CBJ_BesongMsg, "CBJ_BesongMsg", "택배내용"}, patient.txtCBJmBesongMsg},
        {{&Row::CBJ_Send_Hospital, "CBJ_Send_Hospital", "한의원명"}, sender.txtCBJmHosPital},
        {{&Row::CBJ_Send_Name, "CBJ_Send_Name", "한의사명"}, sender.txtCBJmDTRName},
        {{&Row::CBJ_Send_Tel, "CBJ_Send_Tel", "한의원 전화번호"}, sender.txtCBJmDTRTel},
        {{&Row::CBJ_Send_Cell, "CBJ_Send_Cell", "한의사 핸드폰"}, sender.txtCBJmDTRCell},
        {{&Row::CBJ_Send_Zip, "CBJ_Send_Zip", "발송주소의 우편번호"}, sender.txtCBJmBalZip},
        {{&Row::CBJ_Send_Address, "CBJ_Send_Address", "발송주소"}, sender.txtCBJmBalJuso},
        {{&Row::CBJ_Msg, "CBJ_Msg", "처방 메시지"}, sheet.txtCBJmCBMsg},
        {{&Row::HospName, "HospName", "복용법 한의원명"}, sheet.txtEatGuideHosName2, true},
        {{&Row::PhoneNo, "PhoneNo", "복용법 연락처"}, sheet.txtEatGuideCall2, true},
    };
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
    if (!Value || detail_.behindList()) return detail_.reload();
    screen::Desktop& desktop = form_.desktop();
    const screen::BusyPointer busy(desktop, "처방전의 진행상태를 확인하는 중입니다.");
    data::CBJmState order;
    if (!mayChange(desktop, session_, detail_, saveCaption) ||
        !stillWaits(desktop, session_, detail_, detail_.listKey(), saveCaption, order)) {
        return detail_.state.uncheckUpdate();
    }
    detail_.Set_CBJmEditable(true);
    detail_.state.ssrCBJmUpdate.setVisible(true);
    detail_.sheet.setEditable(true);
    detail_.patient.beginEditing();
    detail_.patient.txtCBJmPatientName.setFocus();
}

void OrderModification::Save_CBJmUpdate() {
    const screen::BusyPointer busy(form_.desktop(), "처방전을 수정하는 중입니다.");
    try {
        save();
    } catch (const std::exception& fault) {
        form_.desktop().alarm(std::string("처방전수정 실패. - ") + fault.what(), saveCaption);
        detail_.reload();
    }
}

void OrderModification::save() {
    screen::Desktop& desktop = form_.desktop();
    if (!mayChange(desktop, session_, detail_, saveCaption)) return;
    data::CBJmUpdate row;
    row.CBJ_PK = detail_.listKey();
    // The order's money is its own doctor's, whoever has logged in. A nurse acts for that one from here on.
    row.DTR_PK = basics::toInt32(detail_.sender.lblCBJmDTRPK.caption());
    if (session_.m_IsNurse) session_.m_DTRPK = row.DTR_PK;
    data::CBJmState order;
    if (!stillWaits(desktop, session_, detail_, row.CBJ_PK, saveCaption, order)) return;
    take(row);
    if (!ageIsSound() || !textsFit(row)) return;
    if (row.costChanged && !Request_CostUpdate(row, order)) return detail_.reload();
    // The page may have taken long, and the pharmacy may have begun: then its price is nobody's.
    if (!stillWaits(desktop, session_, detail_, row.CBJ_PK, saveCaption, order)) {
        if (row.costChanged) detail_.costs.showStored();
        return;
    }
    tell(data::clsZELVORecordSet().Update_ChubangJun(session_.connection(), row), row.costChanged);
    detail_.reload();
}

/// The age stands in the order as a whole number: what is none, or too large for its place, would cost the
/// doctor all that was typed.
bool OrderModification::ageIsSound() {
    screen::TextField& age = detail_.patient.txtCBJmAge;
    try {
        if (basics::isBlank(age.text()) ||
            (basics::IsNumeric(age.text()) && basics::toInt16(age.text()) >= 0 &&
             basics::toNumber(age.text()) == basics::toInt16(age.text())))
            return true;
    } catch (const basics::Fault&) {
        // Too large: told like any other that is none.
    }
    form_.desktop().inform("[나이]를 숫자로 입력해 주십시오.", saveCaption);
    age.setFocus();
    return false;
}

/// A text that is longer than its column would cost the doctor all that was typed, too.
bool OrderModification::textsFit(const data::CBJmUpdate& row) {
    const data::TextLengths& lengths = price_.textLengths();
    const auto fits = [&](std::string_view table, const auto& text, screen::Field& field) {
        const std::size_t over = lengths.excess(table, text.column, row.*text.member);
        if (over == 0) return true;
        form_.desktop().inform(ordering::tooLong("[" + std::string(text.label) + "]", over), saveCaption);
        field.setFocus();
        return false;
    };
    for (const Text& text : texts(detail_)) {
        if (!fits(text.ofSheet ? "t_EatGuide" : "t_ChubangJun", text, text.field)) return false;
    }
    return fits("t_EatGuide", sheetText, detail_.sheet.cmdEatGuideUpdate);
}

void OrderModification::tell(data::CommitOutcome outcome, bool CostChanged) {
    screen::Desktop& desktop = form_.desktop();
    switch (outcome) {
        case data::CommitOutcome::Refused:
            return desktop.alarm("처방전수정 실패. [한약국으로 직접 연락] 바랍니다.", saveCaption);
        case data::CommitOutcome::Unknown:
            desktop.alarm("처방전 수정 결과를 확인할 수 없습니다. " + session::onceStartedAgain(session_) +
                              "다시 검색하여 확인하여 주십시오.",
                          saveCaption);
            break;
        case data::CommitOutcome::Done:
            desktop.inform(CostChanged ? "처방전 수정 성공! [처방전비용 변경됨]" : "처방전 수정 성공!",
                           saveCaption);
            break;
    }
    if (CostChanged) balance_.Clear_StockView();
}

/// Takes the new price into the row and shows it in the cost lines. False when there is none; that has been
/// shown.
bool OrderModification::Request_CostUpdate(data::CBJmUpdate& row, const data::CBJmState& order) {
    using ordering::CostReading;
    screen::Desktop& desktop = form_.desktop();
    try {
        if (basics::isBlank(price_.lblCBJcostUpAspURL.caption())) {
            desktop.alarm("처방전 수정 ASP URL을 찾을 수 없습니다.", pageCaption);
            return false;
        }
        const ordering::CostAnswer answer =
            ordering::readCostAnswer(askPage(row, order), ordering::updateCostLines);
        switch (answer.reading) {
            case CostReading::Good:
                takeCosts(row, answer);
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

std::string OrderModification::askPage(const data::CBJmUpdate& row, const data::CBJmState& order) const {
    screen::OrderCostText::UpdateRequest request;
    request.url = price_.lblCBJcostUpAspURL.caption();
    request.doctorKey = number(row.DTR_PK);
    request.orderKey = number(row.CBJ_PK);
    request.besongMethod = row.CBJ_BesongMethod;
    request.besongZip = detail_.patient.txtCBJmBeZip.text();
    request.besongJuso = detail_.patient.txtCBJmBeJuso.text();
    request.payMethod =
        number(order.CBJ_PayMethod.empty() ? std::int16_t{0} : basics::toInt16(order.CBJ_PayMethod));
    const auto page = form_.desktop().components().make<screen::OrderCostText>();
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

void OrderModification::takeCosts(data::CBJmUpdate& row, const ordering::CostAnswer& answer) {
    const auto line = [&answer](int shownRow) -> const ordering::CostLine& {
        return answer.lines[static_cast<std::size_t>(shownRow - CostSection::firstLine)];
    };
    const ordering::CostLine &delivery = line(CostSection::deliveryRow), &other = line(CostSection::otherRow);
    row.CBJ_BesongCost = delivery.amount;
    row.CCD_BesongCost = delivery.note;
    row.CBJ_ElseCost = other.amount;
    row.CCD_ElseCost = other.note;
    row.mileageMoney = answer.mileage;
}

void OrderModification::take(data::CBJmUpdate& row) const {
    for (const Text& text : texts(detail_)) row.*text.member = trimmed(text.field);
    const PatientSection& patient = detail_.patient;
    row.Patient_Sex = patient.sex();
    row.Patient_Age = patient.age();
    // A method that was not chosen here stays as it stands, with its price: another desk may have changed
    // both, and it may be one that nobody knows.
    row.costChanged = patient.cboCBJmBesongMethod.text() != patient.lblCBJmBesongMethod.caption();
    if (row.costChanged)
        row.CBJ_BesongMethod = number(data::delivery::code(patient.cboCBJmBesongMethod.text()));
    row.CBJ_Reci_Date = patient.deliveryDate();
    row.BogYak = basics::trim(detail_.sheet.rtxCBJmEatMsg.rtf());
    row.newSheet = detail_.sheet.isNew();
}

}  // namespace zelvo::management
