#pragma once

#include <string>

#include "management/OrderCancel.h"
#include "management/OrderDetail.h"
#include "management/OrderModification.h"
#include "management/OrderReuse.h"
#include "management/OrderSearch.h"
#include "platform/console/Texts.h"
#include "screen/Fields.h"
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
        const std::string n = std::to_string(key);
        pharmacy.run(
            "INSERT OR IGNORE INTO t_Doctor (DTR_PK, DTR_Name, DTR_ID, DTR_PWD) VALUES (1, '이한의', 'a', 'a'),"
            " (2, '최한의', 'b', 'b');"
            "INSERT INTO t_ChubangJun (CBJ_PK, DTR_PK, Patient_PK, Patient_Name, Patient_Age, Patient_Sex, Patient_Jumin,"
            " Patient_Email, CBJ_IsPaid, CBJ_JobList_PK, CBJ_TJML_PK, CBJ_TJAL_Slot, CBJ_JojeCost, CBJ_DrugCost,"
            " CBJ_BesongCost, CBJ_VATCost, CBJ_ElseCost, CBJ_UserCost, CBJ_UserCostNoVAT, CBJ_UserCostNote,"
            " CBJ_UserCostNoteNoVAT, CBJ_Chubsu, CBJ_PouchAmount, CBJ_PouchTotal, CBJ_DayTuyak, CBJ_Tuyakilsu,"
            " CBJ_BesongMethod, CBJ_PayMethod, CBJ_Send_Name, CBJ_Send_Zip, CBJ_Send_Address, CBJ_Send_Tel, CBJ_Send_Cell,"
            " CBJ_Send_Hospital, CBJ_Reci_Zip, CBJ_Reci_Address, CBJ_Reci_Tel, CBJ_Reci_Cell, CBJ_Reci_Date, CBJ_BesongMsg,"
            " CBJ_Msg, CBJ_RegDate, CBJ_State) SELECT i, 1, 4000 + i, '환자' || i, 30 + i, i % 2, '80010' || i || '-1',"
            " 'p' || i || '@x.kr', 1, 5, 2, '001', 3000 + i, 6760, 4000, 1000, -i, 100, 20, 'with', 'without', 20, 100 + i,"
            " 17.5, 2.5, 7, 2, 1, '이한의' || i, '0300' || i, '종로 ' || i, '02-700-000' || i, '010-700-000' || i,"
            " '한의원' || i, '0600' || i, '강남 ' || i, '02-800-000' || i, '010-800-000' || i, '1900-01-01', '부재시 ' || i,"
            " '잘 ' || i, '2024-05-0' || i || ' 10:00:00', 0 FROM (SELECT " +
            n +
            " AS i);"
            "INSERT INTO t_CBJDetail (CBJ_PK, DGL_PK, DGL_CallSign, DET_Weight, DET_Danga, DET_Money, DET_Note, DET_Order)"
            " VALUES (" +
            n + ", 2, '당귀', 1, 320, 320, '볶은 " + n + "', 1), (" + n +
            ", 3, '작약', 1, 18, 18, '', 2);"
            "INSERT INTO t_CBJcostDetail (CBJ_PK, CCD_JojeCost, CCD_BesongCost, CCD_ElseCost) VALUES (" +
            n + ", '조제 " + n +
            "', '택배', '');"
            "INSERT INTO t_EatGuide VALUES (" +
            n + ", '식후 " + n + "', '우리 " + n + "', '02-1-" + n +
            "');"
            "INSERT INTO t_Stock (DTR_PK, CBJ_PK, STK_Money) VALUES (1, " +
            n + ", 500);" +
            (changes.empty() ? "" : "UPDATE t_ChubangJun SET " + changes + " WHERE CBJ_PK = " + n));
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
    management::OrderReuse reuse{form, search.tdbCBJ, detail, draft, gate, [this] { ++shownOrderTab; }};
};

}  // namespace zelvo::testing
