#include "data/Connection.h"

#include <exception>

namespace zelvo::data {

Transaction::Transaction(Connection& connection) : connection_(connection) {
    connection_.begin();
}

Transaction::~Transaction() {
    rollback();
}

CommitOutcome Transaction::commit() {
    if (!open_) return CommitOutcome::Refused;
    CommitOutcome outcome = CommitOutcome::Unknown;
    try {
        outcome = connection_.commit();
    } catch (const std::exception&) {
        // A driver that can't even say what became of it leaves the outcome unknown.
    }
    if (outcome == CommitOutcome::Refused) rollback();
    open_ = false;
    return outcome;
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
