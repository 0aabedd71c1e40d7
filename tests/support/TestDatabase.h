#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/Connection.h"

namespace zelvo::testing {

/// A pharmacy of its own for one test: a SQLite file made from demo/pharmacy/*.sql, gone with the object.
/// Which rows it holds is the demo's affair; a test that needs certain rows writes them itself.
class TestDatabase {
public:
    /// `withCatalogue` false gives the bare tables.
    explicit TestDatabase(bool withCatalogue = true);
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    std::string path() const { return path_; }
    /// What the host hands over as the server: "sqlite:" and the path.
    std::string address() const { return "sqlite:" + path_; }
    std::unique_ptr<data::Connection> connect() const;

    /// Behind the client's back, on a connection of its own: several statements at once, and what one
    /// statement gives.
    void run(const std::string& statements) const;
    std::string value(const std::string& query) const;
    std::vector<std::vector<std::string>> rows(const std::string& query) const;

private:
    std::string path_;
};

/// A connection that fails on purpose and remembers what was asked of it.
class FaultyConnection : public data::Connection {
public:
    explicit FaultyConnection(std::unique_ptr<data::Connection> inner);

    /// The N-th call from now on fails (from 1; begin, commit, execute and open count alike); 0: none does.
    void failAt(int call) { countdown_ = call; }
    /// From the failing call on everything fails, as on a line that is gone.
    bool staysBroken = false;
    /// Whether an insert tells its row's key, as not every server does.
    bool tellsKeys = true;
    /// What the next commit comes to, in place of what it is.
    std::optional<data::CommitOutcome> nextCommit;
    /// Called before each call with its statement ("BEGIN", "COMMIT", "ROLLBACK" for those).
    std::function<void(const std::string&)> before = [](const std::string&) {};
    std::vector<std::string> statements;
    bool inTransaction = false;

    /// Whether it says that the server has a catalogue of its columns.
    bool catalogue = false;
    bool hasCatalogue() const override { return catalogue; }
    bool isOpen() const override { return !broken_ && inner_->isOpen(); }
    void close() override { inner_->close(); }

protected:
    void runStatement(const std::string& statement) override;
    void openSet(data::RecordSet& set, const std::string& statement, data::Cursor cursor,
                 const data::UpdateTarget& target) override;
    std::optional<std::int32_t> runInsert(const std::string& statement, const data::NewRow& row) override;
    void beginWork(std::string_view turn) override;
    data::CommitOutcome commitWork() override;
    void rollbackWork() override;

private:
    void count(const std::string& statement);

    std::unique_ptr<data::Connection> inner_;
    int countdown_ = 0;
    bool broken_ = false;
};

}  // namespace zelvo::testing
