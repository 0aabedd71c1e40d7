#include "ordering/DraftFiles.h"

#include <algorithm>

#include "basics/Dates.h"
#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "ordering/ClinicFolder.h"

namespace zelvo::ordering {

namespace {

/// "draft_17_1024_": what the names of an owner's drafts begin with.
std::string beginning(const KeptDraft& owner) {
    return "draft_" + basics::decimalText(std::int64_t{owner.DTR_PK}) + "_" +
           basics::decimalText(std::int64_t{owner.Patient_PK}) + "_";
}

bool isOf(const KeptDraft& draft, const KeptDraft& owner) {
    return draft.DTR_PK == owner.DTR_PK && draft.Patient_PK == owner.Patient_PK &&
           draft.patientName == owner.patientName && draft.server == owner.server;
}

}  // namespace

std::vector<DraftFiles::Found> DraftFiles::of(const KeptDraft& owner) const {
    const auto files = fileSystem(desktop_);
    std::vector<Found> found;
    for (const std::string& name : files->namesIn(clinicFolder(*files))) {
        if (!name.starts_with(beginning(owner)) || !name.ends_with(".txt")) continue;
        try {
            std::optional<KeptDraft> draft =
                readDraft(files->readTextFile(clinicFolder(*files) + "/" + name));
            if (draft && isOf(*draft, owner)) found.push_back({name, std::move(*draft)});
        } catch (const basics::Fault&) {
            // A damaged draft stands in nobody's way.
        }
    }
    std::sort(found.begin(), found.end(),
              [](const Found& a, const Found& b) { return a.draft.keptAt > b.draft.keptAt; });
    return found;
}

std::string DraftFiles::newName(const KeptDraft& owner) const {
    const auto files = fileSystem(desktop_);
    const std::string stamp = timeDigits(basics::dateTimeText(basics::now()));
    const std::vector<std::string> taken = files->namesIn(clinicFolder(*files));
    std::string name = beginning(owner) + stamp + ".txt";
    for (std::int64_t more = 2; std::find(taken.begin(), taken.end(), name) != taken.end(); ++more)
        name = beginning(owner) + stamp + "_" + basics::decimalText(more) + ".txt";
    return name;
}

void DraftFiles::write(const std::string& name, const KeptDraft& draft) const {
    const auto files = fileSystem(desktop_);
    files->createFolder(clinicFolder(*files));
    files->keepTextFile(clinicFolder(*files) + "/" + name, writeDraft(draft));
}

void DraftFiles::remove(const std::string& name) const {
    const auto files = fileSystem(desktop_);
    files->deleteFile(clinicFolder(*files) + "/" + name);
}

}  // namespace zelvo::ordering
