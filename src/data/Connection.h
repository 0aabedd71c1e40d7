#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "data/RecordSet.h"

namespace zelvo::data {

/// What a commit came to. Unknown: the line broke between the request and its answer.
enum class CommitOutcome { Done, Refused, Unknown };

/// The row that an insert makes: its table, the column of its key, and what else must hold of it.
struct NewRow {
    std::string_view table, key;
    std::string condition;
};

/// What the statement layer asks of a database client. One connection lives for a session; all of it is used
/// on one thread. Every failure of the database is a Fault that bears the driver's own words, for a
/// developer's eyes.
class Connection {
public:
    virtual ~Connection() = default;

    /// Lets the event loop work; a walk calls it once a row. The session sets it when it opens the
    /// connection.
    std::function<void()> yield = [] {};
    /// Told how long a trip to the server lasts so far, again and again from half a second on; false gives it
    /// up. It may draw, and must not ask the database. The session sets it when it opens the connection.
    std::function<bool(std::chrono::milliseconds soFar)> waiting;
    /// Opens one more connection to the same server, for a single question when this one has broken. Throws
    /// Fault. The session sets it when it opens the connection.
    std::function<std::unique_ptr<Connection>()> another;
    /// The server's address, as the chart gave it. The session sets it when it opens the connection.
    std::string server;

    /// Whether the server keeps a catalogue of its columns (INFORMATION_SCHEMA) that tells how long they are.
    virtual bool hasCatalogue() const { return false; }
    virtual bool isOpen() const = 0;
    virtual void close() = 0;

    /// Runs a statement and drops what it returns. A statement that fails inside a unit of work spoils it:
    /// nothing of it runs any more until it has been rolled back, for the server may have ended it, and what
    /// came then would commit by itself.
    void execute(const std::string& statement);
    /// Opens `set` on a statement: its rows come whole to the client. On a Fault the set stays as it was.
    void open(RecordSet& set, const std::string& statement, Cursor cursor, const UpdateTarget& target = {});
    /// Runs the insert of one row. Gives the row's key where the server tells it in the same answer and a row
    /// of that key meets the condition; nothing where the key has to be asked for. Throws Fault for a key
    /// that no such row has, and for a row without one.
    std::optional<std::int32_t> insert(const std::string& statement, const NewRow& row);

    /// Units of work of the same `turn` (letters, digits and blanks) wait for each other where the server
    /// can do that; "" waits for nobody. Throws Fault when a unit of work is under way.
    void begin(std::string_view turn = "");
    /// A commit that is refused has been rolled back when this returns.
    CommitOutcome commit();
    void rollback();

protected:
    // What a driver does for each of them.
    virtual void runStatement(const std::string& statement) = 0;
    virtual void openSet(RecordSet& set, const std::string& statement, Cursor cursor,
                         const UpdateTarget& target) = 0;
    virtual std::optional<std::int32_t> runInsert(const std::string& statement, const NewRow& row);
    virtual void beginWork(std::string_view turn) = 0;
    virtual CommitOutcome commitWork() = 0;
    virtual void rollbackWork() = 0;

private:
    enum class Work { None, Sound, Spoiled };

    void inWork(const std::function<void()>& step);

    Work work_ = Work::None;
};

/// A unit of work: begun by the constructor (a Fault when it can't be), rolled back by the destructor unless
/// committed.
class Transaction {
public:
    explicit Transaction(Connection& connection, std::string_view turn = "");
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    CommitOutcome commit();
    /// Never throws: a line that is gone has taken the transaction with it.
    void rollback() noexcept;

private:
    Connection& connection_;
    bool open_ = true;
};

/// The facts of the pharmacy's connection.
struct ServerLogin {
    std::string address, database, user, password;
    /// Told how long the login lasts so far, as Connection::waiting is; nobody where it is empty.
    std::function<bool(std::chrono::milliseconds soFar)> waiting = {};
};

/// Opens the connection that an address asks for; given to the session by the assembly. Throws Fault when it
/// can't be opened.
using ConnectionOpener = std::function<std::unique_ptr<Connection>(const ServerLogin&)>;

}  // namespace zelvo::data
