#pragma once

#include <cstdint>
#include <functional>

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

    /// The list's row changed: the panel shows the current one, or keeps what it shows and offers nothing
    /// with it when the list has none. `LastRow` -1 reads it afresh. A change that
    /// comes while an order is being loaded, or acted on, waits for the end of that: of two orders the panel
    /// never shows parts.
    void On_CBJRowChange(int LastRow, int LastCol = -1);
    /// Reads the current row afresh, without one the order in view, with which nothing can be done then.
    /// Leaves editing.
    void reload();
    /// Runs what acts on the order in view: until its end the panel keeps that order.
    void keepingOrder(const std::function<void()>& action);
    /// Shows the list's current row, and what can be done with it.
    void Show_CBJmDetail();
    /// Reads an order into the fields, section by section. False when a read fails: the fields filled so far
    /// keep their contents.
    bool Load_CBJmDetail(std::int32_t CBJ_PK);
    /// Empties the panel.
    void Clear_CBJmDetail();
    /// The list's orders are nobody's any more: the panel is emptied and goes back to viewing.
    void forget();
    /// The look of the panel and what is open in it: editing or viewing.
    void Set_CBJmEditable(bool editable);
    /// The order in view can be changed no more: the panel goes back to viewing and keeps what it shows.
    void withdraw();

    /// Key of the order that stands in the panel whole, 0 for none.
    std::int32_t shownKey() const { return shownKey_; }
    /// Key in the list's current row, 0 for none.
    std::int32_t listKey() const;
    /// True when the list stands on an order that the panel does not show.
    bool behindList() const;

private:
    void showCurrent();
    bool shows(std::int32_t CBJ_PK);
    bool loadSections(const DetailRead& read);

    session::Session& session_;
    screen::Window& form_;
    screen::Grid& list_;
    std::int32_t shownKey_ = 0;
    /// Whose turn it is. A load that is asked for while another one or an action has the turn breaks that
    /// load off, but no action, and comes after it:
    ///
    ///     Free --- reload, action ---> Taken --- reload ---> Asked
    ///      ^                           |   ^                   |
    ///      +---------- done -----------+   +------ done -------+
    enum class Turn { Free, Taken, Asked };
    Turn turn_ = Turn::Free;
};

}  // namespace zelvo::management
