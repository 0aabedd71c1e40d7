#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "composition/OrderFrames.h"
#include "composition/OrderWatch.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "session/Session.h"

namespace zelvo::composition {

/// What is known of a herb that comes from elsewhere: as the doctor calls it, and the pharmacy's key.
struct HerbLine {
    std::string name, key, grams, note;
};

/// A herb of the pharmacy as it goes into a line: names, key and won a gram.
struct PickedHerb {
    std::string name, pharmacyName;
    std::int32_t key = 0;
    std::string price;
};

/// The table in which the doctor lists the herbs of one packet: tdbDGL over g_xaDrug, and the buttons around
/// it.
class HerbTable {
public:
    HerbTable(screen::Window& form, OrderFrames& frames, session::Session& session, OrderWatch& watch);

    screen::Grid tdbDGL;
    screen::TwoStateButton ssrYakGukDrug;
    screen::Button sscCBJRead, sscDrugDelete, sscDrugReset, sscMyChubangReg;

    /// The table's three row styles.
    void Form_Load();
    /// Makes g_xaDrug with its eleven columns and binds it to the table.
    void Init_DrugGrids();
    /// Appends the rows of a grid of herb lines ("약재명", "한약국약재PK", "용량(g)", "비고") at today's
    /// prices; into a filled table it merges by pharmacy herb, the larger amount wins. The caller refreshes
    /// the table.
    void Load_DrugFromGrid(screen::Grid& detail);
    /// The same for lines that stand in no grid, into an empty table.
    void loadLines(const std::vector<HerbLine>& lines);
    /// Puts a herb of the pharmacy into the current row; its grams stay, and the order has to be priced
    /// again.
    void takeHerb(const PickedHerb& picked);
    /// Takes the mark of the latest merge off all rows.
    void dropMergeMarks();
    /// Whether there is a line beside one that was never filled.
    bool hasLines() const;
    /// Takes a last row that was never filled away, unless the table has the focus. Nor while the buttons
    /// have it that act on the row where the cursor stands: they would find another.
    void dropUnfilledRow();
    /// The caption with the row count, also where that is 0, and the one of a table that nobody has touched.
    void showRowCount();
    void showPlainCaption();
    /// A herb line came, went or changed in a way that the packets' price depends on: packets and herb price
    /// are to be emptied.
    screen::Event<> onCompositionChanged;
    /// The lines are about to change; whoever wants them back as they are takes them now.
    screen::Event<> onChanging;
    /// All lines were taken away, at the user's word.
    screen::Event<> onReset;

private:
    void listen();
    // What the user does in the cells (HerbTable.cpp).
    void editBegins();
    void cellChanged(int column);
    void cellEmptied(int column, int row);
    void keyDown(int code);
    void keyPress(char32_t& character) const;
    void pickHerb();
    void placeUnderCell(screen::Window& picker) const;
    void addOrMove();
    void addRow();
    void writeNewRow();
    bool walkedThrough(int code);
    void editNote(int column);
    bool endsUnfilled() const;
    void rowStyle(int row, std::string& style) const;
    // The buttons around the table.
    void deleteRow();
    void rowDeleted();
    void resetTable();
    void browse();
    // Rows from elsewhere (HerbMerge.cpp).
    void append(const HerbLine& line, bool merging);
    void lookUpHerb(const HerbLine& line, int row);
    int mergeRow(int row);

    int rowCount() const;

    screen::Window& form_;
    OrderFrames& frames_;
    session::Session& session_;
    OrderWatch& watch_;
    int walked_ = 0;  ///< cells that Enter went through in a last row that was never filled
};

}  // namespace zelvo::composition
