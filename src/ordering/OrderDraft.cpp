#include "ordering/OrderDraft.h"

#include "basics/Text.h"

namespace zelvo::ordering {

int OrderDraft::jobRow() const {
    return composition::modHanYakGuk::selectedRow(options.m_xaJobList);
}

bool OrderDraft::hasHerbs() const {
    return typeHas(composition::option::hasHerbs);
}

bool OrderDraft::hasDecoction() const {
    return typeHas(composition::option::hasDecoction);
}

bool OrderDraft::typeHas(int column) const {
    return jobRow() >= 0 && options.m_xaJobList.isTrue(jobRow(), column);
}

CostInput OrderDraft::checkedTexts() const {
    return {.PatientName = patient.txtPatientName.text(),
            .PatientCell = patient.txtPatientCell.text(),
            .PatientTel = patient.txtPatientTel.text(),
            .BesongMethod = patient.cboBesongMethod.text(),
            .BesongZip = patient.txtBesongZip.text(),
            .BesongJuso = patient.txtBesongJuso.text(),
            .Doctor = sender.txtDoctor.text(),
            .DoctorCell = sender.txtDoctorCell.text(),
            .HospitalTel = sender.txtHospitalTel.text(),
            .BalsongZip = sender.txtBalsongZip.text(),
            .BalsongJuso = sender.txtBalsongJuso.text(),
            .Chubsu = dose.txtChubsu.text(),
            .DrugPrice = dose.txtDrugPrice.text(),
            .PouchAmount = dose.txtPouchAmount.text(),
            .PouchTotal = dose.txtPouchTotal.text(),
            .CBJmsg = sheet.txtCBJmsg.text(),
            .PaymentMethod = payment.cboPaymentMethod.text()};
}

std::int16_t OrderDraft::costFields(composition::modHanYakGuk::CostFields& fields) const {
    fields.Chubsu = dose.txtChubsu.text();
    fields.DrugPrice = basics::removeAll(dose.txtDrugPrice.text(), ",");
    fields.PouchAmount = dose.txtPouchAmount.text();
    fields.PouchTotal = dose.txtPouchTotal.text();
    return composition::modHanYakGuk::Build_CostFields(options.m_xaJobList, lines(), options.m_xaTJML,
                                                       options.m_xaTJAL, fields);
}

}  // namespace zelvo::ordering
