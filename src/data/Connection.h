#pragma once

#include <chrono>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/CodePlace.h"
#include "data/Failure.h"
#include "data/RecordSet.h"

namespace zelvo::data {

/// What a commit came to. Unknown: the line broke between the request and its answer.
enum class CommitOutcome { Done, Refused, Unknown };

/// The row that an insert makes: its table, the column of its key, and what else must hold of it.
struct NewRow {
    std::string_view table, key;
    std::string condition;
};

/// One of several statements that go to the server together.
struct Step {
    std::string statement;
    RecordSet* rows = nullptr;  ///< gets its rows; nullptr where nobody wants what comes back
    Cursor cursor = Cursor::Static;
    UpdateTarget target = {};
    CodePlace from = CodePlace::current();
};

/// How far a trip of several statements came: the first `ran` have run and stand; the failure is that of the
/// one behind them, and none behind that has run.
struct TripEnd {
    std::size_t ran = 0;
    std::exception_ptr failure;
};

/// Begins a wait for the server, which is under way since then. What it gives is called again and again on
/// the window's thread while the wait lasts, and dropped at its end; it may draw, and must not ask the
/// database. False gives the trip up.
using Waiting = std::function<std::function<bool()>(std::chrono::steady_clock::time_point since)>;

/// What the statement layer asks of a database client. One connection lives for a session; all of it is used
/// on one thread. Every failure of the database is a Fault that bears the driver's own words, for a
/// developer's eyes.
class Connection {
public:
    using From = CodePlace;
    /// Reads that will be made: run against a connection that only notes what they ask.
    using Reads = std::function<void(Connection& line)>;

    Connection();
    virtual ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Lets the event loop work; a walk calls it once a row. The session sets it when it opens the
    /// connection.
    std::function<void()> yield = [] {};
    /// Begins a wait when a trip has lasted half a second. The session sets it when it opens the connection.
    Waiting waiting;
    /// Opens one more connection to the same server, for a single question when this one has broken. Throws
    /// Fault. The session sets it when it opens the connection.
    std::function<std::unique_ptr<Connection>()> another;
    /// The one name of the server's database (databaseName). The session sets it when it opens the
    /// connection.
    std::string server;
    /// Told of each failure, and of each trip that was slow. The session sets it when it opens the
    /// connection.
    std::function<void(const Failure& failure)> onFailure;
    /// A trip that takes this long is told of, though nothing fails.
    std::chrono::milliseconds slow{2000};

    /// Whether the server keeps a catalogue of its columns (INFORMATION_SCHEMA) that tells how long they are.
    virtual bool hasCatalogue() const { return false; }
    virtual bool isOpen() const = 0;
    virtual void close() = 0;
    /// The driver's name and version.
    virtual std::string driver() const { return {}; }

    /// Runs a statement and drops what it returns. A statement that fails inside a unit of work spoils it:
    /// nothing of it runs any more until it has been rolled back, for the server may have ended it, and what
    /// came then would commit by itself.
    void execute(const std::string& statement, From from = From::current());
    /// Opens `set` on a statement: its rows come whole to the client. On a Fault the set stays as it was.
    void open(RecordSet& set, const std::string& statement, Cursor cursor, const UpdateTarget& target = {},
              From from = From::current());
    /// Runs the insert of one row. Gives the row's key where the server tells it in the same answer and a row
    /// of that key meets the condition; nothing where the key has to be asked for. Throws Fault for a key
    /// that no such row has, and for a row without one.
    std::optional<std::int32_t> insert(const std::string& statement, const NewRow& row,
                                       From from = From::current());

    /// Units of work of the same `turn` (letters, digits and blanks) wait for each other where the server
    /// can do that; "" waits for nobody. What `ahead` asks goes along, as with a ReadAhead. Throws Fault
    /// when a unit of work is under way.
    void begin(std::string_view turn = "", const Reads& ahead = {}, From from = From::current());
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
    /// Whether statements that are handed over together go to the server in one trip.
    virtual bool sharesTrips() const { return false; }
    /// Runs the steps in their order, up to the first that fails.
    virtual TripEnd runSteps(std::span<const Step> steps);
    /// Begins, and runs the steps in the same trip. Throws Fault when it has not begun.
    virtual TripEnd beginTogether(std::string_view turn, std::span<const Step> steps);
    /// Tells of a failure that the driver keeps to itself; of no failure where the trip was slow.
    void tell(const std::exception_ptr& fault, std::string_view statement,
              std::chrono::steady_clock::time_point start, const From& from) const;

private:
    friend class ReadAhead;
    friend class Together;
    enum class Work { None, Sound, Spoiled };
    struct Ahead;

    void inWork(const std::string& statement, const From& from, const std::function<void()>& step);
    void readAhead(const std::vector<std::string>& statements, const From& from);
    std::vector<Step> askAhead(const std::vector<std::string>& statements, const From& from);
    void keepAhead(const TripEnd& end, bool first);
    bool isAhead(const std::string& statement) const;
    void askWithOthers(const std::string& statement, const From& from);
    void dropAhead();
    std::unique_ptr<Ahead> takeAhead(const std::string& statement);
    void sendHeld();

    Work work_ = Work::None;
    From begunBy_;
    std::vector<std::unique_ptr<Ahead>> ahead_;
    std::vector<std::string> behind_;
    bool holds_ = false;
    std::vector<Step> held_;
    std::size_t handedIn_ = 0, ran_ = 0;
};

/// Reads that will be made one after the other, answered in one trip where the driver can: as long as this
/// lives, each of them takes what came for it. A failure is told to the one that it belongs to, and what
/// comes behind it is asked alone. A write makes what is left stale and drops it.
class ReadAhead {
public:
    /// What `behind` asks goes along with the next question that is none of `reads`.
    ReadAhead(Connection& connection, const Connection::Reads& reads, const Connection::Reads& behind = {},
              Connection::From from = Connection::From::current());
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

private:
    Connection& connection_;
};

/// Statements of a unit of work that are handed over together: as long as this lives, what is executed is
/// kept, and goes in one trip with the next question, or with `send`.
class Together {
public:
    explicit Together(Connection& connection);
    /// What was not sent is dropped.
    ~Together();
    Together(const Together&) = delete;
    Together& operator=(const Together&) = delete;

    /// How many have been handed in.
    std::size_t count() const { return connection_.handedIn_; }
    /// Hands over what is kept. Gives how many of all have run: fewer than `count` when the next one failed,
    /// and then none behind it has run and the unit of work is spoiled.
    std::size_t send();

private:
    Connection& connection_;
};

/// A unit of work: begun by the constructor (a Fault when it can't be), rolled back by the destructor unless
/// committed.
class Transaction {
public:
    explicit Transaction(Connection& connection, std::string_view turn = "",
                         const Connection::Reads& ahead = {},
                         Connection::From from = Connection::From::current());
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
    /// As Connection::waiting, for the login.
    Waiting waiting = {};
};

/// Opens the connection that an address asks for; given to the session by the assembly. Throws Fault when it
/// can't be opened.
using ConnectionOpener = std::function<std::unique_ptr<Connection>(const ServerLogin&)>;

}  // namespace zelvo::data
