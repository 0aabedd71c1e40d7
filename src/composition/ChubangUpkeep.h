#pragma once

#include "composition/ChubangPane.h"
#include "data/Connection.h"
#include "screen/Fields.h"
#include "session/Session.h"

namespace zelvo::composition {

/// What a doctor does with his own stored prescriptions: keeps memo and notes, and deletes one.
class ChubangUpkeep {
public:
    ChubangUpkeep(screen::Window& form, screen::Place place, session::Session& session, ChubangPane& pane);

    screen::Button sscMemoSave, sscDelete;

private:
    void saveNotes();
    void askAndDelete();
    void deleteCurrent();
    data::CommitOutcome deleteStored(bool& rowLeft);

    screen::Window& form_;
    session::Session& session_;
    ChubangPane& pane_;
};

}  // namespace zelvo::composition
