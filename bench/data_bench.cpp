// The statement layer against bare SQLite: the walk of an order search, and the writing of an order.
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "Measure.h"
#include "data/clsZELVORecordSet.h"
#include "platform/sqlite/Dialect.h"
#include "platform/sqlite/Functions.h"
#include "platform/sqlite/SqliteConnection.h"

namespace {

using namespace zelvo;
using bench::Comparison;
namespace fs = std::filesystem;

constexpr int orders = 100'000, nurseOrders = 50'000, herbs = 30, runs = 9, kindRuns = 5;
constexpr double mostMegabytes = 60;

class BareDatabase {
public:
    explicit BareDatabase(const std::string& path) {
        if (sqlite3_open(path.c_str(), &database_) != SQLITE_OK)
            throw std::runtime_error("can't open " + path);
        run("PRAGMA synchronous = EXTRA");
        sqlite::registerServerFunctions(database_);
    }
    ~BareDatabase() { sqlite3_close(database_); }
    BareDatabase(const BareDatabase&) = delete;
    BareDatabase& operator=(const BareDatabase&) = delete;

    void run(const std::string& statements) {
        if (sqlite3_exec(database_, statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            throw std::runtime_error(sqlite3_errmsg(database_));
        }
    }

    /// Steps through a result and reads every column as text; gives the number of bytes.
    std::size_t readAll(const std::string& query) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database_, query.c_str(), -1, &statement, nullptr);
        std::size_t bytes = 0;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(statement); ++i) {
                if (sqlite3_column_text(statement, i))
                    bytes += static_cast<std::size_t>(sqlite3_column_bytes(statement, i));
            }
        }
        sqlite3_finalize(statement);
        return bytes;
    }

private:
    sqlite3* database_ = nullptr;
};

/// A connection that keeps the texts of what it is asked for.
class Recorder : public data::Connection {
public:
    explicit Recorder(data::Connection& inner) : inner_(inner) {}

    std::vector<std::string> statements;

    bool isOpen() const override { return inner_.isOpen(); }
    void close() override { inner_.close(); }

protected:
    void runStatement(const std::string& statement) override {
        statements.push_back(statement);
        inner_.execute(statement);
    }
    void openSet(data::RecordSet& set, const std::string& statement, data::Cursor cursor,
                 const data::UpdateTarget& target) override {
        statements.push_back(statement);
        inner_.open(set, statement, cursor, target);
    }
    void beginWork(std::string_view turn) override { inner_.begin(turn); }
    data::CommitOutcome commitWork() override { return inner_.commit(); }
    void rollbackWork() override { inner_.rollback(); }

private:
    data::Connection& inner_;
};

std::string readFile(const fs::path& path) {
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The demo's pharmacy, and doctor 1001 with many orders.
void makeDatabase(const std::string& path) {
    BareDatabase database(path);
    const fs::path folder = fs::path(ZELVO_SOURCE_DIR) / "demo" / "pharmacy";
    std::vector<fs::path> scripts;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == ".sql" && entry.path().stem() != "schema")
            scripts.push_back(entry.path());
    }
    std::sort(scripts.begin(), scripts.end());
    scripts.insert(scripts.begin(), folder / "schema.sql");
    database.run("BEGIN");
    for (const fs::path& script : scripts) database.run(readFile(script));
    database.run(
        "INSERT INTO t_Doctor (DTR_PK, DTR_Name, DTR_ID, DTR_PWD) VALUES (1001, '김보원', 'bench', 'pw');"
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
        std::to_string(orders) +
        ") "
        "INSERT INTO t_ChubangJun (DTR_PK, Patient_Name, Patient_Jumin, CBJ_JobList_PK, CBJ_RegDate, CBJ_Msg) "
        "SELECT 1001, '환자' || i, printf('%06d-1234567', i), 1 + i % 2, datetime('2024-01-01', '+' || i || ' minutes'),"
        " 'message of the order' FROM n;");
    for (const auto& [doctor, count] :
         {std::pair{1002, nurseOrders}, {1003, nurseOrders}, {1004, nurseOrders}, {1005, 3 * nurseOrders}}) {
        const std::string key = std::to_string(doctor);
        database.run(
            "INSERT INTO t_Doctor (DTR_PK, DTR_Name, DTR_ID, DTR_PWD) VALUES (" + key + ", '김보원', '" +
            key +
            "', 'pw');"
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_string(count) +
            ") INSERT INTO t_ChubangJun (DTR_PK, Patient_Name, Patient_Jumin, CBJ_JobList_PK, CBJ_RegDate)"
            " SELECT " +
            key +
            ", '환자' || i, printf('%06d-1234567', i), 1 + i % 2,"
            " datetime('2024-01-01', '+' || i || ' minutes') FROM n");
    }
    database.run("COMMIT");
}

const std::string search =
    "SELECT a.CBJ_PK, a.CBJ_RegDate, a.Patient_Name, a.Patient_Jumin, b.JL_Prompt, c.DTR_Name "
    "FROM t_ChubangJun a, t_JobList b, t_Doctor c "
    "WHERE a.CBJ_JobList_PK = b.JL_PK AND a.DTR_PK = c.DTR_PK AND a.DTR_PK = 1001 AND a.CBJ_IsCanceled = 0 "
    "Order by a.CBJ_RegDate DESC ";

/// A kind of search, and what makes all orders of the doctor found by it.
struct Kind {
    std::int16_t number;
    const char* name;
    const char* found = nullptr;  ///< columns as they are set, nullptr: as they are
    const char* word = "";
};

constexpr Kind kinds[] = {{1, "walk_by_date"},
                          {2, "walk_by_patient", nullptr, "환자"},
                          {3, "walk_by_doctor", nullptr, "김보원"},
                          {4, "walk_waiting", "CBJ_State = 0"},
                          {5, "walk_made", "CBJ_State = 1"},
                          {6, "walk_to_be_sent", "CBJ_State = 2"},
                          {7, "walk_done", "CBJ_State = 3"},
                          {8, "walk_unpaid", "CBJ_IsPaid = 0"},
                          {9, "walk_paid", "CBJ_IsPaid = 1"},
                          {10, "walk_from_deposit", "CBJ_PayMethod = 1"},
                          {11, "walk_paid_later", "CBJ_PayMethod = 2"},
                          {12, "walk_paid_settled", "CBJ_PayMethod = 3"},
                          {13, "walk_undecided", "CBJ_BesongMethod = 1"},
                          {14, "walk_by_parcel", "CBJ_BesongMethod = 2"},
                          {15, "walk_by_courier", "CBJ_BesongMethod = 3"},
                          {16, "walk_to_clinic", "CBJ_BesongMethod = 4"},
                          {90, "walk_canceled", "CBJ_IsCanceled = 1"}};

void walk(data::Connection& connection, data::RecordSet& set, tables::XArrayDB& array, int doctor = 1001) {
    if (data::clsZELVORecordSet().RecordSet_CBJmInfo(connection, set, array, data::OrdersBy::Everything,
                                                     doctor, "", "", "") != 1) {
        throw std::runtime_error("the search failed");
    }
}

/// Peak of a walk's memory in MB, measured in a process of its own.
double walkMegabytes(const std::string& path) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        const auto peak = [] {
            rusage usage{};
            getrusage(RUSAGE_SELF, &usage);
            return static_cast<double>(usage.ru_maxrss) / 1024;
        };
        sqlite::SqliteConnection connection(path);
        data::RecordSet set;
        tables::XArrayDB array;
        array.reDim(-1, 6);
        const double before = peak();
        walk(connection, set, array);
        const double megabytes = peak() - before;
        const bool written = write(ends[1], &megabytes, sizeof megabytes) == sizeof megabytes;
        _exit(written ? 0 : 1);
    }
    double megabytes = 1e9;
    if (read(ends[0], &megabytes, sizeof megabytes) != sizeof megabytes) megabytes = 1e9;
    waitpid(child, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
    return megabytes;
}

bool compareWalks(const std::string& path) {
    const double megabytes = walkMegabytes(path);
    std::printf("%-28s %6.1f MB   (at most %.0f)\n", "walk_memory", megabytes, mostMegabytes);

    sqlite::SqliteConnection connection(path);
    BareDatabase bare(path);
    Comparison whole("walk_100000_rows", 2.5), again("walk_in_front_of_100000", 1.1);
    std::size_t bytes = 0;
    for (int run = 0; run < runs; ++run) {
        data::RecordSet first, second;
        tables::XArrayDB array;
        array.reDim(-1, 6);
        whole.floor([&] { bytes += bare.readAll(search); });
        const auto intoEmpty = [&] { walk(connection, first, array); };
        double milliseconds = 0;
        whole.measured([&] { milliseconds = bench::milliseconds(intoEmpty); });
        first.close();
        again.floorIs(milliseconds);
        again.measured([&] { walk(connection, second, array); });
        if (array.rowCount() != std::size_t{2} * orders) throw std::runtime_error("rows are missing");
    }
    if (bytes == 0) throw std::runtime_error("nothing was read");
    const bool fast = whole.report();
    return again.report() && fast && megabytes <= mostMegabytes;
}

/// Each kind of search that finds all of the doctor's orders, on its own statement read by bare SQLite.
bool compareKinds(const std::string& path) {
    sqlite::SqliteConnection connection(path);
    BareDatabase bare(path);
    bool within = true;
    for (const Kind& kind : kinds) {
        const std::string rows = " WHERE DTR_PK = 1001";
        if (kind.found) bare.run("UPDATE t_ChubangJun SET " + std::string(kind.found) + rows);
        Recorder recorder(connection);
        const auto search = [&](data::Connection& asked) {
            data::RecordSet set;
            tables::XArrayDB array;
            array.reDim(-1, 6);
            data::clsZELVORecordSet().RecordSet_CBJmInfo(asked, set, array, data::OrdersBy{kind.number}, 1001,
                                                         kind.word, "2024-01-01", "2025-01-01");
            if (array.rowCount() != orders)
                throw std::runtime_error(std::string(kind.name) + ": rows are missing");
        };
        search(recorder);
        const std::string statement = sqlite::toSqlite(recorder.statements.back());
        Comparison walk(kind.name, 2.5);
        std::size_t bytes = 0;
        for (int run = 0; run < kindRuns; ++run) {
            walk.floor([&] { bytes += bare.readAll(statement); });
            walk.measured([&] { search(connection); });
        }
        if (bytes == 0) throw std::runtime_error("nothing was read");
        within = walk.report() && within;
    }
    bare.run("UPDATE t_ChubangJun SET CBJ_IsCanceled = 0 WHERE DTR_PK = 1001");
    return within;
}

/// A nurse's three doctors, one before the other, against as many orders of one.
bool compareDoctors(const std::string& path) {
    sqlite::SqliteConnection connection(path);
    Comparison nurse("walk_of_3_doctors", 1.1);
    const auto search = [&](std::initializer_list<int> doctors) {
        return [&connection, doctors = std::vector<int>(doctors)] {
            tables::XArrayDB array;
            array.reDim(-1, 6);
            for (const int doctor : doctors) {
                data::RecordSet set;
                walk(connection, set, array, doctor);
            }
            if (array.rowCount() != std::size_t{3} * nurseOrders)
                throw std::runtime_error("rows are missing");
        };
    };
    for (int run = 0; run < runs; ++run) {
        nurse.floor(search({1005}));
        nurse.measured(search({1002, 1003, 1004}));
    }
    return nurse.report();
}

void sendOrder(data::Connection& connection) {
    data::clsZELVORecordSet operations;
    data::ChubangJun order;
    order.DTR_PK = 1001;
    order.Patient_Name = "김환자";
    order.CBJ_Msg = "잘 부탁드립니다.";
    order.CBJ_RegDate = "2024-05-06 09:08:07";
    const std::int32_t key = operations.Insert_ChubangJun(connection, order);
    operations.Insert_ChubangJun_Mileage(connection, 1001, key, 560, order.CBJ_RegDate);
    data::CostNotes notes;
    notes.CCD_DrugCost = "20첩 x 2,600원";
    operations.Insert_ChubangJun_CostDetail(connection, key, notes);
    for (std::int16_t i = 0; i < herbs; ++i) {
        operations.Insert_ChubangJun_Detail(connection, key, {i, "당귀", 4.5F, 12.5F, 56, "술에 씻어", i});
    }
    operations.Insert_ChubangJun_EatGuide(connection, key, "식후 30분에 드십시오.", "보원한의원",
                                          "02-123-4567");
}

bool compareSends(const std::string& path) {
    sqlite::SqliteConnection connection(path);
    BareDatabase bare(path);
    Comparison send("send_30_herbs", 1.3);
    for (int run = 0; run < 3 * runs; ++run) {
        // The statements of the next order, keys and all.
        Recorder recorder(connection);
        {
            const data::Transaction dropped(recorder);
            sendOrder(recorder);
        }
        send.floor([&] {
            bare.run("BEGIN IMMEDIATE");
            for (const std::string& statement : recorder.statements) bare.run(statement);
            bare.run("COMMIT");
        });
        send.measured([&] {
            data::Transaction transaction(connection);
            sendOrder(connection);
            if (transaction.commit() != data::CommitOutcome::Done)
                throw std::runtime_error("the commit failed");
        });
    }
    return send.report();
}

}  // namespace

int main() {
    // In memory where there is such a folder: a disk's moods would hide what is compared.
    const fs::path memory = "/dev/shm";
    const fs::path folder = access(memory.c_str(), W_OK) == 0 ? memory : fs::temp_directory_path();
    const std::string path = (folder / ("zelvo-bench-" + std::to_string(getpid()) + ".db")).string();
    bool within = false;
    try {
        makeDatabase(path);
        within = compareWalks(path);
        within = compareKinds(path) && within;
        within = compareDoctors(path) && within;
        within = compareSends(path) && within;
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
    }
    fs::remove(path);
    return within ? 0 : 1;
}
