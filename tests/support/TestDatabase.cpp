#include "support/TestDatabase.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <map>
#include <regex>
#include <stdexcept>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "pharmacy/PharmacyFile.h"
#include "pharmacy/Sqlite.h"
#include "platform/sqlite/SqliteConnection.h"
#include "support/TestFolder.h"

namespace zelvo::testing {
namespace {

namespace fs = std::filesystem;
using pharmacy::Database;

void removeDatabase(const std::string& path) {
    for (const char* ending : {"", "-journal", "-wal", "-shm"}) {
        std::error_code ignored;
        fs::remove(path + ending, ignored);
    }
}

/// The bytes of a fresh pharmacy.
std::string freshPharmacy(bool withCatalogue) {
    const std::string path = freshPath(".db").string();
    if (withCatalogue) pharmacy::makePharmacy(path, true);
    if (!withCatalogue) {
        std::ofstream(path, std::ios::binary).flush();
        Database(path).run(contentOf(ZELVO_SOURCE_DIR "/demo/pharmacy/schema.sql"));
    }
    std::string bytes = contentOf(path);
    fs::remove(path);
    return bytes;
}

std::string cell(sqlite3_stmt* statement, int column) {
    if (sqlite3_column_type(statement, column) == SQLITE_FLOAT)
        return basics::decimalText(sqlite3_column_double(statement, column));
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return bytes ? bytes : "";
}

}  // namespace

TestDatabase::TestDatabase(bool withCatalogue) : path_(freshPath(".db").string()) {
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
    Database(path_).run(statements);
}

std::string TestDatabase::value(const std::string& query) const {
    const auto all = rows(query);
    return all.empty() ? std::string() : all.front().at(0);
}

std::vector<std::vector<std::string>> TestDatabase::rows(const std::string& query) const {
    const Database database(path_);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database.handle(), query.c_str(), -1, &statement, nullptr);
    std::vector<std::vector<std::string>> result;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        auto& row = result.emplace_back();
        for (int i = 0; i < sqlite3_column_count(statement); ++i) row.push_back(cell(statement, i));
    }
    if (sqlite3_finalize(statement) != SQLITE_OK || !statement)
        throw std::runtime_error(std::string(sqlite3_errmsg(database.handle())) + " in: " + query);
    return result;
}

FaultyConnection::FaultyConnection(std::unique_ptr<data::Connection> inner) : inner_(std::move(inner)) {
    // Whatever fails in whatever test: the record of it names what was done, and nobody.
    onFailure = [](const data::Failure& failure) {
        static const std::regex nobody("[A-Za-z_]+\\|[A-Z]+( t_[A-Za-z]+)?\\|[A-Za-z0-9/ ]*");
        const std::string line = failure.operation + "|" + failure.statement + "|" + failure.cause;
        EXPECT_TRUE(std::regex_match(line, nobody)) << line;
    };
}

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
