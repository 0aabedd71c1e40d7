#include "ordering/OrderRows.h"

#include <utility>

#include "basics/Numbers.h"
#include "basics/Text.h"
#include "data/Words.h"
#include "ordering/CostConfirmation.h"

namespace zelvo::ordering {

namespace {

std::string clean(const screen::TextField& field) {
    return basics::removeAll(field.text(), "'");
}

std::int16_t shortOrZero(const std::string& text) {
    return basics::IsNumeric(text) ? basics::toInt16(text) : std::int16_t{0};
}
float singleOrZero(const std::string& text) {
    return basics::IsNumeric(text) ? basics::toSingle(text) : 0.0F;
}

/// Days, or packs a day: what nobody has checked, because the order has no decoction, is stored as left open
/// unless it is a quantity.
std::string checkedQuantity(const OrderDraft& draft, const screen::TextField& field, bool whole) {
    return draft.hasDecoction() || isQuantity(field.text(), whole) ? field.text() : std::string();
}

/// Where the cost lines are stored, from the line behind the total on.
constexpr struct {
    std::int32_t data::ChubangJun::*amount;
    std::string data::CostNotes::*note;
} costColumns[] = {{&data::ChubangJun::CBJ_JojeCost, &data::CostNotes::CCD_JojeCost},
                   {&data::ChubangJun::CBJ_DrugCost, &data::CostNotes::CCD_DrugCost},
                   {&data::ChubangJun::CBJ_TJMLCost, &data::CostNotes::CCD_TJMLcost},
                   {&data::ChubangJun::CBJ_TJALCost, &data::CostNotes::CCD_TJALCost},
                   {&data::ChubangJun::CBJ_PouchCost, &data::CostNotes::CCD_PouchCost},
                   {&data::ChubangJun::CBJ_BoxCost, &data::CostNotes::CCD_BoxCost},
                   {&data::ChubangJun::CBJ_FormCost, &data::CostNotes::CCD_FormCost},
                   {&data::ChubangJun::CBJ_BesongCost, &data::CostNotes::CCD_BesongCost},
                   {&data::ChubangJun::CBJ_VATCost, &data::CostNotes::CCD_VATCost},
                   {&data::ChubangJun::CBJ_ElseCost, &data::CostNotes::CCD_ElseCost}};

/// The amount of a cost line in won, 0 for an empty cell.
std::int32_t won(const tables::XArrayDB& costs, int row) {
    const std::string text = basics::removeAll(costs.text(row, cost::amount), ",");
    return text.empty() ? 0 : basics::toInt32(text);
}

void fillPatient(data::ChubangJun& row, const composition::PatientDelivery& patient) {
    row.Patient_PK = basics::toInt32(patient.lblPatientPK.caption());
    row.Patient_Age = shortOrZero(basics::removeBlanks(patient.txtPatientAge.text()));
    row.Patient_Sex = patient.ssoSex0.value() ? 1 : 0;
    row.CBJ_BesongMethod = data::delivery::code(patient.cboBesongMethod.text());
    row.CBJ_Reci_Date = patient.chkBesongDate.value() ? patient.dtpBesongDate.text() : "1900-01-01";
}

}  // namespace

std::vector<RowText> rowTexts(const OrderDraft& draft) {
    using Row = data::ChubangJun;
    composition::PatientDelivery& patient = draft.patient;
    composition::SenderBlock& sender = draft.sender;
    const auto tight = [](auto member, std::string_view column, std::string_view label,
                          screen::TextField& field) {
        return RowText{member, column, label, field, basics::removeBlanks(clean(field))};
    };
    const auto loose = [](auto member, std::string_view column, std::string_view label,
                          screen::TextField& field) {
        return RowText{member, column, label, field, clean(field)};
    };
    return {
        tight(&Row::Patient_Name, "Patient_Name", "환자명", patient.txtPatientName),
        tight(&Row::Patient_Jumin, "Patient_Jumin", "주민번호", patient.txtPatientJumin),
        tight(&Row::Patient_Email, "Patient_Email", "이메일", patient.txtPatientEmail),
        tight(&Row::CBJ_Reci_Tel, "CBJ_Reci_Tel", "환자 전화번호", patient.txtPatientTel),
        tight(&Row::CBJ_Reci_Cell, "CBJ_Reci_Cell", "환자 핸드폰", patient.txtPatientCell),
        tight(&Row::CBJ_Reci_Zip, "CBJ_Reci_Zip", "배송주소의 우편번호", patient.txtBesongZip),
        loose(&Row::CBJ_Reci_Address, "CBJ_Reci_Address", "배송주소", patient.txtBesongJuso),
        loose(&Row::CBJ_BesongMsg, "CBJ_BesongMsg", "택배내용", patient.txtBesongMsg),
        tight(&Row::CBJ_Send_Hospital, "CBJ_Send_Hospital", "한의원명", sender.txtHospitalName),
        tight(&Row::CBJ_Send_Name, "CBJ_Send_Name", "한의사명", sender.txtDoctor),
        tight(&Row::CBJ_Send_Tel, "CBJ_Send_Tel", "한의원 전화번호", sender.txtHospitalTel),
        tight(&Row::CBJ_Send_Cell, "CBJ_Send_Cell", "한의사 핸드폰", sender.txtDoctorCell),
        tight(&Row::CBJ_Send_Zip, "CBJ_Send_Zip", "발송주소의 우편번호", sender.txtBalsongZip),
        loose(&Row::CBJ_Send_Address, "CBJ_Send_Address", "발송주소", sender.txtBalsongJuso),
        loose(&Row::CBJ_Msg, "CBJ_Msg", "처방 메시지", draft.sheet.txtCBJmsg),
    };
}

data::ChubangJun orderRow(const OrderDraft& draft, const composition::modHanYakGuk::CostFields& fields,
                          const tables::XArrayDB& costs, const std::string& serverTime) {
    const std::string payMethod = draft.payment.cboPaymentMethod.text();
    data::ChubangJun row;
    row.DTR_PK = draft.session.m_DTRPK;
    for (RowText& text : rowTexts(draft)) row.*text.member = std::move(text.stored);
    fillPatient(row, draft.patient);
    for (int line = 0; const auto& column : costColumns) row.*column.amount = won(costs, ++line);
    row.CBJ_IsPaid = payMethod == data::pay::deposit ? 1 : 0;
    row.CBJ_PayMethod = data::pay::code(payMethod);
    row.CBJ_JobList_PK = shortOrZero(fields.JobListKey);
    row.CBJ_TJML_PK = shortOrZero(fields.TJMLKey);
    row.CBJ_TJAL_Slot = fields.TJALSlot;
    row.CBJ_Chubsu = shortOrZero(fields.Chubsu);
    row.CBJ_PouchAmount = singleOrZero(fields.PouchAmount);
    row.CBJ_PouchTotal = shortOrZero(fields.PouchTotal);
    row.CBJ_DayTuyak = singleOrZero(checkedQuantity(draft, draft.dose.txtDayTuyak, false));
    row.CBJ_Tuyakilsu = shortOrZero(checkedQuantity(draft, draft.dose.txtTuyakilsu, true));
    row.CBJ_RegDate = serverTime;
    return row;
}

data::CostNotes costNotes(const tables::XArrayDB& costs) {
    data::CostNotes notes;
    for (int line = 0; const auto& column : costColumns)
        notes.*column.note = basics::replaceAll(costs.text(++line, cost::note), "'", " ");
    return notes;
}

data::HerbLine herbLine(const tables::XArrayDB& herbs, int row) {
    namespace herb = composition::herb;
    const auto cell = [&herbs, row](int column) { return herbs.text(row, column); };
    return {.DGL_PK = basics::toInt32(cell(herb::key)),
            .DGL_CallSign = cell(herb::name),
            .DET_Weight = basics::toSingle(cell(herb::grams)),
            .DET_Danga = basics::toSingle(cell(herb::price)),
            .DET_Money = basics::toInt16(cell(herb::amount)),
            .DET_Note = cell(herb::note),
            .DET_Order = basics::toInt16(cell(herb::order))};
}

}  // namespace zelvo::ordering
