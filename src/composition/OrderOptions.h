#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "composition/OrderFrames.h"
#include "composition/OrderWatch.h"
#include "screen/Grid.h"
#include "session/Session.h"
#include "tables/XArrayDB.h"

namespace zelvo::composition {

/// Order type, decoction method and form changes: three small grids over the pharmacy's catalogue. Column 0
/// of each array is the Boolean selection mark.
class OrderOptions {
public:
    OrderOptions(screen::Window& form, OrderFrames& frames, session::Session& session, OrderWatch& watch);

    screen::Grid tdbJobList, tdbTJML, tdbTJAL;
    tables::XArrayDB m_xaJobList, m_xaTJML, m_xaTJAL;

    /// Makes the style in which a selected row is drawn, on each grid.
    void Form_Load();
    /// The reads of the session's start; an array that can't be read stays empty.
    void Load_JobList();
    void Load_TangJun();
    void Load_TangJunAdd();

    /// A press on a button cell of the current row, by the user or by the program (column 0 selects, any
    /// other explains).
    void pressJobList(int column);
    void pressTJML(int column);
    void pressTJAL(int column);

    /// Selects what stood in an earlier order, by its keys; what the pharmacy offers no more is left out, and
    /// nothing else is selected in its place. Of form changes, which no check would miss, those that are left
    /// out are named.
    void chooseJobList(std::int32_t key);
    void chooseTJML(std::int32_t key);
    std::vector<std::string> chooseTJAL(const std::vector<std::int32_t>& keys);

private:
    bool moveTo(screen::Grid& grid, tables::XArrayDB& options, std::int32_t key);
    std::string addOnName(std::int32_t key) const;
    void unselectAll(tables::XArrayDB& options);
    void selectOnly(screen::Grid& grid, tables::XArrayDB& options);
    void unselectSameType(int pressed);
    void remember(int row, int& last);
    void explain(const screen::Grid& grid, const screen::Panel& beside);

    screen::Window& form_;
    OrderFrames& frames_;
    session::Session& session_;
    OrderWatch& watch_;
    int arrivedAt_ = -1;  ///< the change of form that was current when its list was entered
    int m_LastJobRow = 0, m_LastTJMLRow = 0;
};

}  // namespace zelvo::composition
