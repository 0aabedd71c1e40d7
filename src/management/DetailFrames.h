#pragma once

#include "screen/Fields.h"
#include "screen/Window.h"

namespace zelvo::management {

/// The sections of the order in view, and the frame of each that has one.
class DetailFrames {
public:
    DetailFrames(screen::Window& form, screen::Place managementTab);

    screen::Panel c1eCBJm0, sspCBJm0;   ///< cancel
    screen::Panel c1eCBJm1, sspCBJm1;   ///< progress
    screen::Panel c1eCBJm2;             ///< payment, the modification's switch and button, reuse
    screen::Panel c1eCBJm3, sspCBJm2;   ///< patient and delivery
    screen::Panel c1eCBJm4, sspCBJm3;   ///< sender
    screen::Panel c1eCBJm5, sspCBJm4;   ///< message to the pharmacy
    screen::Panel c1eCBJm6, sspCBJm5;   ///< dosage sheet
    screen::Panel c1eCBJm8, sspCBJm6;   ///< order type
    screen::Panel c1eCBJm9, sspCBJm7;   ///< decoction
    screen::Panel c1eCBJm10, sspCBJm8;  ///< herbs
    screen::Panel c1eCBJm11, sspCBJm9;  ///< costs

    /// Opens or locks the three sections that a modification changes; the frames' colour says which it is.
    void setEditable(bool editable);
};

}  // namespace zelvo::management
