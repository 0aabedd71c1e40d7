#include "pharmacy/Sqlite.h"

#include <sqlite3.h>

namespace zelvo::pharmacy {
namespace {

constexpr int busyMilliseconds = 5000;

[[noreturn]] void fail(sqlite3* handle) {
    throw DatabaseError(sqlite3_errmsg(handle));
}

}  // namespace

void Database::Closer::operator()(sqlite3* handle) const {
    sqlite3_close(handle);
}

Database::Database(const std::string& path) {
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    handle_.reset(handle);
    if (result != SQLITE_OK) throw DatabaseError(path + ": " + sqlite3_errstr(result));
    sqlite3_busy_timeout(handle, busyMilliseconds);
}

void Database::run(const std::string& statements) {
    if (sqlite3_exec(handle(), statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) fail(handle());
}

int Database::changes() const {
    return sqlite3_changes(handle());
}

void Query::Finalizer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Query::Query(const Database& database, const std::string& statement) : database_(database) {
    sqlite3_stmt* prepared = nullptr;
    const int result = sqlite3_prepare_v2(database.handle(), statement.c_str(), -1, &prepared, nullptr);
    statement_.reset(prepared);
    if (result != SQLITE_OK) fail(database.handle());
}

Query& Query::bind(std::int64_t value) {
    if (sqlite3_bind_int64(statement_.get(), ++bound_, value) != SQLITE_OK) fail(database_.handle());
    return *this;
}

Query& Query::bind(const std::string& value) {
    const auto size = static_cast<int>(value.size());
    if (sqlite3_bind_text(statement_.get(), ++bound_, value.c_str(), size, SQLITE_TRANSIENT) != SQLITE_OK) {
        fail(database_.handle());
    }
    return *this;
}

bool Query::step() {
    const int result = sqlite3_step(statement_.get());
    if (result == SQLITE_ROW) return true;
    if (result != SQLITE_DONE) fail(database_.handle());
    return false;
}

std::int64_t Query::whole(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

double Query::real(int column) const {
    return sqlite3_column_double(statement_.get(), column);
}

std::string Query::text(int column) const {
    const auto* bytes = sqlite3_column_text(statement_.get(), column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
    return bytes == nullptr ? std::string() : std::string(bytes, bytes + size);
}

Transaction::Transaction(Database& database) : database_(database) {
    database_.run("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (open_) sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit() {
    database_.run("COMMIT");
    open_ = false;
}

}  // namespace zelvo::pharmacy
