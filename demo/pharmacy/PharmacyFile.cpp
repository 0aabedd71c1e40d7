#include "pharmacy/PharmacyFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "pharmacy/Embedded.h"
#include "pharmacy/Sqlite.h"

namespace zelvo::pharmacy {
namespace {

namespace fs = std::filesystem;

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

/// Doctors' passwords and patients' numbers stand in it: the file is the user's alone, and so is what SQLite
/// writes beside it.
void makePrivate(const std::string& path) {
    for (const char* part : {"", "-journal", "-wal", "-shm"}) {
        std::error_code notThere;
        fs::permissions(path + part, fs::perms::owner_read | fs::perms::owner_write, notThere);
    }
}

/// The folder, private where it is made here and where it is the usual one: another is its owner's affair.
void makeFolder(const fs::path& folder) {
    if (folder.empty()) return;
    const bool made = fs::create_directories(folder);
    const bool usual = folder.lexically_normal() == fs::path(defaultDatabasePath()).parent_path();
    std::error_code notOurs;
    if (made || usual) fs::permissions(folder, fs::perms::owner_all, notOurs);
}

/// Private from its first byte on.
void makeEmpty(const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0) throw std::system_error(errno, std::generic_category());
    close(file);
}

void fill(const std::string& path) {
    makeEmpty(path);
    Database database(path);
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
        makeFolder(fs::path(path).parent_path());
        makePrivate(path);
        return Making::LeftAsItIs;
    }
    if (!fresh && fs::exists(path)) throw DatabaseError(path + ": this file is there and is no pharmacy");
    try {
        makeFolder(fs::path(path).parent_path());
    } catch (const fs::filesystem_error& problem) {
        throw DatabaseError(problem.path1().string() + ": " + problem.code().message());
    }
    // Built beside its place and moved there whole: nobody ever meets half a catalogue.
    const auto draft = path + "." + std::to_string(getpid()) + ".new";
    std::error_code error;
    fs::remove(draft, error);
    try {
        fill(draft);
        for (const char* part : {"-journal", "-wal", "-shm"}) fs::remove(path + part, error);
        fs::rename(draft, path);
    } catch (const std::exception& problem) {
        fs::remove(draft, error);
        throw DatabaseError(path + ": " + problem.what());
    }
    return Making::Made;
}

}  // namespace zelvo::pharmacy
