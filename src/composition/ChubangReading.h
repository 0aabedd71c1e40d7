#pragma once

#include "composition/HerbTable.h"
#include "composition/LeftOut.h"
#include "composition/OrderWatch.h"
#include "session/Session.h"

namespace zelvo::composition {

/// The reading of stored prescriptions into the composition, from the press of sscCBJRead until the doctor
/// closes the library.
class ChubangReading {
public:
    ChubangReading(screen::Window& form, session::Session& session, HerbTable& herbs, LeftOut& leftOut,
                   OrderWatch& watch);

private:
    void Read_Chubang();

    screen::Window& form_;
    session::Session& session_;
    HerbTable& herbs_;
    LeftOut& leftOut_;
    OrderWatch& watch_;
};

}  // namespace zelvo::composition
