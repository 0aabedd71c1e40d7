#include "ordering/NextField.h"

#include <algorithm>

#include "basics/Text.h"
#include "composition/modHanYakGuk.h"
#include "data/Words.h"
#include "ordering/CostCheck.h"

namespace zelvo::ordering {

using basics::isBlank;
using screen::Field;

namespace {

/// A field, and whether the order waits for it.
struct Item {
    const Field& field;
    bool open;
};

std::vector<Item> compositionItems(const OrderDraft& draft) {
    const composition::DoseFields& dose = draft.dose;
    const bool herbs = draft.hasHerbs(), decoction = draft.hasDecoction();
    const bool unsound = draft.lines().empty() || unsoundLine(draft.lines()) >= 0;
    const bool pouches = decoction && !isAboveZero(dose.txtPouchTotal.text());
    const bool packsADay = isAboveZero(dose.txtDayTuyak.text()), days = isAboveZero(dose.txtTuyakilsu.text());
    return {{draft.options.tdbJobList, draft.jobRow() < 0},
            {draft.herbs.tdbDGL, herbs && unsound},
            {dose.txtChubsu, herbs && !isAboveZero(dose.txtChubsu.text())},
            {draft.options.tdbTJML,
             decoction && composition::modHanYakGuk::selectedRow(draft.options.m_xaTJML) < 0},
            {dose.txtDayTuyak, pouches && !packsADay},
            {dose.txtTuyakilsu, pouches && !days},
            {dose.txtPouchTotal, pouches && packsADay && days},
            {dose.txtPouchAmount, decoction && !isAboveZero(dose.txtPouchAmount.text())},
            {draft.sheet.txtCBJmsg,
             draft.jobRow() >= 0 && !herbs && !decoction && isBlank(draft.sheet.txtCBJmsg.text())},
            {draft.payment.cboPaymentMethod, draft.payment.cboPaymentMethod.text().empty()}};
}

/// A postal code is not written but looked for.
std::vector<Item> deliveryItems(const OrderDraft& draft) {
    const composition::PatientDelivery& patient = draft.patient;
    const composition::SenderBlock& sender = draft.sender;
    const std::string method = patient.cboBesongMethod.text();
    const bool toPatient = method == data::delivery::courier || method == data::delivery::parcel;
    const bool sent = toPatient || method == data::delivery::clinic;
    const auto blank = [](const screen::TextField& field) { return isBlank(field.text()); };
    return {{patient.txtPatientName, blank(patient.txtPatientName)},
            {patient.txtPatientCell, blank(patient.txtPatientCell) && blank(patient.txtPatientTel)},
            {patient.ssrZipCode0, toPatient && blank(patient.txtBesongZip)},
            {patient.txtBesongJuso, toPatient && blank(patient.txtBesongJuso)},
            {patient.cboBesongMethod, method == data::delivery::undecided},
            {sender.txtDoctor, sent && blank(sender.txtDoctor)},
            {sender.txtDoctorCell, sent && blank(sender.txtDoctorCell) && blank(sender.txtHospitalTel)},
            {sender.ssrZipCode1, toPatient && blank(sender.txtBalsongZip)},
            {sender.txtBalsongJuso, toPatient && blank(sender.txtBalsongJuso)}};
}

}  // namespace

NextField::NextField(screen::Window& form, const OrderDraft& draft, const CostConfirmation& cost,
                     const SendGate& gate)
    : form_(form), draft_(draft), cost_(cost), gate_(gate) {
    form_.addShortcut({"F10", "다음에 입력할 항목으로",
                       [this] { return draft_.options.tdbJobList.shown() && next() != nullptr; },
                       [this] {
                           form_.userInput([this] {
                               if (Field* const field = next()) field->setFocus();
                           });
                       },
                       form_.field("c1tMain")});
}

/// In no order; the price, and then the sending, waits always.
std::vector<const Field*> NextField::openFields() const {
    std::vector<const Field*> open{&cost_.ssrCostConfirm};
    if (gate_.ssrCBJSend.visible()) open = {&gate_.ssrCBJSend};
    for (const auto& items : {compositionItems(draft_), deliveryItems(draft_)}) {
        for (const Item& item : items) {
            if (item.open) open.push_back(&item.field);
        }
    }
    return open;
}

Field* NextField::next() const {
    const std::vector<const Field*> open = openFields();
    return form_.nextField(
        [&](const Field& field) { return std::find(open.begin(), open.end(), &field) != open.end(); });
}

}  // namespace zelvo::ordering
