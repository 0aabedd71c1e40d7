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
    LibraryDesk() : LibraryDesk(std::make_shared<OrderPharmacy>()) {
        pharmacy->run(contentOf(ZELVO_SOURCE_DIR "/tests/composition/library.sql"));
    }
    explicit LibraryDesk(std::shared_ptr<OrderPharmacy> shared) : OrderDesk(std::move(shared)) {
        session.m_DTRPK = 1;
        session.g_conYakGuk->yield = [this] { desktop.yield(); };
        desktop.onBox = [this](const screen::MessageBox& box) {
            EXPECT_FALSE(line->inTransaction) << "a box inside a transaction: " << box.text;
        };
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
    composition::ChubangReading reading{form, session, herbs, leftOut, gate};
    composition::ChubangSaving saving{form, frames, session, herbs};
};

}  // namespace zelvo::testing
