#include "pharmacy/PharmacyFile.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "pharmacy/Embedded.h"
#include "pharmacy/Sqlite.h"

namespace zelvo::pharmacy {
namespace {

namespace fs = std::filesystem;

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

void fill(const std::string& path) {
    Database database(path, Database::Mode::Create);
    Transaction transaction(database);
    for (const auto& script : databaseScripts()) database.run(std::string(script.text));
    transaction.commit();
}

}  // namespace

std::string defaultDatabasePath() {
    fs::path folder = environment("XDG_DATA_HOME");
    if (folder.empty()) {
        const auto home = environment("HOME");
        if (home.empty()) return {};
        folder = fs::path(home) / ".local" / "share";
    }
    return (folder / "zelvo" / "pharmacy.db").string();
}

bool isPharmacy(const std::string& path) {
    if (!fs::is_regular_file(path)) return false;
    try {
        const Database database(path, Database::Mode::Existing);
        Query count(
            database,
            "SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name IN ('t_PxInfo', 't_ChubangJun')");
        return count.step() && count.whole(0) == 2;
    } catch (const DatabaseError&) {
        return false;
    }
}

Making makePharmacy(const std::string& path, bool fresh) {
    if (!fresh && isPharmacy(path)) return Making::LeftAsItIs;
    if (!fresh && fs::exists(path)) throw DatabaseError(path + ": this file is there and is no pharmacy");
    std::error_code error;
    const auto folder = fs::path(path).parent_path();
    if (!folder.empty()) fs::create_directories(folder, error);
    if (error) throw DatabaseError(folder.string() + ": " + error.message());
    // Built beside its place and moved there whole: nobody ever meets half a catalogue.
    const auto draft = path + "." + std::to_string(getpid()) + ".new";
    fs::remove(draft, error);
    try {
        fill(draft);
        fs::remove(path + "-journal", error);
        fs::rename(draft, path);
    } catch (const std::exception& problem) {
        fs::remove(draft, error);
        throw DatabaseError(path + ": " + problem.what());
    }
    return Making::Made;
}

}  // namespace zelvo::pharmacy
