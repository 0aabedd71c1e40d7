#pragma once

#include <array>

#include "data/clsZELVORecordSet.h"
#include "management/DetailFrames.h"
#include "management/DetailRead.h"
#include "screen/Event.h"
#include "screen/Fields.h"
#include "screen/TextField.h"

namespace zelvo::management {

/// Where the order in view stands, how it is paid, and what can be done with it.
class StateSection {
public:
    StateSection(screen::Window& form, DetailFrames& frames);

    screen::TwoStateButton ssrCBJmCancel;
    std::array<screen::Picture, 4> picCBJstate;  ///< of these the one shows that the order has come to
    screen::Picture picCBJcancel;                ///< over all of them for a cancelled order
    std::array<screen::Label, 4> lblState;
    screen::Label lblStatecancel;
    screen::TextField txtCBJmIsPaid, txtCBJmPayMethod;
    screen::CheckButton sschkCBJmUpdate;
    screen::TwoStateButton ssrCBJreuse, ssrCBJmUpdate;

    /// The user turned the modification's switch; what the logic does to it is not told.
    screen::Event<bool> onUpdateClicked;

    /// The order's message comes with its state.
    bool load(const DetailRead& read, screen::TextField& message);
    void clear();
    /// True while the waiting order's picture shows.
    bool waiting() const { return picCBJstate[0].visible(); }
    /// A waiting order can be cancelled and modified.
    void offerActions();
    /// The order no longer waits. The check box stays: a click on it brings what the list stands on.
    void withdrawActions();
    /// Only the two buttons go: what is being typed stays.
    void withdrawButtons();
    void uncheckUpdate();

private:
    void show(const data::CBJmState& state);

    DetailFrames& frames_;
    bool quiet_ = false;
};

}  // namespace zelvo::management
