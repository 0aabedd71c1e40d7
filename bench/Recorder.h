#pragma once

#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/Connection.h"

namespace zelvo::bench {

/// Keeps the texts of what a session asks for.
class Recorder : public data::Connection {
public:
    Recorder(std::unique_ptr<data::Connection> inner, std::vector<std::string>& statements)
        : inner_(std::move(inner)), statements_(statements) {}
    bool isOpen() const override { return inner_->isOpen(); }
    void close() override { inner_->close(); }

protected:
    void runStatement(const std::string& statement) override { inner_->execute(statement); }
    void openSet(data::RecordSet& set, const std::string& statement, data::Cursor cursor,
                 const data::UpdateTarget& target) override {
        statements_.push_back(statement);
        inner_->open(set, statement, cursor, target);
    }
    void beginWork(std::string_view turn) override { inner_->begin(turn); }
    data::CommitOutcome commitWork() override { return inner_->commit(); }
    void rollbackWork() override { inner_->rollback(); }

private:
    std::unique_ptr<data::Connection> inner_;
    std::vector<std::string>& statements_;
};

/// The same statements on bare SQLite: every column of every row as text.
inline void readAll(sqlite3* database, const std::vector<std::string>& statements) {
    for (const std::string& text : statements) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(database, text.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
            throw std::runtime_error(sqlite3_errmsg(database));
        }
        std::size_t bytes = 0;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(statement); ++i) {
                if (sqlite3_column_text(statement, i))
                    bytes += static_cast<std::size_t>(sqlite3_column_bytes(statement, i));
            }
        }
        sqlite3_finalize(statement);
    }
}

}  // namespace zelvo::bench
