#pragma once

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

/// The panes of an order tab in a small window, over a pharmacy of a few options.
class OrderDesk {
    class Watch : public composition::OrderWatch {
    public:
        int outdated = 0;
        void priceOutdated() override { ++outdated; }
    };

public:
    OrderDesk() {
        pharmacy.run(
            "INSERT INTO t_JobList (JL_PK, JL_Prompt, JL_Message, JL_DrugVisible, JL_TangJunVisible, JL_Order,"
            " JL_IsValid) VALUES (7, '첩약', '달이지 않습니다.', 1, 0, 2, 1), (5, '탕전', '달입니다.', 1, 1, 1, 1),"
            " (9, '기타구입', '', 0, 0, 3, 1), (8, '마감', '', 1, 1, 4, 0);"
            "INSERT INTO t_TangJunMethodList (TJML_PK, TJML_Prompt, TJML_Message, TJML_Order, TJML_IsValid) VALUES"
            " (1, '일반탕전', '100도', 1, 1), (2, '압력탕전', '2시간', 2, 1);"
            "INSERT INTO t_TangJunAddList (TJAL_PK, TJAL_Prompt, TJAL_Message, TJAL_Slot, TJAL_Type, TJAL_Order,"
            " TJAL_IsValid) VALUES (1, '환', '꿀', 1, 1, 1, 1), (2, '산', '분말', 2, 1, 2, 1), (3, '녹용', '8g', 10, 2, 3, 1);");
        auto line = std::make_unique<FaultyConnection>(pharmacy.connect());
        connection = line.get();
        session.g_conYakGuk = std::move(line);
        herbs.Init_DrugGrids();
        options.Form_Load();
        patient.Form_Load();
        watch.outdated = 0;
    }

    /// Appends a sound herb line of this amount in won for one packet.
    void addHerb(const char* amount, const char* state = "0") {
        const int row = session.g_xaDrug.upperRow() + 1;
        session.g_xaDrug.insertRows(row);
        session.g_xaDrug.set(row, 6, amount);
        session.g_xaDrug.set(row, 8, state);
        herbs.tdbDGL.refresh();
    }
    std::string text(const std::string& field) {
        return dynamic_cast<screen::EditField&>(*form.field(field)).text();
    }
    std::string focus() const { return form.focus() ? form.focus()->name() : ""; }

    TestDesktop desktop;
    TestDatabase pharmacy{false};
    session::Session session;
    FaultyConnection* connection = nullptr;
    screen::Window form{desktop, "frmOrder", 19200, 12000};
    composition::OrderFrames frames{form, {}};
    Watch watch;
    composition::HerbTable herbs{form, frames, session, watch};
    composition::OrderOptions options{form, frames, session, watch};
    composition::DoseFields dose{form, frames, session, herbs, watch};
    composition::PatientDelivery patient{form, frames, watch};
    composition::SenderBlock sender{form, frames};
    composition::PaymentChoice payment{form, frames, watch};
    composition::DosageSheet sheet{form, frames, session, patient.txtPatientName, watch};
    console::UserActions user{desktop};
};

}  // namespace zelvo::testing
