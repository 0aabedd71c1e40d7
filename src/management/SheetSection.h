#pragma once

#include "management/DetailFrames.h"
#include "management/DetailRead.h"
#include "screen/Fields.h"
#include "screen/TextField.h"
#include "session/Session.h"

namespace zelvo::management {

/// The message of the order in view to the pharmacy, and its dosage sheet.
class SheetSection {
public:
    /// `patientName` is handed to the editor of the sheet.
    SheetSection(screen::Window& form, DetailFrames& frames, session::Session& session,
                 screen::TextField& patientName);

    screen::TextField txtCBJmCBMsg;
    screen::RichTextField rtxCBJmEatMsg;
    screen::TextField txtEatGuideHosName2, txtEatGuideCall2;
    screen::Button cmdEatGuideUpdate;

    /// Reads the sheet; the message comes with the order's state.
    bool load(const DetailRead& read);
    /// True when something stands in the sheet of an order that was read without one.
    bool isNew() const;
    void clear();
    /// Whether the sheet can be changed.
    void setEditable(bool editable);

private:
    bool isBlank() const;

    bool wasBlank_ = true;
};

}  // namespace zelvo::management
