#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "data/Connection.h"

struct sqlite3;

namespace zelvo::sqlite {

/// The pharmacy's database in a file of this machine. Any SQLite file with the system's tables and columns
/// will do, whatever types they were declared with.
class SqliteConnection : public data::Connection {
public:
    /// Opens the file for reading and writing. Throws Fault when there is none, it can't be written, or it is
    /// no database.
    explicit SqliteConnection(const std::string& path);
    ~SqliteConnection() override;

    bool isOpen() const override { return database_ != nullptr; }
    void close() override;
    std::string driver() const override;

protected:
    void runStatement(const std::string& statement) override;
    void openSet(data::RecordSet& set, const std::string& statement, data::Cursor cursor,
                 const data::UpdateTarget& target) override;
    std::optional<std::int32_t> runInsert(const std::string& statement, const data::NewRow& row) override;
    /// The file has one writer at a time, so all of them take turns.
    void beginWork(std::string_view turn) override;
    /// Durable when it says Done: the file has been synchronised. Where it says Unknown, the file has been
    /// opened anew: the former connection may hold locks that it could not give back.
    data::CommitOutcome commitWork() override;
    void rollbackWork() override;

private:
    sqlite3* database() const;
    void openAnew() noexcept;
    std::int32_t freeKey(const data::NewRow& row, std::int32_t given);

    std::string path_;
    // Shared with the row writers of its result sets, which only watch it: they may outlive the connection.
    std::shared_ptr<sqlite3> database_;
    /// Some column has no type, and then a number and its text are two things to SQLite.
    bool looseColumns_ = false;
};

/// Whether an address means a file.
bool isFileAddress(std::string_view address);

/// Opens what a file address asks for; the user and the password of a login mean nothing to a file. Throws
/// Fault.
std::unique_ptr<data::Connection> openFile(const data::ServerLogin& login);

}  // namespace zelvo::sqlite
