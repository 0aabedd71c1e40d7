#pragma once

#include <cstdint>

#include "composition/ChubangPane.h"
#include "composition/ChubangUpkeep.h"
#include "composition/HerbTable.h"
#include "screen/Fields.h"
#include "screen/Window.h"
#include "session/Session.h"

namespace zelvo::composition {

/// The library: the doctor's own stored prescriptions and the pharmacy's, each to be copied or merged into
/// the composition. After a merge it is only hidden and can be shown again as it was; the caller places it.
class frmChubangRead : public screen::Window {
public:
    frmChubangRead(screen::Desktop& desktop, session::Session& session, HerbTable& herbs, LeftOut& leftOut);

    screen::TabControl c1tabChubangRead;
    ChubangPane mine, yakGuk;
    ChubangUpkeep upkeep;

    /// Shows the library modally, with empty lists unless `MutilView` is set. `DrugHapBang` is -1 if it
    /// closed through a merge, 0 otherwise. The caller refreshes the table of the composition.
    void Show_ChubangRead(std::int16_t& DrugHapBang, std::int16_t MutilView);

private:
    void confirm(ChubangPane& pane);

    session::Session& session_;
    HerbTable& herbs_;
    LeftOut& leftOut_;
    std::int16_t m_Merged = 0;
};

}  // namespace zelvo::composition
