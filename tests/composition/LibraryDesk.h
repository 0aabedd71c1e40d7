#pragma once

#include "OrderDesk.h"
#include "composition/ChubangReading.h"
#include "composition/ChubangSaving.h"
#include "screen/TextField.h"

namespace zelvo::testing {

/// An order tab of doctor 1 with the library behind its buttons. A box while a transaction is open fails the
/// test.
class LibraryDesk : public OrderDesk {
public:
    LibraryDesk() : LibraryDesk(std::make_shared<OrderPharmacy>()) { stock(*pharmacy); }
    explicit LibraryDesk(std::shared_ptr<OrderPharmacy> shared) : OrderDesk(std::move(shared)) {
        session.m_DTRPK = 1;
        session.g_conYakGuk->yield = [this] { desktop.yield(); };
        desktop.onBox = [this](const screen::MessageBox& box) {
            EXPECT_FALSE(line->inTransaction) << "a box inside a transaction: " << box.text;
        };
    }

    static void stock(const OrderPharmacy& pharmacy) {
        pharmacy.run(
            "INSERT INTO t_UserChubang (UCB_PK, DTR_PK, UCB_Name, UCB_Date, UCB_Note) VALUES"
            " (1, 1, '나방', '2024-01-03 09:00:00', '겨울'), (2, 1, '가방', '2024-01-01 09:00:00', '봄'),"
            " (3, 1, '다''50%_[x]', '2024-01-02 09:00:00', '여름'), (4, 0, '한약국방', '2024-01-01', '공용'),"
            " (5, 2, '남의방', '2024-01-01', '겨울'), (6, 1, NULL, NULL, NULL);"
            "INSERT INTO t_UserDetail (UDET_PK, UCB_PK, DGL_CallSign, DGL_PK, UDET_Weight, UDET_Order, UDET_Note)"
            " VALUES (11, 1, '당귀', 2, 5, 1, '볶은'), (12, 1, '작약', 3, 4, 2, ''),"
            " (21, 2, '작약', 3, 4, 5, ''), (22, 2, '당귀', 2, 3.5, 1, ''), (23, 2, '감초', 4, 2, 2, '넣지 말 것'),"
            " (24, 2, '천궁', 5, 3, 3, ''), (25, 2, '당귀', 2, 6, 4, '또'), (26, 2, '없는약', 99, 1, 6, ''), (31, 3, '작약', 3, 7, 1, '달인'),"
            " (41, 4, '작약', 3, 10, 1, ''), (42, 4, '녹각', 6, 2, 2, '')");
    }

    /// Opens the library, once for each script: what is done in it until it closes or merges.
    void library(std::initializer_list<std::function<void()>> scripts) {
        for (const auto& script : scripts) {
            desktop.whenShown("frmChubangRead", [this, script](screen::Window& window) {
                shown = &window;
                script();
            });
        }
        user.press("sscCBJRead");
    }
    screen::Grid& grid(const std::string& name) { return dynamic_cast<screen::Grid&>(*shown->field(name)); }
    std::string textIn(const std::string& name) {
        return dynamic_cast<screen::EditField&>(*shown->field(name)).text();
    }
    std::string column(const std::string& name, int number) {
        std::string all;
        for (int row = 0; row < grid(name).rowCount(); ++row) all += grid(name).valueAt(row, number) + ";";
        return all;
    }
    void merge(int tab) {
        const std::string index = "(" + std::to_string(tab) + ")";
        user.check("sschkChubangRead" + index, true);
        user.press("sscConfirm" + index);
    }
    /// What a search of everything finds, by name and downwards.
    void listMine() {
        user.press("sscMyCBsearch");
        user.head("tdbMyChubang", "처방명");
    }
    std::string stored() const {
        std::string all;
        for (const auto& row : pharmacy->rows(
                 "SELECT UCB_PK, DTR_PK, UCB_Name, UCB_Note, (SELECT group_concat(herb, ',') FROM (SELECT"
                 " printf('%s %d %g %d %s', DGL_CallSign, DGL_PK, UDET_Weight, UDET_Order, UDET_Note) AS herb"
                 " FROM t_UserDetail b WHERE a.UCB_PK = b.UCB_PK ORDER BY UDET_Order)) FROM t_UserChubang a"
                 " ORDER BY UCB_PK"))
            all += basics::join(row, "|") + "\n";
        return all;
    }
    /// Saves the composition under this name.
    void save(const std::string& name, const std::string& memo = "") {
        desktop.whenShown("frmMyChuBang", [&, name, memo](screen::Window&) {
            user.type("txtCBName", name);
            user.paste("rtxNote", memo);
            user.press("cmdSave");
        });
        user.press("sscMyChubangReg");
    }

    screen::Window* shown = nullptr;
    composition::ChubangReading reading{form, session, herbs, gate};
    composition::ChubangSaving saving{form, frames, session, herbs};
};

}  // namespace zelvo::testing
