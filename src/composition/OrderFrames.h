#pragma once

#include "screen/Fields.h"
#include "screen/Window.h"

namespace zelvo::composition {

/// The panels and tab controls of the order tab, in which the panes of a new order stand.
class OrderFrames {
public:
    OrderFrames(screen::Window& form, screen::Place orderTab);

    screen::Panel sspCBJsend0, sspCBJsend1, sspCBJsend2;  ///< headings of the three columns
    screen::Panel c1eDrug;                                ///< herbs, packets, herb price
    screen::Panel c1eTangJun;                             ///< decoction and form changes
    screen::Panel c1ePatient;                             ///< holds c1tPatient(0) and c1tPatient(1)
    screen::TabControl c1tPatient0, c1tPatient1;          ///< "환자(배송)정보" and "발송정보"
    screen::Panel c1eCBJMsg;                              ///< holds c1tCBJmsg
    screen::TabControl c1tCBJmsg;                         ///< "복용법작성", "처방메세지"
    screen::Panel c1eSendmain;                            ///< pay method, cost confirmation, send
    screen::Panel c1eCostConfirm;                         ///< the cost lines, inside c1eSendmain
};

/// Puts a small window beside a panel of the window that it opens from: under its heading, over its text.
void placeBeside(screen::Window& small, const screen::Panel& panel);

}  // namespace zelvo::composition
