#include "support/TestDatabase.h"

#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "platform/sqlite/SqliteConnection.h"

namespace zelvo::testing {
namespace {

namespace fs = std::filesystem;

class PlainDatabase {
public:
    explicit PlainDatabase(const std::string& path) {
        if (sqlite3_open(path.c_str(), &database_) != SQLITE_OK)
            throw std::runtime_error("can't open " + path);
        sqlite3_busy_timeout(database_, 5000);
    }
    ~PlainDatabase() { sqlite3_close(database_); }
    PlainDatabase(const PlainDatabase&) = delete;
    PlainDatabase& operator=(const PlainDatabase&) = delete;

    void run(const std::string& statements) {
        if (sqlite3_exec(database_, statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            fail(statements);
    }

    std::vector<std::vector<std::string>> rows(const std::string& query) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(database_, query.c_str(), -1, &statement, nullptr) != SQLITE_OK) fail(query);
        std::vector<std::vector<std::string>> result;
        int code = sqlite3_step(statement);
        for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
            auto& row = result.emplace_back();
            for (int i = 0; i < sqlite3_column_count(statement); ++i) row.push_back(cell(statement, i));
        }
        sqlite3_finalize(statement);
        if (code != SQLITE_DONE) fail(query);
        return result;
    }

private:
    static std::string cell(sqlite3_stmt* statement, int column) {
        if (sqlite3_column_type(statement, column) == SQLITE_FLOAT) {
            return basics::decimalText(sqlite3_column_double(statement, column));
        }
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        return bytes ? std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)))
                     : std::string();
    }

    [[noreturn]] void fail(const std::string& statement) {
        throw std::runtime_error(std::string(sqlite3_errmsg(database_)) + " in: " + statement.substr(0, 500));
    }

    sqlite3* database_ = nullptr;
};

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void removeDatabase(const std::string& path) {
    for (const char* ending : {"", "-journal", "-wal", "-shm"}) {
        std::error_code ignored;
        fs::remove(path + ending, ignored);
    }
}

/// A path that nothing stands at: a program that was killed may have left its own under the same number.
std::string freshPath() {
    static int number = 0;
    const std::string name =
        "zelvo-test-" + std::to_string(::getpid()) + "-" + std::to_string(++number) + ".db";
    // Every commit waits for the disk; a test need not.
    const fs::path memory = "/dev/shm";
    const fs::path folder = ::access(memory.c_str(), W_OK) == 0 ? memory : fs::temp_directory_path();
    removeDatabase((folder / name).string());
    return (folder / name).string();
}

/// The bytes of a fresh pharmacy.
std::string freshPharmacy(bool withCatalogue) {
    const fs::path folder = fs::path(ZELVO_SOURCE_DIR) / "demo" / "pharmacy";
    std::set<fs::path> catalogue;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (withCatalogue && entry.path().extension() == ".sql") catalogue.insert(entry.path());
    }
    catalogue.erase(folder / "schema.sql");
    std::string script = "BEGIN;" + readFile(folder / "schema.sql");
    for (const fs::path& rows : catalogue) script += readFile(rows);
    const std::string path = freshPath();
    PlainDatabase(path).run(script + "COMMIT;");
    std::string bytes = readFile(path);
    fs::remove(path);
    return bytes;
}

}  // namespace

TestDatabase::TestDatabase(bool withCatalogue) : path_(freshPath()) {
    // Made once for all tests of a program.
    static std::map<bool, std::string> pharmacies;
    std::string& bytes = pharmacies[withCatalogue];
    if (bytes.empty()) bytes = freshPharmacy(withCatalogue);
    std::ofstream(path_, std::ios::binary) << bytes;
}

TestDatabase::~TestDatabase() {
    removeDatabase(path_);
}

std::unique_ptr<data::Connection> TestDatabase::connect() const {
    return std::make_unique<sqlite::SqliteConnection>(path_);
}

void TestDatabase::run(const std::string& statements) const {
    PlainDatabase(path_).run(statements);
}

std::string TestDatabase::value(const std::string& query) const {
    const auto all = rows(query);
    return all.empty() ? std::string() : all.front().at(0);
}

std::vector<std::vector<std::string>> TestDatabase::rows(const std::string& query) const {
    return PlainDatabase(path_).rows(query);
}

FaultyConnection::FaultyConnection(std::unique_ptr<data::Connection> inner) : inner_(std::move(inner)) {}

void FaultyConnection::count(const std::string& statement) {
    before(statement);
    statements.push_back(statement);
    const bool failsNow = countdown_ > 0 && --countdown_ == 0;
    if (failsNow && staysBroken) broken_ = true;
    if (broken_ && inTransaction) {
        // The server lets go of what a lost client had begun.
        inner_->rollback();
        inTransaction = false;
    }
    if (failsNow || broken_) throw basics::Fault("failed on purpose: " + statement);
}

void FaultyConnection::runStatement(const std::string& statement) {
    count(statement);
    inner_->execute(statement);
}

void FaultyConnection::openSet(data::RecordSet& set, const std::string& statement, data::Cursor cursor,
                               const data::UpdateTarget& target) {
    count(statement);
    inner_->open(set, statement, cursor, target);
}

std::optional<std::int32_t> FaultyConnection::runInsert(const std::string& statement,
                                                        const data::NewRow& row) {
    count(statement);
    const std::optional<std::int32_t> key = inner_->insert(statement, row);
    return tellsKeys ? key : std::nullopt;
}

void FaultyConnection::beginWork(std::string_view turn) {
    count("BEGIN");
    inner_->begin(turn);
    inTransaction = true;
}

data::CommitOutcome FaultyConnection::commitWork() {
    try {
        count("COMMIT");
    } catch (const basics::Fault&) {
        return broken_ ? data::CommitOutcome::Unknown : data::CommitOutcome::Refused;
    }
    const auto asked = std::exchange(nextCommit, std::nullopt);
    if (asked == data::CommitOutcome::Refused) return data::CommitOutcome::Refused;
    const data::CommitOutcome outcome = inner_->commit();
    if (outcome != data::CommitOutcome::Refused) inTransaction = false;
    return asked.value_or(outcome);
}

void FaultyConnection::rollbackWork() {
    before("ROLLBACK");
    statements.emplace_back("ROLLBACK");
    if (!broken_) inner_->rollback();
    inTransaction = false;
}

}  // namespace zelvo::testing
