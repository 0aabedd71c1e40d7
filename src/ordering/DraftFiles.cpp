#include "ordering/DraftFiles.h"

#include <algorithm>

#include "basics/Dates.h"
#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "data/ServerAddress.h"
#include "ordering/ClinicFolder.h"

namespace zelvo::ordering {

namespace {

constexpr std::string_view draftBeginning = "draft_", draftEnding = ".txt", holdEnding = ".held";

/// "draft_17_1024_": what the names of an owner's drafts begin with.
std::string beginning(const KeptDraft& owner) {
    return std::string(draftBeginning) + basics::decimalText(std::int64_t{owner.DTR_PK}) + "_" +
           basics::decimalText(std::int64_t{owner.Patient_PK}) + "_";
}

bool isOf(const KeptDraft& draft, const KeptDraft& owner) {
    return draft.DTR_PK == owner.DTR_PK && draft.Patient_PK == owner.Patient_PK &&
           draft.patientName == owner.patientName && data::databaseName(draft.server) == owner.server;
}

/// A hold that a killed program has left without a draft.
void dropDeadHold(screen::FileSystemObject& files, const std::string& folder, const std::string& file) {
    try {
        const std::string name = file.substr(0, file.size() - holdEnding.size());
        const auto hold = files.holdFile(basics::join({folder, file}, "/"));
        if (hold && files.readTextFile(basics::join({folder, name + std::string(draftEnding)}, "/")).empty())
            hold->remove();
    } catch (const basics::Fault&) {
        // It stands in nobody's way.
    }
}

constexpr std::int64_t mostMinutes = std::int64_t{30} * 24 * 60;

/// "2026-03-01 09:00:00" of "draft_17_1024_20260301090000_2", when that draft was made; else "".
std::string timeInName(const std::string& name) {
    const std::vector<std::string> parts = basics::split(name, "_");
    constexpr std::size_t digits = 14;
    if (parts.size() < 4 || parts[3].size() != digits) return {};
    const std::string& t = parts[3];
    return t.substr(0, 4) + "-" + t.substr(4, 2) + "-" + t.substr(6, 2) + " " + t.substr(8, 2) + ":" +
           t.substr(10, 2) + ":" + t.substr(12, 2);
}

}  // namespace

std::vector<DraftFiles::Found> DraftFiles::of(const KeptDraft& owner) const {
    const auto files = fileSystem(desktop_);
    std::vector<Found> found;
    for (const std::string& file : files->namesIn(clinicFolder(*files))) {
        if (!file.starts_with(beginning(owner))) continue;
        if (file.ends_with(holdEnding)) dropDeadHold(*files, clinicFolder(*files), file);
        if (!file.ends_with(draftEnding)) continue;
        const std::string name = file.substr(0, file.size() - draftEnding.size());
        try {
            std::optional<KeptDraft> draft =
                readDraft(files->readTextFile(clinicFolder(*files) + "/" + file));
            if (draft && isOf(*draft, owner) && hold(name)) found.push_back({name, std::move(*draft)});
        } catch (const basics::Fault&) {
            // A damaged draft stands in nobody's way.
        }
    }
    std::sort(found.begin(), found.end(),
              [](const Found& a, const Found& b) { return a.draft.keptAt > b.draft.keptAt; });
    return found;
}

// What was made lately is not even read. A damaged draft is as old as its name.
void DraftFiles::clearOld(std::string_view now) const {
    const auto files = fileSystem(desktop_);
    const std::string folder = clinicFolder(*files);
    for (const std::string& file : files->namesIn(folder)) {
        if (!file.starts_with(draftBeginning)) continue;
        if (file.ends_with(holdEnding)) dropDeadHold(*files, folder, file);
        if (!file.ends_with(draftEnding)) continue;
        const std::string name = file.substr(0, file.size() - draftEnding.size());
        if (ageInMinutes(timeInName(name), now) < mostMinutes) continue;
        try {
            const auto isOld = [&] {
                const auto draft = readDraft(files->readTextFile(basics::join({folder, file}, "/")));
                const bool dated = draft && basics::parseDateTime(draft->keptAt);
                return !dated || ageInMinutes(draft->keptAt, now) >= mostMinutes;
            };
            if (!isOld()) continue;
            auto held = hold(name);
            // Another session may have gone on with it meanwhile.
            if (held && isOld()) remove(*held);
        } catch (const basics::Fault&) {
            noteFileTrouble(desktop_, "old order in the making");
        }
    }
}

DraftFiles::Held DraftFiles::make(const KeptDraft& owner) const {
    const auto files = fileSystem(desktop_);
    const std::string folder = clinicFolder(*files);
    files->createFolder(folder);
    auto hold = makeUnderFreeName(
        *files, folder + "/" + beginning(owner) + timeDigits(basics::dateTimeText(basics::now())), holdEnding,
        "");
    std::string name = hold->path().substr(folder.size() + 1);
    name.resize(name.size() - holdEnding.size());
    return {std::move(name), std::move(hold)};
}

std::optional<DraftFiles::Held> DraftFiles::hold(const std::string& name) const {
    const auto files = fileSystem(desktop_);
    const std::string path = clinicFolder(*files) + "/" + name + std::string(holdEnding);
    auto hold = files->makeFile(path, "");
    if (!hold) hold = files->holdFile(path);
    if (!hold) return std::nullopt;
    return Held{name, std::move(hold)};
}

void DraftFiles::write(const Held& held, const KeptDraft& draft) const {
    const auto files = fileSystem(desktop_);
    files->keepTextFile(clinicFolder(*files) + "/" + held.name + std::string(draftEnding), writeDraft(draft));
}

void DraftFiles::remove(Held& held) const {
    const auto files = fileSystem(desktop_);
    files->deleteFile(clinicFolder(*files) + "/" + held.name + std::string(draftEnding));
    held.hold->remove();
    held = {};
}

}  // namespace zelvo::ordering
