#pragma once

#include <string>

#include "composition/DosageSheet.h"
#include "composition/DoseFields.h"
#include "composition/HerbTable.h"
#include "composition/LeftOut.h"
#include "composition/OrderFrames.h"
#include "composition/OrderOptions.h"
#include "composition/PatientDelivery.h"
#include "composition/PaymentChoice.h"
#include "composition/SenderBlock.h"
#include "composition/modHanYakGuk.h"
#include "ordering/CostCheck.h"
#include "session/Session.h"

namespace zelvo::ordering {

/// The order that is being composed. It has no record of its own: it is what the screen and the herb array
/// hold.
struct OrderDraft {
    session::Session& session;
    composition::OrderFrames& frames;
    composition::HerbTable& herbs;
    composition::DoseFields& dose;
    composition::OrderOptions& options;
    composition::PatientDelivery& patient;
    composition::SenderBlock& sender;
    composition::PaymentChoice& payment;
    composition::DosageSheet& sheet;
    composition::LeftOut& leftOut;

    /// The herb lines, g_xaDrug.
    tables::XArrayDB& lines() const { return session.g_xaDrug; }
    /// The chosen row of the order types, -1 when none is.
    int jobRow() const;
    /// Whether the chosen order type has herbs, and a decoction; false when none is chosen.
    bool hasHerbs() const;
    bool hasDecoction() const;
    /// The texts that the checks before the price look at.
    CostInput checkedTexts() const;
    /// Keys and texts of the order as the cost page and the order's row take them; the result is that of
    /// Build_CostFields, 0 or -1.
    std::int16_t costFields(composition::modHanYakGuk::CostFields& fields) const;

    /// A flag of the chosen order type, by its column.
    bool typeHas(int column) const;
};

}  // namespace zelvo::ordering
