#include "data/Connection.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "basics/Fault.h"

namespace zelvo::data {

using basics::Fault;
using Clock = std::chrono::steady_clock;

/// What came of a question that was asked ahead.
struct Connection::Ahead {
    std::string statement;
    RecordSet rows;
    std::exception_ptr failure;
};

namespace {

/// Notes what is asked of it, and answers with no rows.
class Rehearsal : public Connection {
public:
    std::vector<std::string> asked;

    bool isOpen() const override { return true; }
    void close() override {}

protected:
    void runStatement(const std::string& /*statement*/) override {}
    void openSet(RecordSet& set, const std::string& statement, Cursor cursor,
                 const UpdateTarget& target) override {
        asked.push_back(statement);
        RecordSet::Filler(set, {}).finish(cursor, target, nullptr);
    }
    void beginWork(std::string_view /*turn*/) override {}
    CommitOutcome commitWork() override { return CommitOutcome::Refused; }
    void rollbackWork() override {}
};

std::vector<std::string> questionsOf(const Connection::Reads& reads) {
    Rehearsal rehearsal;
    if (reads) reads(rehearsal);
    return std::move(rehearsal.asked);
}

}  // namespace

Connection::Connection() = default;
Connection::~Connection() = default;

void Connection::tell(const std::exception_ptr& fault, std::string_view statement, Clock::time_point start,
                      const From& from) const {
    const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    if (!onFailure || (!fault && took < slow)) return;
    try {
        onFailure({functionOf(from), kindOfStatement(statement), fault ? causeOf(fault) : "slow", took});
    } catch (const std::exception&) {
        // A record that can't be kept changes nothing.
    }
}

void Connection::inWork(const std::string& statement, const From& from, const std::function<void()>& step) {
    if (work_ == Work::Spoiled) throw Fault("the transaction has failed");
    const Clock::time_point start = Clock::now();
    try {
        step();
    } catch (...) {
        if (work_ == Work::Sound) work_ = Work::Spoiled;
        tell(std::current_exception(), statement, start, from);
        throw;
    }
    tell(nullptr, statement, start, from);
}

void Connection::execute(const std::string& statement, From from) {
    dropAhead();
    if (holds_ && work_ == Work::Sound) {
        held_.push_back({.statement = statement, .from = from});
        ++handedIn_;
        return;
    }
    inWork(statement, from, [&] { runStatement(statement); });
}

void Connection::open(RecordSet& set, const std::string& statement, Cursor cursor, const UpdateTarget& target,
                      From from) {
    if (!held_.empty() || (!behind_.empty() && !isAhead(statement))) askWithOthers(statement, from);
    if (const std::unique_ptr<Ahead> came = target.table.empty() ? takeAhead(statement) : nullptr) {
        if (came->failure) std::rethrow_exception(came->failure);
        set.takeOver(came->rows);
        return;
    }
    inWork(statement, from, [&] { openSet(set, statement, cursor, target); });
    if (target.table.empty()) return;
    set.onWriteFailed = [tells = onFailure, from](std::string_view change, const std::exception_ptr& fault) {
        if (tells) tells({functionOf(from), kindOfStatement(change), causeOf(fault)});
    };
}

std::optional<std::int32_t> Connection::insert(const std::string& statement, const NewRow& row, From from) {
    dropAhead();
    sendHeld();
    std::optional<std::int32_t> key;
    inWork(statement, from, [&] { key = runInsert(statement, row); });
    return key;
}

TripEnd Connection::runSteps(std::span<const Step> steps) {
    TripEnd end;
    for (const Step& step : steps) {
        try {
            if (step.rows) {
                openSet(*step.rows, step.statement, step.cursor, step.target);
            } else {
                runStatement(step.statement);
            }
        } catch (...) {
            end.failure = std::current_exception();
            return end;
        }
        ++end.ran;
    }
    return end;
}

TripEnd Connection::beginTogether(std::string_view turn, std::span<const Step> steps) {
    beginWork(turn);
    return runSteps(steps);
}

std::vector<Step> Connection::askAhead(const std::vector<std::string>& statements, const From& from) {
    std::vector<Step> steps;
    ahead_.clear();
    for (const std::string& statement : statements) {
        ahead_.push_back(std::make_unique<Ahead>());
        ahead_.back()->statement = statement;
        steps.push_back({.statement = statement, .rows = &ahead_.back()->rows, .from = from});
    }
    return steps;
}

/// What has run is kept, and the failure of what has not. A server may refuse a whole trip for a statement
/// that it can't read, and blame the first: then each of them is asked alone.
void Connection::keepAhead(const TripEnd& end, bool first) {
    const bool late = causeOf(end.failure).find("HYT") != std::string::npos;
    const bool alone = first && end.ran == 0 && work_ == Work::None && !late;
    if (end.failure && !alone && end.ran < ahead_.size()) ahead_[end.ran]->failure = end.failure;
    const std::size_t known = end.ran + (end.failure && !alone ? 1 : 0);
    ahead_.resize(std::min(known, ahead_.size()));
    if (end.failure && work_ == Work::Sound) work_ = Work::Spoiled;
}

void Connection::readAhead(const std::vector<std::string>& statements, const From& from) {
    if (work_ == Work::Spoiled) return;
    std::vector<Step> steps = std::exchange(held_, {});
    const std::size_t held = steps.size();
    for (Step& step : askAhead(statements, from)) steps.push_back(std::move(step));
    const Clock::time_point start = Clock::now();
    const TripEnd end = runSteps(steps);
    // A slow trip is known by its first statement.
    if (const std::size_t at = end.failure ? end.ran : 0; at < steps.size())
        tell(end.failure, steps[at].statement, start, steps[at].from);
    ran_ += std::min(end.ran, held);
    if (end.ran >= held) return keepAhead({end.ran - held, end.failure}, held == 0);
    work_ = Work::Spoiled;
    ahead_.clear();
}

bool Connection::isAhead(const std::string& statement) const {
    return std::any_of(ahead_.begin(), ahead_.end(),
                       [&](const auto& came) { return came->statement == statement; });
}

/// What waits, the question, and what is to go along with it.
void Connection::askWithOthers(const std::string& statement, const From& from) {
    std::vector<std::string> statements = std::exchange(behind_, {});
    if (statements.empty() || statements.front() != statement)
        statements.insert(statements.begin(), statement);
    readAhead(statements, from);
}

void Connection::dropAhead() {
    ahead_.clear();
    behind_.clear();
}

std::unique_ptr<Connection::Ahead> Connection::takeAhead(const std::string& statement) {
    const auto found = std::find_if(ahead_.begin(), ahead_.end(),
                                    [&](const auto& came) { return came->statement == statement; });
    if (found == ahead_.end()) return nullptr;
    std::unique_ptr<Ahead> taken = std::move(*found);
    ahead_.erase(found);
    return taken;
}

void Connection::sendHeld() {
    if (!held_.empty()) readAhead({}, begunBy_);
}

ReadAhead::ReadAhead(Connection& connection, const Connection::Reads& reads, const Connection::Reads& behind,
                     Connection::From from)
    : connection_(connection) {
    if (!connection.sharesTrips()) return;
    connection.readAhead(questionsOf(reads), from);
    connection.behind_ = questionsOf(behind);
}

ReadAhead::~ReadAhead() {
    connection_.dropAhead();
}

Together::Together(Connection& connection) : connection_(connection) {
    connection.holds_ = true;
    connection.handedIn_ = connection.ran_ = 0;
}

Together::~Together() {
    connection_.holds_ = false;
    connection_.held_.clear();
}

std::size_t Together::send() {
    connection_.sendHeld();
    return connection_.ran_;
}

std::optional<std::int32_t> Connection::runInsert(const std::string& statement, const NewRow& /*row*/) {
    runStatement(statement);
    return std::nullopt;
}

void Connection::begin(std::string_view turn, const Reads& ahead, From from) {
    if (work_ != Work::None) throw Fault("a transaction is open");
    begunBy_ = from;
    const Clock::time_point start = Clock::now();
    try {
        if (!ahead || !sharesTrips()) {
            beginWork(turn);
            work_ = Work::Sound;
            return tell(nullptr, "BEGIN", start, from);
        }
        const std::vector<Step> steps = askAhead(questionsOf(ahead), from);
        const TripEnd end = beginTogether(turn, steps);
        work_ = Work::Sound;
        tell(end.failure, end.failure ? steps[end.ran].statement : "BEGIN", start, from);
        keepAhead(end, false);
    } catch (...) {
        ahead_.clear();
        tell(std::current_exception(), "BEGIN", start, from);
        throw;
    }
}

CommitOutcome Connection::commit() {
    dropAhead();
    sendHeld();  // nothing shares a trip with a commit
    const Work work = std::exchange(work_, Work::None);
    if (work == Work::None) return CommitOutcome::Refused;
    Clock::time_point start = Clock::now();
    const CommitOutcome outcome = work == Work::Sound ? commitWork() : CommitOutcome::Refused;
    if (outcome == CommitOutcome::Done) tell(nullptr, "COMMIT", start, begunBy_);
    if (outcome != CommitOutcome::Refused) return outcome;
    start = Clock::now();
    try {
        rollbackWork();
    } catch (const std::exception&) {
        tell(std::current_exception(), "ROLLBACK", start, begunBy_);
        // A server that fails at a commit and then at its rollback leaves open what came of it. Nobody has
        // asked for the commit of a spoiled one.
        return work == Work::Sound ? CommitOutcome::Unknown : CommitOutcome::Refused;
    }
    return CommitOutcome::Refused;
}

void Connection::rollback() {
    dropAhead();
    held_.clear();
    if (std::exchange(work_, Work::None) != Work::None) rollbackWork();
}

Transaction::Transaction(Connection& connection, std::string_view turn, const Connection::Reads& ahead,
                         Connection::From from)
    : connection_(connection) {
    connection_.begin(turn, ahead, from);
}

Transaction::~Transaction() {
    rollback();
}

CommitOutcome Transaction::commit() {
    if (!std::exchange(open_, false)) return CommitOutcome::Refused;
    try {
        return connection_.commit();
    } catch (const std::exception&) {
        // A driver that can't even say what became of it leaves the outcome unknown.
        return CommitOutcome::Unknown;
    }
}

void Transaction::rollback() noexcept {
    if (!open_) return;
    open_ = false;
    try {
        connection_.rollback();
    } catch (const std::exception&) {
        // A line that is gone has taken the transaction with it.
    }
}

}  // namespace zelvo::data
