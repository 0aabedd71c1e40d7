#pragma once

#include "account/UsableDeposit.h"
#include "composition/ChubangReading.h"
#include "composition/ChubangSaving.h"
#include "composition/DosageSheet.h"
#include "composition/DoseFields.h"
#include "composition/HerbFinder.h"
#include "composition/HerbTable.h"
#include "composition/HerbUndo.h"
#include "composition/LeftOut.h"
#include "composition/OrderFrames.h"
#include "composition/OrderOptions.h"
#include "composition/PatientDelivery.h"
#include "composition/PaymentChoice.h"
#include "composition/SenderBlock.h"
#include "ordering/CostConfirmation.h"
#include "ordering/DraftKeeping.h"
#include "ordering/NextField.h"
#include "ordering/OrderDraft.h"
#include "ordering/OrderSend.h"
#include "ordering/SendGate.h"

namespace zelvo::host {

/// The tab on which a new order is composed, priced and sent: its panes and flows, in the order of their
/// building.
struct OrderTab {
    OrderTab(screen::Window& form, screen::Place tab, session::Session& session,
             account::BalanceView& balance);

    void Form_Load();

    composition::OrderFrames frames;
    ordering::SendGate gate;
    composition::OrderOptions options;
    composition::HerbTable herbs;
    composition::HerbFinder herbFinder;
    composition::LeftOut leftOut;
    composition::ChubangReading chubangReading;
    composition::ChubangSaving chubangSaving;
    composition::DoseFields dose;
    composition::HerbUndo herbUndo;
    composition::PatientDelivery patient;
    composition::SenderBlock sender;
    composition::PaymentChoice payment;
    account::UsableDeposit usable;
    composition::DosageSheet sheet;
    ordering::OrderDraft draft;
    ordering::CostConfirmation cost;
    ordering::OrderSend send;
    ordering::DraftKeeping keeping;
    ordering::NextField nextField;
};

}  // namespace zelvo::host
