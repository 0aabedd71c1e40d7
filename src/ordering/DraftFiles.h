#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ordering/KeptDraft.h"
#include "screen/Desktop.h"

namespace zelvo::ordering {

/// The kept drafts of this machine: a file each, beside the logs of the sends.
class DraftFiles {
public:
    explicit DraftFiles(screen::Desktop& desktop) : desktop_(desktop) {}

    struct Found {
        std::string name;
        KeptDraft draft;
    };
    /// The drafts of the doctor and patient of `owner` at its server, the newest first. One that can't be
    /// read is left out. Throws Fault when the folder can't be read.
    std::vector<Found> of(const KeptDraft& owner) const;
    /// A name for a new draft.
    std::string newName(const KeptDraft& owner) const;
    /// Whole, or as it stood before. Throws Fault when it can't be written.
    void write(const std::string& name, const KeptDraft& draft) const;
    /// Throws Fault when it can't be taken away.
    void remove(const std::string& name) const;

private:
    screen::Desktop& desktop_;
};

}  // namespace zelvo::ordering
