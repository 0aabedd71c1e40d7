#include "data/Connection.h"

#include <exception>
#include <utility>

#include "basics/Fault.h"

namespace zelvo::data {

using basics::Fault;

void Connection::inWork(const std::function<void()>& step) {
    if (work_ == Work::Spoiled) throw Fault("the transaction has failed");
    try {
        step();
    } catch (...) {
        if (work_ == Work::Sound) work_ = Work::Spoiled;
        throw;
    }
}

void Connection::execute(const std::string& statement) {
    inWork([&] { runStatement(statement); });
}

void Connection::open(RecordSet& set, const std::string& statement, Cursor cursor,
                      const UpdateTarget& target) {
    inWork([&] { openSet(set, statement, cursor, target); });
}

std::optional<std::int32_t> Connection::insert(const std::string& statement, const NewRow& row) {
    std::optional<std::int32_t> key;
    inWork([&] { key = runInsert(statement, row); });
    return key;
}

std::optional<std::int32_t> Connection::runInsert(const std::string& statement, const NewRow& /*row*/) {
    runStatement(statement);
    return std::nullopt;
}

void Connection::begin(std::string_view turn) {
    if (work_ != Work::None) throw Fault("a transaction is open");
    beginWork(turn);
    work_ = Work::Sound;
}

CommitOutcome Connection::commit() {
    const Work work = std::exchange(work_, Work::None);
    if (work == Work::None) return CommitOutcome::Refused;
    const CommitOutcome outcome = work == Work::Sound ? commitWork() : CommitOutcome::Refused;
    if (outcome != CommitOutcome::Refused) return outcome;
    try {
        rollbackWork();
    } catch (const std::exception&) {
        // A server that fails at a commit and then at its rollback leaves open what came of it. Nobody has
        // asked for the commit of a spoiled one.
        return work == Work::Sound ? CommitOutcome::Unknown : CommitOutcome::Refused;
    }
    return CommitOutcome::Refused;
}

void Connection::rollback() {
    if (std::exchange(work_, Work::None) != Work::None) rollbackWork();
}

Transaction::Transaction(Connection& connection, std::string_view turn) : connection_(connection) {
    connection_.begin(turn);
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
