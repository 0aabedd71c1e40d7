// The statement layer over the server's real driver against a bare loop on the same driver; and what a slow
// line costs. The desk at the other end is no SQL Server: its own time stands on both sides of the
// comparison.
#include <sqlite3.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "Measure.h"
#include "data/clsZELVORecordSet.h"
#include "platform/odbc/ConnectionString.h"
#include "platform/odbc/FreeTdsConfiguration.h"
#include "platform/odbc/OdbcConnection.h"
#include "support/tds/TdsServer.h"

namespace {

using namespace zelvo;
using bench::Comparison;
namespace fs = std::filesystem;

constexpr int orders = 100'000, herbs = 30, runs = 5, lineMilliseconds = 20;

void makeDatabase(const std::string& path) {
    std::ifstream file(fs::path(ZELVO_SOURCE_DIR) / "demo" / "pharmacy" / "schema.sql");
    std::ostringstream script;
    script
        << file.rdbuf()
        << "BEGIN; INSERT INTO t_Doctor (DTR_PK, DTR_Name, DTR_ID, DTR_PWD) VALUES (1001, '김보원', 'bench', 'pw');"
           "INSERT INTO t_JobList (JL_PK, JL_Prompt, JL_DrugVisible, JL_TangJunVisible, JL_Order) VALUES"
           " (1, '첩약', 1, 0, 1), (2, '첩약 + 탕전', 1, 1, 2);"
           "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
        << orders
        << ") INSERT INTO t_ChubangJun (DTR_PK, Patient_Name, Patient_Jumin, CBJ_JobList_PK, CBJ_RegDate) "
           "SELECT 1001, '환자' || i, printf('%06d-1234567', i), 1 + i % 2,"
           " datetime('2024-01-01', '+' || i || ' minutes') FROM n; COMMIT;";
    sqlite3* database = nullptr;
    const bool made = sqlite3_open(path.c_str(), &database) == SQLITE_OK &&
                      sqlite3_exec(database, script.str().c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(database);
    if (!made) throw std::runtime_error("can't make " + path);
}

const std::string search =
    "SELECT a.CBJ_PK, a.CBJ_RegDate, a.Patient_Name, a.Patient_Jumin, b.JL_Prompt, c.DTR_Name "
    "FROM t_ChubangJun a, t_JobList b, t_Doctor c "
    "WHERE a.CBJ_JobList_PK = b.JL_PK AND a.DTR_PK = c.DTR_PK AND a.DTR_PK = 1001 AND a.CBJ_IsCanceled = 0 "
    "Order by a.CBJ_RegDate DESC ";

/// Fetches in blocks into bound columns, and looks at nothing but the lengths.
SQLLEN bareLoop(odbc::Line& line) {
    constexpr std::size_t block = 1000, units = 128;
    static std::array<std::array<SQLWCHAR, units * block>, 6> cells;
    static std::array<std::array<SQLLEN, block>, 6> lengths;
    SQLLEN bytes = 0;
    line.query(search, [&](const odbc::Answer& answer) {
        const odbc::StatementHandle& statement = answer.statement();
        SQLULEN fetched = 0;
        SQLSetStmtAttrW(statement.get(), SQL_ATTR_ROW_ARRAY_SIZE, odbc::attribute(block), 0);
        SQLSetStmtAttrW(statement.get(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
        const auto bind = [&](SQLUSMALLINT column, SQLSMALLINT type, std::size_t size) {
            statement.require(SQLBindCol(statement.get(), column, type, cells.at(column - 1U).data(),
                                         static_cast<SQLLEN>(size), lengths.at(column - 1U).data()));
        };
        bind(1, SQL_C_SBIGINT, sizeof(SQLBIGINT));
        bind(2, SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT));
        for (const SQLUSMALLINT text : {3, 4, 5, 6}) bind(text, SQL_C_WCHAR, units * sizeof(SQLWCHAR));
        while (SQL_SUCCEEDED(SQLFetch(statement.get()))) {
            for (const auto& column : lengths) {
                for (SQLULEN row = 0; row < fetched; ++row) bytes += column.at(row);
            }
        }
    });
    return bytes;
}

bool compareWalks(odbc::Line& line, data::Connection& connection) {
    Comparison walk("odbc_walk_100000_rows", 1.5);
    SQLLEN bytes = 0;
    for (int run = 0; run < runs; ++run) {
        data::RecordSet set;
        tables::XArrayDB array;
        array.reDim(-1, 6);
        walk.floor([&] { bytes += bareLoop(line); });
        walk.measured([&] {
            if (data::clsZELVORecordSet().RecordSet_CBJmInfo(
                    connection, set, array, data::OrdersBy::Everything, 1001, "", "", "") != 1)
                throw std::runtime_error("the search failed");
        });
        if (array.rowCount() != std::size_t{orders}) throw std::runtime_error("rows are missing");
    }
    if (bytes == 0) throw std::runtime_error("nothing was read");
    return walk.report();
}

/// A whole send: its trips over a slow line, and little else costs time.
bool compareSends(testing::TdsServer& desk, data::Connection& connection) {
    desk.milliseconds = lineMilliseconds;
    Comparison send("odbc_send_over_slow_line", 1.1);
    for (int run = 0; run < runs; ++run) {
        desk.takeBatches();
        send.measured([&] {
            data::clsZELVORecordSet operations;
            data::Transaction transaction(
                connection, "", [&](data::Connection& line) { operations.RecordSet_SvrGetdate(line); });
            data::ChubangJun order;
            order.DTR_PK = 1001;
            order.CBJ_RegDate = operations.RecordSet_SvrGetdate(connection);
            const std::int32_t key = operations.Insert_ChubangJun(connection, order);
            data::Together together(connection);
            operations.Insert_ChubangJun_Mileage(connection, 1001, key, 560, order.CBJ_RegDate);
            operations.Insert_ChubangJun_CostDetail(connection, key, {});
            for (std::int16_t i = 0; i < herbs; ++i) {
                operations.Insert_ChubangJun_Detail(connection, key,
                                                    {i, "당귀", 4.5F, 12.5F, 56, "술에 씻어", i});
            }
            operations.Insert_ChubangJun_EatGuide(connection, key, "식후 30분", "보원한의원", "02-123-4567");
            if (together.send() != together.count() || transaction.commit() != data::CommitOutcome::Done)
                throw std::runtime_error("the send failed");
        });
        // begin with the clock, order with its key, everything behind it, commit
        constexpr std::size_t trips = 4;
        if (desk.takeBatches().size() != trips) throw std::runtime_error("the send took other trips");
        send.floorIs(static_cast<double>(trips) * lineMilliseconds);
    }
    return send.report();
}

}  // namespace

int main() {
    const fs::path memory = "/dev/shm";
    const fs::path folder = access(memory.c_str(), W_OK) == 0 ? memory : fs::temp_directory_path();
    const std::string path = (folder / ("zelvo-odbc-bench-" + std::to_string(getpid()) + ".db")).string();
    bool within = false;
    try {
        makeDatabase(path);
        testing::TdsServer desk(path);
        odbc::Settings settings;
        settings.encrypted = settings.checked = false;
        const data::ServerLogin login{desk.address(), "zelvo", "zelvo", "pw"};
        const odbc::FreeTdsConfiguration configuration(desk.address(), settings);
        odbc::Line line(odbc::connectionString(login, settings), {});
        const auto connection = odbc::openServerBy(settings, login);
        within = compareWalks(line, *connection);
        within = compareSends(desk, *connection) && within;
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
    }
    fs::remove(path);
    return within ? 0 : 1;
}
