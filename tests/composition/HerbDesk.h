#pragma once

#include <string>

#include "basics/Text.h"
#include "composition/HerbTable.h"
#include "platform/console/UserActions.h"
#include "support/TestDatabase.h"
#include "support/TestDesktop.h"

namespace zelvo::testing {

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
        for (int column = firstColumn; column <= array.upperColumn(); ++column) {
            all += (column > firstColumn ? "|" : "") + array.text(row, column);
        }
    }
    return all;
}

/// An order tab with nothing on it but the herb table, over a pharmacy of a few herbs.
class HerbDesk {
    class Watch : public composition::OrderWatch {
    public:
        int outdated = 0;
        void priceOutdated() override { ++outdated; }
    };

public:
    HerbDesk() {
        pharmacy.run(
            "INSERT INTO t_DrugList (DGL_PK, DGL_CallSign, DGL_Internal, DGL_Default, DGL_IsValid) VALUES"
            " (1, '당귀', '일당귀', 0, 1), (2, '당귀', '토당귀', 1, 1), (3, '작약', '작약(국산)', 1, 1),"
            " (4, '감초', '감초(중국)', 1, 0), (5, '천궁', '천궁(국산)', 1, 1), (6, '녹각', '', 1, 1),"
            " (7, '계피', '계피(베트남)', 1, 1);"
            "INSERT INTO t_DrugDanga (DGL_PK, DGD_Danga, DGD_StartDate, DGD_EndDate)"
            " SELECT DGL_PK, CASE DGL_PK WHEN 2 THEN 320 WHEN 7 THEN 0.02 ELSE 18 END, '2000-01-01',"
            " CASE DGL_PK WHEN 5 THEN '2001-12-31' ELSE '2099-12-31' END FROM t_DrugList;");
        auto line = std::make_unique<FaultyConnection>(pharmacy.connect());
        connection = line.get();
        session.g_conYakGuk = std::move(line);
        table.Form_Load();
        table.Init_DrugGrids();
        table.onCompositionChanged.add([this] { ++changed; });
    }

    /// Appends lines, from their names on.
    void add(const std::string& rows) {
        addRows(session.g_xaDrug, 1, rows);
        table.tdbDGL.refresh();
    }
    std::string lines() const { return rowsOf(session.g_xaDrug, 1); }

    TestDesktop desktop;
    TestDatabase pharmacy{false};
    session::Session session;
    FaultyConnection* connection = nullptr;
    screen::Window form{desktop, "frmOrder", 19200, 12000};
    composition::OrderFrames frames{form, {}};
    Watch watch;
    composition::HerbTable table{form, frames, session, watch};
    console::UserActions user{desktop};
    int changed = 0;
};

}  // namespace zelvo::testing
