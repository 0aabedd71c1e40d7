#include "platform/sqlite/SqliteConnection.h"

#include <sqlite3.h>

#include <utility>
#include <vector>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "data/ServerAddress.h"
#include "data/Statement.h"
#include "platform/sqlite/Dialect.h"
#include "platform/sqlite/Functions.h"

namespace zelvo::sqlite {

using basics::Fault;

namespace {

constexpr int busyMilliseconds = 5000;
// A connection is used on one thread, so SQLite needs no lock of its own.
constexpr int openFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;

struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Prepared = std::unique_ptr<sqlite3_stmt, Finalizer>;

data::DriverFault faultOf(sqlite3* database) {
    return {sqlite3_errmsg(database), "sqlite/" + std::to_string(sqlite3_extended_errcode(database))};
}

/// One statement, made ready. Text behind it is a Fault: nothing of the system sends two at once.
Prepared prepare(sqlite3* database, std::string_view text) {
    sqlite3_stmt* raw = nullptr;
    const char* rest = nullptr;
    const int result = sqlite3_prepare_v2(database, text.data(), static_cast<int>(text.size()), &raw, &rest);
    Prepared statement(raw);
    if (result != SQLITE_OK) throw faultOf(database);
    const std::string_view behind = text.substr(static_cast<std::size_t>(rest - text.data()));
    if (!statement || behind.find_first_not_of(" \t\r\n;") != std::string_view::npos) {
        throw Fault("not one statement: " + std::string(text));
    }
    return statement;
}

/// True when a row came, false at the end.
bool step(sqlite3* database, sqlite3_stmt* statement) {
    const int result = sqlite3_step(statement);
    if (result == SQLITE_ROW) return true;
    if (result != SQLITE_DONE) throw faultOf(database);
    return false;
}

void run(sqlite3* database, std::string_view text) {
    const Prepared statement = prepare(database, text);
    while (step(database, statement.get())) {
    }
}

/// Columns that hold true and false; SQLite knows it by the declared type alone.
bool isFlag(sqlite3_stmt* statement, int column) {
    const char* declared = sqlite3_column_decltype(statement, column);
    if (!declared) return false;
    const std::string type = basics::foldCase(declared);
    return type == "bit" || type == "bool" || type == "boolean";
}

void addCell(data::RecordSet::Filler& filler, sqlite3_stmt* statement, int column, bool flag) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_NULL:
            return filler.addNull();
        case SQLITE_INTEGER: {
            const sqlite3_int64 value = sqlite3_column_int64(statement, column);
            return flag ? filler.addFlag(value != 0) : filler.addNumber(std::int64_t{value});
        }
        case SQLITE_FLOAT:
            return filler.addNumber(sqlite3_column_double(statement, column));
        default: {
            const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
            return filler.add(bytes ? std::string_view(bytes, size) : std::string_view());
        }
    }
}

std::string quotedName(std::string_view text) {
    return '"' + basics::replaceAll(text, "\"", "\"\"") + '"';
}

/// The question whether rows of other tables bear the key [Key] of a new row: SQLite gives the key of a
/// deleted row again, and what was left under it belongs to somebody else.
std::string keyQuestion(sqlite3* database, const data::NewRow& row) {
    const auto literal = [](std::string_view text) {
        return data::Statement("'[Value]'").fill("[Value]", text).text();
    };
    // A table that keeps its keys has given none of them before.
    const Prepared keeps = prepare(
        database, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = " + literal(row.table) +
                      " COLLATE NOCASE AND sql LIKE '%AUTOINCREMENT%'");
    if (step(database, keeps.get())) return {};
    const Prepared others = prepare(
        database,
        "SELECT t.name FROM sqlite_master AS t, pragma_table_info(t.name) AS c WHERE t.type = 'table' AND c.name = " +
            literal(row.key) + " COLLATE NOCASE AND t.name <> " + literal(row.table) + " COLLATE NOCASE");
    std::string question;
    while (step(database, others.get())) {
        question += question.empty() ? "SELECT 1 WHERE " : " OR ";
        question += "EXISTS (SELECT 1 FROM " +
                    quotedName(reinterpret_cast<const char*>(sqlite3_column_text(others.get(), 0))) +
                    " WHERE " + quotedName(row.key) + " = [Key])";
    }
    return question;
}

/// Rows of an updatable result set go back by statements of their own, keyed by the set's key column.
class KeyedWriter : public data::RowWriter {
public:
    explicit KeyedWriter(std::weak_ptr<sqlite3> database) : database_(std::move(database)) {}

    void update(const data::UpdateTarget& target, std::string_view keyValue,
                const std::vector<std::pair<std::string, std::string>>& changed) override {
        std::vector<std::string> assignments;
        assignments.reserve(changed.size());
        for (const auto& [field, value] : changed)
            assignments.push_back(quotedName(field) + " = " + quoted(value));
        write("UPDATE " + quotedName(target.table) + " SET " + basics::join(assignments, ", "), target,
              keyValue);
    }

    void remove(const data::UpdateTarget& target, std::string_view keyValue) override {
        write("DELETE FROM " + quotedName(target.table), target, keyValue);
    }

private:
    static std::string quoted(std::string_view text) {
        return data::Statement("'[Value]'").fill("[Value]", text).text();
    }

    void write(const std::string& change, const data::UpdateTarget& target, std::string_view keyValue) {
        const std::shared_ptr<sqlite3> database = database_.lock();
        if (!database) throw Fault("the connection is closed");
        run(database.get(), change + toSqlite(" WHERE " + quotedName(target.key) + " = " + quoted(keyValue)));
        if (sqlite3_changes(database.get()) == 0) throw Fault("the row is gone");
    }

    std::weak_ptr<sqlite3> database_;
};

/// SQLite opens any file, and finds out at the first read whether it is a database.
void probe(sqlite3* database) {
    if (sqlite3_db_readonly(database, "main") != 0) throw Fault("the file can't be written");
    const Prepared tables = prepare(database, "SELECT count(*) FROM sqlite_master");
    if (!step(database, tables.get()) || sqlite3_column_int64(tables.get(), 0) == 0)
        throw Fault("the file holds no tables");
}

/// Whether one of the system's tables has a column without a type: there '1' is not 1.
bool hasLooseColumns(sqlite3* database) {
    const Prepared loose =
        prepare(database,
                "SELECT 1 FROM sqlite_master AS t, pragma_table_info(t.name) AS c WHERE t.type = 'table' "
                "AND t.name LIKE 't!_%' ESCAPE '!' AND (c.type = '' OR c.type LIKE '%BLOB%')");
    return step(database, loose.get());
}

std::shared_ptr<sqlite3> openDatabase(const std::string& path) {
    sqlite3* raw = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &raw, openFlags, nullptr);
    std::shared_ptr<sqlite3> opened(raw, [](sqlite3* database) { sqlite3_close_v2(database); });
    if (result != SQLITE_OK) throw raw ? faultOf(raw) : data::DriverFault("out of memory", "memory");
    sqlite3_busy_timeout(raw, busyMilliseconds);
    registerServerFunctions(raw);
    probe(raw);
    // An order that the chart was told of outlives a power cut: the folder is synchronised as well.
    run(raw, "PRAGMA synchronous = EXTRA");
    // A doctor's searches come back to the same pages: room for 32 MB of them, taken only as a file needs it.
    run(raw, "PRAGMA cache_size = -32768");
    return opened;
}

}  // namespace

SqliteConnection::SqliteConnection(const std::string& path)
    : path_(path), database_(openDatabase(path)), looseColumns_(hasLooseColumns(database_.get())) {}

SqliteConnection::~SqliteConnection() = default;

std::string SqliteConnection::driver() const {
    return std::string("SQLite ") + sqlite3_libversion();
}

void SqliteConnection::close() {
    database_.reset();
}

void SqliteConnection::openAnew() noexcept {
    database_.reset();
    try {
        database_ = openDatabase(path_);
    } catch (const std::exception&) {
        // It stays closed, and whatever comes next fails.
    }
}

sqlite3* SqliteConnection::database() const {
    if (!database_) throw Fault("the connection is closed");
    return database_.get();
}

void SqliteConnection::runStatement(const std::string& statement) {
    run(database(), toSqlite(statement, looseColumns_));
}

// Of a key that was declared as INT, or without a type, SQLite fills nothing in: then the row has a number
// that nobody can ask for, and no key.
std::optional<std::int32_t> SqliteConnection::runInsert(const std::string& statement,
                                                        const data::NewRow& row) {
    sqlite3* const opened = database();
    sqlite3_set_last_insert_rowid(opened, 0);
    runStatement(statement);
    const Prepared made =
        prepare(opened, toSqlite("SELECT " + quotedName(row.key) + " FROM " + quotedName(row.table) +
                                     " WHERE rowid = last_insert_rowid() AND " + row.condition,
                                 looseColumns_));
    if (!step(opened, made.get())) return std::nullopt;  // a view, say
    if (sqlite3_column_type(made.get(), 0) == SQLITE_NULL) throw Fault("the row has no key");
    return freeKey(
        row, basics::toInt32(std::string(reinterpret_cast<const char*>(sqlite3_column_text(made.get(), 0)))));
}

/// The key of the row just made, or the next one under which nothing was left: then the row has moved there.
std::int32_t SqliteConnection::freeKey(const data::NewRow& row, std::int32_t given) {
    sqlite3* const opened = database();
    const std::string question = keyQuestion(opened, row);
    const auto taken = [&](std::int32_t key) {
        if (question.empty()) return false;
        return step(opened,
                    prepare(opened, toSqlite(basics::replaceAll(question, "[Key]", std::to_string(key)),
                                             looseColumns_))
                        .get());
    };
    std::int32_t key = given;
    while (taken(key)) key = basics::addChecked(key, 1);
    if (key != given) {
        run(opened, "UPDATE " + quotedName(row.table) + " SET " + quotedName(row.key) + " = " +
                        std::to_string(key) + " WHERE rowid = last_insert_rowid()");
    }
    return key;
}

void SqliteConnection::openSet(data::RecordSet& set, const std::string& statement, data::Cursor cursor,
                               const data::UpdateTarget& target) {
    sqlite3* const opened = database();
    const Prepared prepared = prepare(opened, toSqlite(statement, looseColumns_));
    // The first step prepares anew when a table has changed since the last statement; only then the columns
    // are sure.
    bool more = step(opened, prepared.get());
    const int columns = sqlite3_column_count(prepared.get());
    std::vector<std::string> fields;
    std::vector<bool> flags;
    fields.reserve(static_cast<std::size_t>(columns));
    for (int column = 0; column < columns; ++column) {
        fields.emplace_back(sqlite3_column_name(prepared.get(), column));
        flags.push_back(isFlag(prepared.get(), column));
    }
    data::RecordSet::Filler filler(set, std::move(fields));
    for (; more; more = step(opened, prepared.get())) {
        for (int column = 0; column < columns; ++column) {
            addCell(filler, prepared.get(), column, flags[static_cast<std::size_t>(column)]);
        }
    }
    filler.finish(cursor, target, std::make_unique<KeyedWriter>(database_));
}

// Immediate: a read followed by a write would fail when somebody else wrote in between.
void SqliteConnection::beginWork(std::string_view /*turn*/) {
    run(database(), "BEGIN IMMEDIATE");
}

// A folder that can't be synchronised, or a lock that can't be given back, fails a commit whose journal is
// gone already: the rows stand. Only what leaves the transaction open is sure to have stored nothing.
data::CommitOutcome SqliteConnection::commitWork() {
    sqlite3* const opened = database();
    const auto start = std::chrono::steady_clock::now();
    int result = SQLITE_DONE;
    {
        const Prepared commit = prepare(opened, "COMMIT");
        result = sqlite3_step(commit.get()) & 0xFF;
    }
    if (result == SQLITE_DONE) return data::CommitOutcome::Done;
    tell(std::make_exception_ptr(faultOf(opened)), "COMMIT", start, From::current());
    const bool refused = result == SQLITE_BUSY || result == SQLITE_LOCKED || result == SQLITE_CONSTRAINT;
    if (refused && sqlite3_get_autocommit(opened) == 0) return data::CommitOutcome::Refused;
    openAnew();
    return data::CommitOutcome::Unknown;
}

void SqliteConnection::rollbackWork() {
    // Some failures (a full disk, say) have rolled back already.
    if (sqlite3_get_autocommit(database()) == 0) run(database(), "ROLLBACK");
}

bool isFileAddress(std::string_view address) {
    return address.starts_with(data::fileAddress);
}

std::unique_ptr<data::Connection> openFile(const data::ServerLogin& login) {
    if (!isFileAddress(login.address)) throw Fault("not the address of a file: " + login.address);
    return std::make_unique<SqliteConnection>(login.address.substr(data::fileAddress.size()));
}

}  // namespace zelvo::sqlite
