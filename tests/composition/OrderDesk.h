#pragma once

#include <memory>
#include <string>
#include <utility>

#include "basics/Text.h"
#include "composition/DosageSheet.h"
#include "composition/DoseFields.h"
#include "composition/HerbTable.h"
#include "composition/LeftOut.h"
#include "composition/OrderOptions.h"
#include "composition/PatientDelivery.h"
#include "composition/PaymentChoice.h"
#include "composition/SenderBlock.h"
#include "platform/console/UserActions.h"
#include "support/Files.h"
#include "support/TestDatabase.h"
#include "support/TestDesktop.h"

namespace zelvo::testing {

/// A pharmacy of a few herbs and options, some of them withdrawn, too cheap or without a price today.
class OrderPharmacy : public TestDatabase {
public:
    OrderPharmacy() : TestDatabase(false) {
        run(contentOf(ZELVO_SOURCE_DIR "/tests/support/small-pharmacy.sql"));
    }
};

/// Appends rows to an array, a line of text a row with its cells between "|", from a column on; and reads
/// them back.
inline void addRows(tables::XArrayDB& array, int firstColumn, const std::string& rows) {
    for (const std::string& cells : basics::split(rows, "\n")) {
        if (rows.empty()) return;
        const int row = array.upperRow() + 1;
        array.insertRows(row);
        for (int column = firstColumn; const std::string& cell : basics::split(cells, "|"))
            array.set(row, column++, cell);
    }
}
inline std::string rowsOf(const tables::XArrayDB& array, int firstColumn) {
    std::string all;
    for (int row = 0; row <= array.upperRow(); ++row) {
        if (row > 0) all += "\n";
        for (int column = firstColumn; column <= array.upperColumn(); ++column)
            all += (column > firstColumn ? "|" : "") + array.text(row, column);
    }
    return all;
}

/// The panes of an order tab in a small window; `Watch` is told when the price is outdated.
template <class Watch>
class OrderPanes {
public:
    explicit OrderPanes(std::shared_ptr<OrderPharmacy> shared) : pharmacy(std::move(shared)) {
        auto connection = std::make_unique<FaultyConnection>(pharmacy->connect());
        line = connection.get();
        session.g_conYakGuk = std::move(connection);
        herbs.Form_Load();
        herbs.Init_DrugGrids();
        patient.Form_Load();
        options.Form_Load();
        options.Load_JobList();
        options.Load_TangJun();
        options.Load_TangJunAdd();
        line->statements.clear();
    }

    /// Appends herb lines, from their names on.
    void add(const std::string& rows) {
        addRows(session.g_xaDrug, 1, rows);
        herbs.tdbDGL.refresh();
    }
    std::string lines() const { return rowsOf(session.g_xaDrug, 1); }
    std::string text(const std::string& field) {
        return dynamic_cast<screen::EditField&>(*form.field(field)).text();
    }
    std::string focus() const { return form.focus() ? form.focus()->name() : ""; }
    /// What the user does while the window stands.
    void run(std::function<void()> script) { desktop.show(form, std::move(script)); }

    std::shared_ptr<OrderPharmacy> pharmacy;
    TestDesktop desktop;
    session::Session session;
    FaultyConnection* line = nullptr;
    screen::Window form{desktop, "frmOrder", 19200, 12000};
    composition::OrderFrames frames{form, {}};
    Watch gate{form, frames};
    composition::OrderOptions options{form, frames, session, gate};
    composition::HerbTable herbs{form, frames, session, gate};
    composition::LeftOut leftOut{form, {}};
    composition::DoseFields dose{form, frames, session, herbs, gate};
    composition::PatientDelivery patient{form, frames, gate};
    composition::SenderBlock sender{form, frames};
    composition::PaymentChoice payment{form, frames, gate};
    composition::DosageSheet sheet{form, frames, session, patient.txtPatientName, gate};
    console::UserActions user{desktop};
};

/// Counts how often the price went out of date.
struct PriceWatch : composition::OrderWatch {
    PriceWatch(screen::Window&, composition::OrderFrames&) {}
    void priceOutdated() override { ++outdated; }
    int outdated = 0;
};

/// An order tab without price and send.
class OrderDesk : public OrderPanes<PriceWatch> {
public:
    explicit OrderDesk(std::shared_ptr<OrderPharmacy> shared = std::make_shared<OrderPharmacy>())
        : OrderPanes(std::move(shared)) {
        herbs.onCompositionChanged.add([this] { ++changed; });
        gate.outdated = 0;
    }
    int changed = 0;
};

}  // namespace zelvo::testing
