#include "pharmacy/PharmacyFile.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "basics/Paths.h"
#include "pharmacy/Embedded.h"
#include "pharmacy/Sqlite.h"
#include "pharmacy/System.h"

namespace zelvo::pharmacy {
namespace {

namespace fs = std::filesystem;
using basics::pathOf;
using basics::textOf;

/// Doctors' passwords and patients' numbers stand in it: the file is the user's alone, and so is what SQLite
/// writes beside it.
void makePrivate(const std::string& path) {
    for (const char* part : {"", "-journal", "-wal", "-shm"}) {
        std::error_code notThere;
        fs::permissions(pathOf(path + part), fs::perms::owner_read | fs::perms::owner_write, notThere);
    }
}

/// The folder, private where it is made here and where it is the usual one: another is its owner's affair.
void makeFolder(const fs::path& folder) {
    if (folder.empty()) return;
    const bool made = fs::create_directories(folder);
    const bool usual = folder.lexically_normal() == pathOf(defaultDatabasePath()).parent_path();
    std::error_code notOurs;
    if (made || usual) fs::permissions(folder, fs::perms::owner_all, notOurs);
}

void fill(const std::string& path) {
    makePrivateFile(pathOf(path));
    Database database(path);
    Transaction transaction(database);
    for (const auto& script : databaseScripts()) database.run(std::string(script.text));
    transaction.commit();
}

/// Puts the draft into the old one's place, or leaves the old one whole: what SQLite keeps beside it may be
/// what it has of an order, and would be read as the new one's.
void takePlace(const std::string& draft, const std::string& path) {
    std::vector<std::pair<fs::path, fs::path>> aside;
    std::error_code held;
    try {
        for (const char* part : {"-journal", "-wal", "-shm"}) {
            const fs::path own = pathOf(path + part), kept = pathOf(draft + ".old" + part);
            if (!fs::exists(own)) continue;
            fs::rename(own, kept);
            aside.emplace_back(own, kept);
        }
        fs::rename(pathOf(draft), pathOf(path));
    } catch (const fs::filesystem_error&) {
        for (const auto& [own, kept] : aside) fs::rename(kept, own, held);
        throw;
    }
    for (const auto& [own, kept] : aside) fs::remove(kept, held);
}

}  // namespace

std::string defaultDatabasePath() {
    const fs::path folder = userDataFolder();
    return folder.empty() ? std::string() : textOf(folder / "zelvo" / "pharmacy.db");
}

bool isPharmacy(const std::string& path) {
    if (!fs::is_regular_file(pathOf(path))) return false;
    try {
        const Database database(path);
        Query count(
            database,
            "SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name IN ('t_PxInfo', 't_ChubangJun')");
        return count.step() && count.whole(0) == 2;
    } catch (const DatabaseError&) {
        return false;
    }
}

Making makePharmacy(const std::string& path, bool fresh) {
    if (!fresh && isPharmacy(path)) {
        makeFolder(pathOf(path).parent_path());
        makePrivate(path);
        return Making::LeftAsItIs;
    }
    if (!fresh && fs::exists(pathOf(path)))
        throw DatabaseError(path + ": this file is there and is no pharmacy");
    try {
        makeFolder(pathOf(path).parent_path());
    } catch (const fs::filesystem_error& problem) {
        throw DatabaseError(textOf(problem.path1()) + ": " + problem.code().message());
    }
    // Built beside its place and moved there whole: nobody ever meets half a catalogue.
    const auto draft = path + "." + std::to_string(processNumber()) + ".new";
    std::error_code error;
    fs::remove(pathOf(draft), error);
    try {
        fill(draft);
        takePlace(draft, path);
    } catch (const std::exception& problem) {
        fs::remove(pathOf(draft), error);
        throw DatabaseError(path + ": " + problem.what());
    }
    return Making::Made;
}

}  // namespace zelvo::pharmacy
