#pragma once

#include <string>

#include "management/OrderCancel.h"
#include "management/OrderDetail.h"
#include "management/OrderModification.h"
#include "management/OrderReuse.h"
#include "management/OrderSearch.h"
#include "platform/console/Texts.h"
#include "screen/Fields.h"
#include "support/Files.h"
#include "support/OrderWindow.h"

namespace zelvo::testing {

/// The panes and flows of the sent orders beside those of a new one. No host.
class ManagementWindow : public OrderWindow {
public:
    explicit ManagementWindow(std::shared_ptr<OrderPharmacy> shared = std::make_shared<OrderPharmacy>())
        : OrderWindow(std::move(shared)) {
        price.lblCBJcostUpAspURL.setCaption("http://pharmacy/cost-update");
        search.Form_Load();
        detail.Form_Load();
        search.Init_CBJGrid();
        detail.bindHerbs();
        detail.Clear_CBJmDetail();
        session.g_conYakGuk->yield = [this] { desktop.yield(); };
    }

    /// An order of two herbs that waits, every column of it its own; then what is different about it.
    static void put(const OrderPharmacy& pharmacy, int key, const std::string& changes = "") {
        static const std::string order = contentOf(ZELVO_SOURCE_DIR "/tests/support/waiting-order.sql");
        const std::string n = std::to_string(key);
        pharmacy.run(basics::replaceAll(order, "[N]", n));
        if (!changes.empty()) pharmacy.run("UPDATE t_ChubangJun SET " + changes + " WHERE CBJ_PK = " + n);
    }
    void put(int key, const std::string& changes = "") const { put(*pharmacy, key, changes); }
    void listAll() { search.sscCBJsearchALL.onPress(); }

    /// What fields say, parted by "|".
    std::string says(std::initializer_list<const char*> names) const {
        std::vector<std::string> all;
        for (const char* name : names) all.push_back(console::textOf(*form.field(name)).value_or(""));
        return basics::join(all, "|");
    }
    /// Everything that the fields of the order in view say and let be done.
    std::string panel() const {
        std::string all =
            rowsOf(detail.costs.m_xaCBJmCost, 0) + says({"txtEatGuideHosName2", "lblStatecancel"});
        for (const screen::Field* field : form.fields()) {
            if (field->name().find("CBJm") != std::string::npos) all += console::fieldLine(*field) + "\n";
        }
        return all;
    }
    /// The list's rows from its top: running numbers and keys.
    std::string listed() const {
        std::string all;
        for (int row = 0; row < search.tdbCBJ.rowCount(); ++row)
            all += search.tdbCBJ.valueAt(row, 0) + ":" + search.tdbCBJ.valueAt(row, 1) + " ";
        return all;
    }
    /// The oldest box: "caption: text".
    std::string box() {
        const screen::MessageBox shown = desktop.takeBox();
        return shown.caption + ": " + shown.text;
    }
    /// All that orders are kept in.
    std::string stored() const {
        std::string all;
        for (const char* table :
             {"t_ChubangJun", "t_CBJcostDetail", "t_EatGuide", "t_Stock", "t_CBJDetail"}) {
            for (const auto& row : pharmacy->rows(std::string("SELECT * FROM ") + table + " ORDER BY rowid"))
                all += basics::join(row, "|") + "\n";
        }
        return all;
    }

    management::OrderSearch search{form, {}, session};
    management::OrderDetail detail{form, {}, session, search.tdbCBJ};
    management::OrderModification modification{form, session, detail, price, balance};
    management::OrderCancel cancel{form, session, search, detail, balance};
    int shownOrderTab = 0;
    management::OrderReuse reuse{form, detail, draft, gate, [this] { ++shownOrderTab; }};
};

}  // namespace zelvo::testing
