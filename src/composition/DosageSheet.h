#pragma once

#include "composition/OrderFrames.h"
#include "composition/OrderWatch.h"
#include "screen/Fields.h"
#include "screen/TextField.h"
#include "session/Session.h"

namespace zelvo::composition {

/// The sheet that tells the patient how to take the medicine, and the order's message to the pharmacy: the
/// two pages of c1tCBJmsg.
class DosageSheet {
public:
    /// `patientName` is handed to the editor of the sheet.
    DosageSheet(screen::Window& form, OrderFrames& frames, session::Session& session,
                screen::TextField& patientName, OrderWatch& watch);

    screen::RichTextField rtxEatGuide;
    screen::TextField txtEatGuideHosName, txtEatGuideCall;
    screen::Button cmdEatGuide, cmdEatGuideReg;
    screen::TextField txtCBJmsg;

    /// Puts the user's two defaults into the fields.
    void loadDefaults();

private:
    void saveDefaults();

    screen::Window& form_;
};

/// Where a dosage sheet stands on the glass.
struct SheetFields {
    const screen::TextField& patientName;
    screen::RichTextField& sheet;
    screen::TextField& hospitalName;
    screen::TextField& phoneNo;
    std::string_view caption;  ///< of the box that tells of an editor's fault: the button's
};

/// Lets the user edit a sheet in the clinic's editor; the fields take over what was accepted there, the
/// patient's name excepted. An editor that can't be made, or fails, is told in a box and changes nothing.
void editSheet(screen::Desktop& desktop, const session::Session& session, const SheetFields& fields);

}  // namespace zelvo::composition
