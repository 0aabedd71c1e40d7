#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ordering/KeptDraft.h"
#include "screen/Desktop.h"

namespace zelvo::ordering {

/// The kept drafts of this machine: a file each beside the logs of the sends, and one by which a session
/// holds it.
class DraftFiles {
public:
    explicit DraftFiles(screen::Desktop& desktop) : desktop_(desktop) {}

    struct Found {
        std::string name;
        KeptDraft draft;
    };
    /// A draft that this session holds: no other session offers it, however this one ends.
    struct Held {
        std::string name;
        std::unique_ptr<screen::HeldFile> hold;
    };
    /// The drafts of the doctor and patient of `owner` at its server that no other session holds, the newest
    /// first. One that can't be read is left out. Throws Fault when the folder can't be read.
    std::vector<Found> of(const KeptDraft& owner) const;
    /// Takes away the drafts, of whomever, that have not changed for 30 days and that no session holds.
    /// `now`: "yyyy-mm-dd hh:mm:ss". Throws Fault.
    void clearOld(std::string_view now) const;
    /// A new draft, held and not yet written. Throws Fault when that can't be done.
    Held make(const KeptDraft& owner) const;
    /// Holds a draft that stands; nothing when another session was quicker. Throws Fault.
    std::optional<Held> hold(const std::string& name) const;
    /// Whole, or as it stood before. Throws Fault when it can't be written.
    void write(const Held& held, const KeptDraft& draft) const;
    /// Throws Fault when it can't be taken away; then it is held still.
    void remove(Held& held) const;

private:
    screen::Desktop& desktop_;
};

}  // namespace zelvo::ordering
