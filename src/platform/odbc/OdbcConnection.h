#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "data/Connection.h"
#include "platform/odbc/Dialect.h"
#include "platform/odbc/Line.h"
#include "platform/odbc/Settings.h"

namespace zelvo::odbc {

/// The pharmacy's database on its server. A line that breaks, or that leaves a statement without an answer
/// for too long, is closed: what comes then fails at once.
class OdbcConnection : public data::Connection {
public:
    using Dialect = std::string (*)(std::string_view statement);

    /// Logs in. Throws Fault. The connection string is not kept: it holds the password.
    OdbcConnection(const std::string& connectionString, const Limits& limits, Dialect dialect = toSqlServer);
    ~OdbcConnection() override;

    /// Throws SetupFault when FreeTDS says that it speaks a protocol of before there was encryption.
    void requireEncryption() const;
    /// Puts a word on the line's safety behind the driver's version.
    void describeLine(std::string_view words) { driver_.append(", ").append(words); }

    bool hasCatalogue() const override { return true; }
    bool isOpen() const override { return line_ && line_->isOpen(); }
    void close() override;
    std::string driver() const override { return driver_; }

protected:
    void runStatement(const std::string& statement) override;
    void openSet(data::RecordSet& set, const std::string& statement, data::Cursor cursor,
                 const data::UpdateTarget& target) override;
    /// The key comes with the insert: another clinic's row may be the highest by the time of a question.
    std::optional<std::int32_t> runInsert(const std::string& statement, const data::NewRow& row) override;
    void beginWork(std::string_view turn) override;
    /// Unknown when the line broke before the answer, or none came in time.
    data::CommitOutcome commitWork() override;
    /// One that fails closes the connection: the server then takes the transaction back by itself.
    void rollbackWork() override;
    bool sharesTrips() const override { return dialect_ == toSqlServer; }
    data::TripEnd runSteps(std::span<const data::Step> steps) override;
    data::TripEnd beginTogether(std::string_view turn, std::span<const data::Step> steps) override;

private:
    Line& line() const;
    void takeBack() noexcept;

    // Shared with the row writers of its result sets, which only watch it: they may outlive the connection.
    std::shared_ptr<Line> line_;
    Dialect dialect_;
    std::string driver_;
};

/// Opens the SQL Server at the login's address, by the driver that the environment names. Throws Fault; a
/// SetupFault says what is wrong with the certificate or the settings.
std::unique_ptr<data::Connection> openServer(const data::ServerLogin& login);
/// The same, by these settings.
std::unique_ptr<data::Connection> openServerBy(const Settings& settings, const data::ServerLogin& login);

}  // namespace zelvo::odbc
