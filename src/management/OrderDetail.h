#pragma once

#include <cstdint>

#include "management/CostSection.h"
#include "management/DecoctionSection.h"
#include "management/DetailFrames.h"
#include "management/HerbSection.h"
#include "management/PatientSection.h"
#include "management/SenderSection.h"
#include "management/SheetSection.h"
#include "management/StateSection.h"
#include "screen/Grid.h"
#include "session/Session.h"

namespace zelvo::management {

/// The order in view: follows the list's current row and runs its sections in order.
class OrderDetail {
public:
    /// `list` is the list of orders, whose column "CBJ_PK" names the order.
    OrderDetail(screen::Window& form, screen::Place managementTab, session::Session& session,
                screen::Grid& list);

    DetailFrames frames;
    StateSection state;
    PatientSection patient;
    SenderSection sender;
    SheetSection sheet;
    DecoctionSection decoction;
    HerbSection herbs;
    CostSection costs;

    /// Fills the delivery methods and makes the cost grid's row style.
    void Form_Load();
    /// Binds the herbs of the order in view.
    void bindHerbs() { herbs.bind(); }

    /// The list's row changed: the panel shows the current one. `LastRow` -1 reads it afresh. A change that
    /// comes while an order is being loaded waits for that one's end; of two orders the panel never shows
    /// parts.
    void On_CBJRowChange(int LastRow, int LastCol = -1);
    /// Shows the list's current row, and what can be done with it.
    void Show_CBJmDetail();
    /// Reads an order into the fields, section by section. False when a read fails: the fields filled so far
    /// keep their contents.
    bool Load_CBJmDetail(std::int32_t CBJ_PK);
    /// Empties the panel.
    void Clear_CBJmDetail();
    /// The look of the panel and what is open in it: editing or viewing.
    void Set_CBJmEditable(bool editable);

    /// Key of the order that stands in the panel whole, 0 for none.
    std::int32_t shownKey() const { return shownKey_; }
    /// True when the list stands on another order than the panel shows, or on one that it does not show.
    bool behindList() const;
    /// Rises with every emptying of the panel: an action that waits for something sees that its order is
    /// gone.
    unsigned turn() const { return turn_; }

private:
    bool loadSections(const DetailRead& read);
    std::int32_t currentKey() const;

    session::Session& session_;
    screen::Window& form_;
    screen::Grid& list_;
    std::int32_t shownKey_ = 0;
    unsigned turn_ = 0;
    bool loading_ = false, again_ = false;
};

}  // namespace zelvo::management
