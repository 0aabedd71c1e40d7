#include "ordering/OrderRows.h"

#include "basics/Numbers.h"
#include "basics/Text.h"
#include "data/Words.h"
#include "ordering/CostConfirmation.h"

namespace zelvo::ordering {

namespace {

std::string clean(const screen::TextField& field) {
    return basics::removeAll(field.text(), "'");
}
std::string tight(const screen::TextField& field) {
    return basics::removeBlanks(clean(field));
}

std::int16_t shortOrZero(const std::string& text) {
    return basics::IsNumeric(text) ? basics::toInt16(text) : std::int16_t{0};
}
float singleOrZero(const std::string& text) {
    return basics::IsNumeric(text) ? basics::toSingle(text) : 0.0F;
}

/// The amount of a cost line in won, 0 for an empty cell.
std::int32_t won(const tables::XArrayDB& costs, int row) {
    const std::string text = basics::removeAll(costs.text(row, cost::amount), ",");
    return text.empty() ? 0 : basics::toInt32(text);
}

void fillCosts(data::ChubangJun& row, const tables::XArrayDB& costs) {
    row.CBJ_JojeCost = won(costs, 1);
    row.CBJ_DrugCost = won(costs, 2);
    row.CBJ_TJMLCost = won(costs, 3);
    row.CBJ_TJALCost = won(costs, 4);
    row.CBJ_PouchCost = won(costs, 5);
    row.CBJ_BoxCost = won(costs, 6);
    row.CBJ_FormCost = won(costs, 7);
    row.CBJ_BesongCost = won(costs, 8);
    row.CBJ_VATCost = won(costs, 9);
    row.CBJ_ElseCost = won(costs, 10);
}

void fillPatient(data::ChubangJun& row, const composition::PatientDelivery& patient) {
    row.Patient_PK = basics::toInt32(patient.lblPatientPK.caption());
    row.Patient_Name = tight(patient.txtPatientName);
    row.Patient_Age = shortOrZero(basics::removeBlanks(patient.txtPatientAge.text()));
    row.Patient_Sex = patient.ssoSex0.value() ? 1 : 0;
    row.Patient_Jumin = tight(patient.txtPatientJumin);
    row.Patient_Email = tight(patient.txtPatientEmail);
    row.CBJ_BesongMethod = data::delivery::code(patient.cboBesongMethod.text());
    row.CBJ_Reci_Zip = tight(patient.txtBesongZip);
    row.CBJ_Reci_Address = clean(patient.txtBesongJuso);
    row.CBJ_Reci_Tel = tight(patient.txtPatientTel);
    row.CBJ_Reci_Cell = tight(patient.txtPatientCell);
    row.CBJ_Reci_Date = patient.chkBesongDate.value() ? patient.dtpBesongDate.text() : "1900-01-01";
    row.CBJ_BesongMsg = clean(patient.txtBesongMsg);
}

void fillSender(data::ChubangJun& row, const composition::SenderBlock& sender) {
    row.CBJ_Send_Name = tight(sender.txtDoctor);
    row.CBJ_Send_Zip = tight(sender.txtBalsongZip);
    row.CBJ_Send_Address = clean(sender.txtBalsongJuso);
    row.CBJ_Send_Tel = tight(sender.txtHospitalTel);
    row.CBJ_Send_Cell = tight(sender.txtDoctorCell);
    row.CBJ_Send_Hospital = tight(sender.txtHospitalName);
}

}  // namespace

data::ChubangJun orderRow(const OrderDraft& draft, const composition::modHanYakGuk::CostFields& fields,
                          const tables::XArrayDB& costs, const std::string& serverTime) {
    const std::string payMethod = draft.payment.cboPaymentMethod.text();
    data::ChubangJun row;
    row.DTR_PK = draft.session.m_DTRPK;
    fillPatient(row, draft.patient);
    fillSender(row, draft.sender);
    fillCosts(row, costs);
    row.CBJ_IsPaid = payMethod == data::pay::deposit ? 1 : 0;
    row.CBJ_PayMethod = data::pay::code(payMethod);
    row.CBJ_JobList_PK = shortOrZero(fields.JobListKey);
    row.CBJ_TJML_PK = shortOrZero(fields.TJMLKey);
    row.CBJ_TJAL_Slot = fields.TJALSlot;
    row.CBJ_Chubsu = shortOrZero(fields.Chubsu);
    row.CBJ_PouchAmount = singleOrZero(fields.PouchAmount);
    row.CBJ_PouchTotal = shortOrZero(fields.PouchTotal);
    row.CBJ_DayTuyak = singleOrZero(draft.dose.txtDayTuyak.text());
    row.CBJ_Tuyakilsu = shortOrZero(draft.dose.txtTuyakilsu.text());
    row.CBJ_Msg = clean(draft.sheet.txtCBJmsg);
    row.CBJ_RegDate = serverTime;
    return row;
}

data::CostNotes costNotes(const tables::XArrayDB& costs) {
    const auto note = [&costs](int row) { return basics::replaceAll(costs.text(row, cost::note), "'", " "); };
    return {.CCD_JojeCost = note(1),
            .CCD_DrugCost = note(2),
            .CCD_TJMLcost = note(3),
            .CCD_TJALCost = note(4),
            .CCD_PouchCost = note(5),
            .CCD_BoxCost = note(6),
            .CCD_FormCost = note(7),
            .CCD_BesongCost = note(8),
            .CCD_VATCost = note(9),
            .CCD_ElseCost = note(10)};
}

data::HerbLine herbLine(const tables::XArrayDB& herbs, int row) {
    const auto cell = [&herbs, row](int column) { return herbs.text(row, column); };
    return {.DGL_PK = basics::toInt32(cell(3)),
            .DGL_CallSign = cell(1),
            .DET_Weight = basics::toSingle(cell(4)),
            .DET_Danga = basics::toSingle(cell(5)),
            .DET_Money = basics::toInt16(cell(6)),
            .DET_Note = cell(10),
            .DET_Order = basics::toInt16(cell(7))};
}

}  // namespace zelvo::ordering
