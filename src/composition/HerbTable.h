#pragma once

#include <string>

#include "composition/OrderFrames.h"
#include "composition/OrderWatch.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "session/Session.h"

namespace zelvo::composition {

/// The table in which the doctor lists the herbs of one packet: tdbDGL over g_xaDrug, and the buttons around it.
class HerbTable {
public:
    HerbTable(screen::Window& form, OrderFrames& frames, session::Session& session, OrderWatch& watch);

    screen::Grid tdbDGL;
    screen::TwoStateButton ssrYakGukDrug;
    screen::Button sscCBJRead, sscDrugDelete, sscDrugReset, sscMyChubangReg;

    /// Makes g_xaDrug with its eleven columns and binds it to the table.
    void Init_DrugGrids();
    /// Appends the rows of a grid of herb lines ("약재명", "한약국약재PK", "용량(g)", "비고") at today's prices; into a filled
    /// table it merges by pharmacy herb, the larger amount wins.
    void Load_DrugFromGrid(screen::Grid& detail);
    /// The caption with the row count, or the plain one for an empty table.
    void showRowCount();
    /// A herb line came, went or changed in a way that the packets' price depends on: packets and herb price are to be emptied.
    screen::Event<> onCompositionChanged;

private:
    void cellChanged(int column);
    void reactToColumn(int column, int row);
    void keyDown(int& code);
    void keyPress(char32_t& character);
    void pickHerb();
    void addOrMove();
    void addFirstRow();
    void editNote(int column);
    void deleteRow();
    void resetTable();
    void browse();
    void rowStyle(int row, std::string& style) const;
    void mergeRow(int& row);
    void lookUpHerb(const screen::Grid& detail, int row);

    screen::Window& form_;
    OrderFrames& frames_;
    session::Session& session_;
    OrderWatch& watch_;
};

}  // namespace zelvo::composition
