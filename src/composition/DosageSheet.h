#pragma once

#include "composition/OrderFrames.h"
#include "composition/OrderWatch.h"
#include "screen/Fields.h"
#include "screen/TextField.h"
#include "session/Session.h"

namespace zelvo::composition {

/// The sheet that tells the patient how to take the medicine, and the order's message to the pharmacy: the two pages of c1tCBJmsg.
class DosageSheet {
public:
    /// `patientName` is handed to the editor of the sheet.
    DosageSheet(screen::Window& form, OrderFrames& frames, session::Session& session, screen::TextField& patientName,
                OrderWatch& watch);

    screen::RichTextField rtxEatGuide;
    screen::TextField txtEatGuideHosName, txtEatGuideCall;
    screen::Button cmdEatGuide, cmdEatGuideReg;
    screen::TextField txtCBJmsg;

    /// Puts the user's two defaults into the fields.
    void loadDefaults();

private:
    void editSheet();
    void saveDefaults();

    screen::Window& form_;
    session::Session& session_;
    screen::TextField& patientName_;
};

}  // namespace zelvo::composition
