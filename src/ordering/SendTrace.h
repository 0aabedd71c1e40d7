#pragma once

#include <memory>
#include <optional>
#include <string>

#include "data/Connection.h"
#include "ordering/KeptBoxes.h"
#include "ordering/UnsettledSends.h"
#include "session/Session.h"

namespace zelvo::ordering {

/// What a send leaves on the clinic's machine, so that no order is told wrongly and none is sent twice: its
/// mark, held from before the commit until the chart has been told, and its log. Asks what became of a commit
/// without an answer, and of the sends that were left before.
class SendTrace {
public:
    SendTrace(screen::Desktop& desktop, session::Session& session)
        : desktop_(desktop), session_(session), unsettled_(desktop) {}

    /// Clears what killed programs left half-written. Shows nothing.
    void Form_Load();
    /// Tells what became of the doctor's sends that were left. False when the order is not to be sent now:
    /// one of them stands and that is enough, or nobody can say.
    bool settlesFormer();
    /// The mark and then the log of an order whose rows are written and not yet committed. What can't be
    /// written is kept for the user, and the order goes. Without a text the log is one of those.
    void leave(UnsettledSend send, const std::optional<std::string>& log, KeptBoxes& kept);
    /// What the commit came to, asked after where its answer is missing. False when the order does not stand
    /// or nobody can say, which is then all that is kept for the user.
    bool stands(data::CommitOutcome outcome, KeptBoxes& kept);
    /// The chart has been told.
    void settle();

private:
    bool settles(UnsettledSends::Left& left);
    void leaveMark();
    bool leaveLog(const std::optional<std::string>& log);

    screen::Desktop& desktop_;
    session::Session& session_;
    UnsettledSends unsettled_;
    UnsettledSend sending_;
    std::unique_ptr<screen::HeldFile> mark_, log_;
};

}  // namespace zelvo::ordering
