#include "platform/odbc/OdbcConnection.h"

#include <exception>
#include <mutex>
#include <utility>
#include <vector>

#include "basics/Environment.h"
#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "data/ServerAddress.h"
#include "data/Statement.h"
#include "platform/odbc/ConnectionString.h"
#include "platform/odbc/Fetch.h"
#include "platform/odbc/FreeTdsConfiguration.h"
#include "platform/odbc/Trip.h"

namespace zelvo::odbc {

using basics::Fault;

namespace {

/// Rows of an updatable result set go back by statements of their own, keyed by the set's key column.
class KeyedWriter : public data::RowWriter {
public:
    KeyedWriter(std::weak_ptr<Line> line, OdbcConnection::Dialect dialect)
        : line_(std::move(line)), dialect_(dialect) {}

    void update(const data::UpdateTarget& target, std::string_view keyValue,
                const std::vector<std::pair<std::string, std::string>>& changed) override {
        std::vector<std::string> assignments;
        assignments.reserve(changed.size());
        for (const auto& [field, value] : changed) assignments.push_back(name(field) + " = " + quoted(value));
        write("UPDATE " + name(target.table) + " SET " + basics::join(assignments, ", "), target, keyValue);
    }

    void remove(const data::UpdateTarget& target, std::string_view keyValue) override {
        write("DELETE FROM " + name(target.table), target, keyValue);
    }

private:
    static std::string name(std::string_view text) { return "[" + basics::replaceAll(text, "]", "]]") + "]"; }
    static std::string quoted(std::string_view text) {
        return data::Statement("'[Value]'").fill("[Value]", text).text();
    }

    void write(const std::string& change, const data::UpdateTarget& target, std::string_view keyValue) {
        const std::shared_ptr<Line> line = line_.lock();
        if (!line) throw Fault("the connection is closed");
        const SQLLEN rows =
            line->run(dialect_(change + " WHERE " + name(target.key) + " = " + quoted(keyValue)));
        if (rows == 0) throw Fault("the row is gone");
    }

    std::weak_ptr<Line> line_;
    OdbcConnection::Dialect dialect_;
};

}  // namespace

OdbcConnection::OdbcConnection(const std::string& connectionString, const Limits& limits, Dialect dialect)
    : line_(std::make_shared<Line>(connectionString, limits)), dialect_(dialect), driver_(line_->driver()) {
    line_->setWaiting([this](std::chrono::steady_clock::time_point since) {
        return waiting ? waiting(since) : std::function<bool()>();
    });
}

OdbcConnection::~OdbcConnection() = default;

void OdbcConnection::requireEncryption() const {
    constexpr SQLUINTEGER firstWithEncryption = 0x70001;
    if (line().protocol() < firstWithEncryption) throw data::SetupFault("the line is not encrypted");
}

void OdbcConnection::close() {
    line_.reset();
}

Line& OdbcConnection::line() const {
    if (!line_) throw Fault("the connection is closed");
    return *line_;
}

void OdbcConnection::runStatement(const std::string& statement) {
    line().run(dialect_(statement));
}

void OdbcConnection::openSet(data::RecordSet& set, const std::string& statement, data::Cursor cursor,
                             const data::UpdateTarget& target) {
    const auto rows = std::make_shared<std::unique_ptr<data::RecordSet::Filler>>();
    line().query(dialect_(statement), [rows, &set](const Answer& answer) { *rows = fetch(answer, set); });
    // Not before all has come: what goes wrong behind the rows must not leave half of them.
    (*rows)->finish(cursor, target, std::make_unique<KeyedWriter>(line_, dialect_));
}

// In a table whose keys are no identities the server would tell the last one of some other table; and where a
// trigger stands in for the insert, the key of what the trigger wrote.
std::optional<std::int32_t> OdbcConnection::runInsert(const std::string& statement, const data::NewRow& row) {
    const std::string table(row.table), key(row.key), told = "CONVERT(int, SCOPE_IDENTITY())";
    data::RecordSet answer;
    openSet(answer,
            statement + "; SELECT " + told + " AS NewKey, (SELECT COUNT(*) FROM " + table + " WHERE " + key +
                " = " + told + " AND " + row.condition + ") AS Stands WHERE IDENT_CURRENT('" + table +
                "') IS NOT NULL",
            data::Cursor::Static, {});
    if (answer.atEnd() || answer.isNull("NewKey")) return std::nullopt;
    if (answer.text("Stands") == "0") throw Fault("the key that came is not the row's");
    return basics::toInt32(answer.text("NewKey"));
}

data::TripEnd OdbcConnection::runSteps(std::span<const data::Step> steps) {
    if (!sharesTrips() || steps.size() < 2) return Connection::runSteps(steps);
    Trip trip(steps, dialect_);
    data::TripEnd end;
    try {
        line().talk(trip.text(), trip.reader());
    } catch (const std::exception&) {
        end.failure = std::current_exception();
    }
    end.ran = trip.ran();
    for (std::size_t i = 0; i < end.ran; ++i) {
        if (steps[i].rows) {
            trip.rows(i).finish(steps[i].cursor, steps[i].target,
                                std::make_unique<KeyedWriter>(line_, dialect_));
        }
    }
    return end;
}

namespace {

/// Waits in the server's own queue until the others of the turn have ended; the place ends with the
/// transaction. A server that has no such queue goes on without.
std::string takingTurn(std::string_view turn) {
    if (turn.empty()) return {};
    return "; DECLARE @turn int; BEGIN TRY EXEC @turn = sp_getapplock @Resource = '" + std::string(turn) +
           "', @LockMode = 'Exclusive', @LockOwner = 'Transaction', @LockTimeout = 10000 END TRY "
           "BEGIN CATCH SET @turn = 0 END CATCH; IF @turn < 0 RAISERROR('another of the turn goes on', 16, 1)";
}

}  // namespace

// A unit of work is said in the server's own words: switching a driver's auto-commit off and on costs more,
// and what a driver makes of a transaction that the server has ended is its own affair.
void OdbcConnection::beginWork(std::string_view turn) {
    beginTogether(turn, {});
}

data::TripEnd OdbcConnection::beginTogether(std::string_view turn, std::span<const data::Step> steps) {
    std::vector<data::Step> all{{.statement = "BEGIN TRANSACTION" + takingTurn(turn)}};
    all.insert(all.end(), steps.begin(), steps.end());
    data::TripEnd end = runSteps(all);
    if (end.ran > 0) return {end.ran - 1, end.failure};
    try {
        std::rethrow_exception(end.failure);
    } catch (const ServerFault&) {
        // It may have begun, and a later commit would only end a transaction within it.
        takeBack();
        throw;
    }
}

/// Ends a transaction that nobody knows to be there; a line that does not even do that is closed.
void OdbcConnection::takeBack() noexcept {
    try {
        rollbackWork();
    } catch (const std::exception&) {
        line_.reset();
    }
}

data::CommitOutcome OdbcConnection::commitWork() {
    const auto start = std::chrono::steady_clock::now();
    try {
        line().run(dialect_("COMMIT TRANSACTION"));
    } catch (const ServerFault& fault) {
        tell(std::current_exception(), "COMMIT", start, From::current());
        if (fault.kind() == ServerFault::Kind::Refusal) return data::CommitOutcome::Refused;
        close();
        return data::CommitOutcome::Unknown;
    } catch (const Fault&) {
        // Nothing was sent on a line that had been closed before.
        return data::CommitOutcome::Refused;
    }
    return data::CommitOutcome::Done;
}

void OdbcConnection::rollbackWork() {
    if (!isOpen()) return;  // the server has let go of it
    try {
        // Some failures (a deadlock, say) have rolled back already.
        line().run(dialect_("IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION"));
    } catch (const Fault&) {
        close();
        throw;
    }
}

namespace {

std::uint16_t portOf(const std::string& address) {
    const data::ServerPlace place = data::readPlace(address);
    if (!place.instance.empty()) return 0;
    return static_cast<std::uint16_t>(basics::toInt32(place.port.empty() ? data::defaultPort : place.port));
}

/// One login at a time: what FreeTDS is told stands in the environment meanwhile.
std::unique_ptr<OdbcConnection> loggedIn(const data::ServerLogin& login, const Settings& settings) {
    static std::mutex oneAtATime;
    const std::lock_guard lock(oneAtATime);
    std::optional<FreeTdsConfiguration> configuration;
    if (settings.isFreeTds()) configuration.emplace(login.address, settings);
    auto connection = std::make_unique<OdbcConnection>(connectionString(login, settings),
                                                       Limits{.loginSeconds = settings.loginSeconds,
                                                              .querySeconds = settings.querySeconds,
                                                              .port = portOf(login.address),
                                                              .waiting = login.waiting});
    if (settings.encrypted && settings.isFreeTds()) connection->requireEncryption();
    connection->describeLine(!settings.encrypted ? "not encrypted"
                             : settings.checked  ? "certificate checked"
                                                 : "certificate NOT checked");
    return connection;
}

/// Whether the server answers a login of nobody's, without a password of the pharmacy's.
bool answersNobody(const data::ServerLogin& login, const Settings& settings) {
    try {
        loggedIn({login.address, login.database, "certificate-check", "", login.waiting}, settings);
        return true;
    } catch (const ServerFault& fault) {
        return fault.saidByServer();
    }
}

/// FreeTDS keeps to itself why it left a server: the same way without the check, or without the name, tells.
void explainCertificate(const data::ServerLogin& login, Settings settings) {
    settings.checked = false;
    if (!answersNobody(login, settings)) return;
    settings.checked = settings.anyName = true;
    throw data::SetupFault(answersNobody(login, settings)
                               ? "the server's certificate is made out to another name than its address"
                               : "the server's certificate is none of those to trust, or out of date");
}

}  // namespace

std::unique_ptr<data::Connection> openServer(const data::ServerLogin& login) {
    return openServerBy(readSettings(basics::environment), login);
}

std::unique_ptr<data::Connection> openServerBy(const Settings& settings, const data::ServerLogin& login) {
    const auto start = std::chrono::steady_clock::now();
    try {
        return loggedIn(login, settings);
    } catch (const ServerFault& fault) {
        // A server that keeps one waiting is not asked three times.
        const bool mute =
            fault.kind() == ServerFault::Kind::Late ||
            std::chrono::steady_clock::now() - start > std::chrono::milliseconds(500) * settings.loginSeconds;
        if (settings.checked && settings.isFreeTds() && !fault.saidByServer() && !mute)
            explainCertificate(login, settings);
        throw;
    }
}

}  // namespace zelvo::odbc
