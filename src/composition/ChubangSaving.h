#pragma once

#include <cstdint>
#include <string>

#include "composition/HerbTable.h"
#include "composition/OrderFrames.h"
#include "screen/Desktop.h"
#include "session/Session.h"

namespace zelvo::composition {

/// The storing of the composition as a prescription of the doctor's own: from the press of sscMyChubangReg to
/// its end. Whole or not at all; the composition stays as it is.
class ChubangSaving {
public:
    ChubangSaving(screen::Window& form, OrderFrames& frames, session::Session& session, HerbTable& herbs);

private:
    void Save_Chubang();
    bool linesSound();
    bool askName(std::string& name, std::string& memo);
    screen::MessageBox store(const std::string& name, const std::string& memo);
    bool storeLines(std::int32_t UCB_PK);

    screen::Window& form_;
    OrderFrames& frames_;
    session::Session& session_;
    HerbTable& herbs_;
};

}  // namespace zelvo::composition
