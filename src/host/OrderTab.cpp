#include "host/OrderTab.h"

namespace zelvo::host {

OrderTab::OrderTab(screen::Window& form, screen::Place tab, session::Session& session,
                   account::BalanceView& balance)
    : frames(form, tab),
      gate(form, frames),
      options(form, frames, session, gate),
      herbs(form, frames, session, gate),
      herbFinder(form, session, herbs),
      leftOut(form, tab),
      chubangReading(form, session, herbs, leftOut, gate),
      chubangSaving(form, frames, session, herbs),
      dose(form, frames, session, herbs, gate),
      herbUndo(form, session, herbs, dose.txtChubsu, leftOut, gate),
      patient(form, frames, gate),
      sender(form, frames),
      payment(form, frames, gate),
      usable(form, frames, session, payment),
      sheet(form, frames, session, patient.txtPatientName, gate),
      draft{session, frames, herbs, dose, options, patient, sender, payment, sheet, leftOut},
      cost(form, draft, gate),
      send(form, draft, gate, cost, balance),
      keeping(form, tab, draft, gate),
      nextField(form, draft, cost, gate) {
    send.onStored.add([this] {
        leftOut.clear();
        keeping.sent();
        herbUndo.forget();
        usable.forget();
    });
}

void OrderTab::Form_Load() {
    gate.Set_CostConfirmed(false);
    herbs.Form_Load();
    options.Form_Load();
    cost.Form_Load();
    patient.Form_Load();
    send.Form_Load();
    keeping.Form_Load();
}

}  // namespace zelvo::host
