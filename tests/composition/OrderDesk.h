#pragma once

#include <memory>
#include <string>
#include <utility>

#include "basics/Text.h"
#include "composition/DosageSheet.h"
#include "composition/DoseFields.h"
#include "composition/HerbTable.h"
#include "composition/OrderOptions.h"
#include "composition/PatientDelivery.h"
#include "composition/PaymentChoice.h"
#include "composition/SenderBlock.h"
#include "platform/console/UserActions.h"
#include "support/TestDatabase.h"
#include "support/TestDesktop.h"

namespace zelvo::testing {

/// A pharmacy of a few herbs and options, some of them withdrawn, too cheap or without a price today.
class OrderPharmacy : public TestDatabase {
public:
    OrderPharmacy() : TestDatabase(false) {
        run("INSERT INTO t_DrugList (DGL_PK, DGL_CallSign, DGL_Internal, DGL_Default, DGL_IsValid) VALUES"
            " (1, '당귀', '일당귀', 0, 1), (2, '당귀', '토당귀', 1, 1), (3, '작약', '작약(국산)', 1, 1),"
            " (4, '감초', '감초(중국)', 1, 0), (5, '천궁', '천궁(국산)', 1, 1), (6, '녹각', '', 1, 1),"
            " (7, '계피', '계피(베트남)', 1, 1);"
            "INSERT INTO t_DrugDanga (DGL_PK, DGD_Danga, DGD_StartDate, DGD_EndDate)"
            " SELECT DGL_PK, CASE DGL_PK WHEN 2 THEN 320 WHEN 7 THEN 0.02 ELSE 18 END, '2000-01-01',"
            " CASE DGL_PK WHEN 5 THEN '2001-12-31' ELSE '2099-12-31' END FROM t_DrugList;"
            "INSERT INTO t_JobList (JL_PK, JL_Prompt, JL_Message, JL_DrugVisible, JL_TangJunVisible, JL_Order,"
            " JL_IsValid) VALUES (7, '첩약', '달이지 않습니다.', 1, 0, 2, 1), (5, '탕전', '달입니다.', 1, 1, 1, 1),"
            " (9, '기타구입', '', 0, 0, 3, 1), (8, '마감', '', 1, 1, 4, 0);"
            "INSERT INTO t_TangJunMethodList (TJML_PK, TJML_Prompt, TJML_Message, TJML_Order) VALUES"
            " (1, '일반탕전', '100도', 1), (2, '압력탕전', '2시간', 2);"
            "INSERT INTO t_TangJunAddList (TJAL_PK, TJAL_Prompt, TJAL_Message, TJAL_Slot, TJAL_Type, TJAL_Order)"
            " VALUES (1, '녹용', '8g', 3, 1, 1), (2, '산', '분말', 64, 1, 2), (3, '환', '꿀', 10, 2, 3);");
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
