#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace zelvo::pharmacy {

/// A statement or a file that the database refuses; the text is the database's own.
class DatabaseError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A file of the embedded database. Waits up to five seconds for another's lock. Every operation throws
/// DatabaseError.
class Database {
public:
    /// The file is there.
    explicit Database(const std::string& path);

    /// Runs one or more statements that give no rows.
    void run(const std::string& statements);
    /// Rows that the latest statement has changed.
    int changes() const;
    sqlite3* handle() const { return handle_.get(); }

private:
    struct Closer {
        void operator()(sqlite3* handle) const;
    };
    std::unique_ptr<sqlite3, Closer> handle_;
};

/// A prepared statement: bind in the order of its marks, then step through its rows.
class Query {
public:
    Query(const Database& database, const std::string& statement);

    Query& bind(std::int64_t value);
    Query& bind(const std::string& value);
    /// True while there is a row to read.
    bool step();

    std::int64_t whole(int column) const;
    double real(int column) const;
    /// The column's text; NULL is "".
    std::string text(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };
    const Database& database_;
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
    int bound_ = 0;
};

/// A write in one immediate transaction, rolled back unless it is committed.
class Transaction {
public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

private:
    Database& database_;
    bool open_ = true;
};

}  // namespace zelvo::pharmacy
