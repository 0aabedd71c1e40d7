// What is the embedded database's own affair: its files, foreign schemas, what a kill leaves.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "DataTests.h"
#include "basics/Fault.h"
#include "basics/Text.h"
#include "data/OrderOutcome.h"
#include "platform/sqlite/SqliteConnection.h"

namespace zelvo::sqlite {

using basics::Fault;
using data::clsZELVORecordSet;
using data::RecordSet;
using testing::sampleOrder;
using testing::TestDatabase;

TEST(SqliteFile, OpensOnlyWhatIsADatabase) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / ("zelvo-files-" + std::to_string(::getpid()));
    fs::create_directories(folder / "directory");
    std::ofstream(folder / "letter.txt") << std::string(5000, 'x');
    std::ofstream(folder / "empty.db").flush();
    for (const char* name : {"missing.db", "letter.txt", "empty.db", "directory", "none/at/all.db"}) {
        EXPECT_THROW(openFile({"sqlite:" + (folder / name).string(), "", "", ""}), Fault) << name;
    }
    EXPECT_FALSE(fs::exists(folder / "missing.db")) << "a mistyped path makes no file";
    for (const char* address : {"sqlite:", "SQLITE:x", "sqlite::memory:", "10.0.0.1"}) {
        EXPECT_THROW(openFile({address, "", "", ""}), Fault) << address;
    }
    fs::remove_all(folder);

    const TestDatabase database(false);
    EXPECT_TRUE(openFile({"sqlite:" + database.path(), "", "", ""})->isOpen());
}

TEST(SqliteFile, AnotherWriterIsWaitedFor) {
    const TestDatabase database(false);
    const auto first = database.connect(), second = database.connect();
    first->begin();
    first->execute("INSERT INTO t_EatGuide (CBJ_PK) VALUES (1)");
    const std::int32_t key = clsZELVORecordSet().Insert_ChubangJun(*first, sampleOrder());
    std::thread holder([&first] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        EXPECT_EQ(first->commit(), data::CommitOutcome::Done);
    });
    EXPECT_EQ(data::orderStands(*second, 1, key, sampleOrder().CBJ_RegDate), true) << "it was under way";
    second->begin();
    second->execute("INSERT INTO t_EatGuide (CBJ_PK) VALUES (2)");
    EXPECT_EQ(second->commit(), data::CommitOutcome::Done);
    holder.join();
    EXPECT_EQ(database.value("SELECT count(*) FROM t_EatGuide"), "2");
}

/// The pharmacy's tables with all their rows, the columns declared some other way, and their values the texts
/// that a person would have written.
void redeclare(const TestDatabase& database, const std::string& type, bool texts) {
    std::string script = "BEGIN;";
    for (const auto& table : database.rows("SELECT name FROM sqlite_master WHERE type = 'table'")) {
        std::vector<std::string> declared, columns;
        for (const auto& column :
             database.rows("SELECT name, pk, type FROM pragma_table_info('" + table[0] + "')")) {
            const bool key =
                column[1] != "0" && column[2] == "INTEGER" && columns.empty() && table[0] != "t_DrugDanga";
            declared.push_back(column[0] + (key ? " INTEGER PRIMARY KEY" : type));
            // A number in a column of texts stands there the way a person would have written it.
            const std::string value = "CASE typeof(" + column[0] + ") WHEN 'real' THEN printf('%.6g', " +
                                      column[0] + ") ELSE " + column[0] + " END";
            columns.push_back(texts && !key ? "CAST(" + value + " AS TEXT)" : value);
        }
        script += "CREATE TABLE fresh (" + basics::join(declared, ", ") + "); INSERT INTO fresh SELECT " +
                  basics::join(columns, ", ") + " FROM " + table[0] + "; DROP TABLE " + table[0] +
                  "; ALTER TABLE fresh RENAME TO " + table[0] + ";";
    }
    database.run(script + "COMMIT");
}

/// What a session reads of each kind of value, in one text: flags, prices, rates, sums between dates.
std::string everything(data::Connection& connection, std::int32_t key) {
    clsZELVORecordSet operations;
    data::clsZELVOStockmoney money;
    RecordSet set;
    tables::XArrayDB types;
    types.reDim(-1, 7);
    operations.RecordSet_JobList(connection, set, types);
    std::string all;
    for (int row = 0; row <= types.upperRow(); ++row)
        all += types.text(row, 2) + types.text(row, 5) + types.text(row, 6) + "|";
    operations.RecordSet_YakGukDrugList(connection, set, "귀");
    for (; !set.atEnd(); set.moveNext()) all += set.text("DGL_Internal") + set.text("DGD_Danga") + "|";
    data::DoctorRecord doctor;
    doctor.DTR_PK = 1;
    operations.RecordSet_DoctorInfo(connection, 2, doctor);
    data::CBJmJobList job;
    operations.RecordSet_CBJmJobListInfo(connection, key, job);
    all += job.JL_Prompt + "|";
    std::int32_t deposit = 0, used = 0;
    money.ZELVO_StockMoney(connection, deposit, 1, "", "2000-01-01", "2999-12-31");
    money.ZELVO_CBJcostSum(connection, used, 1, "적립", "", "", "");
    for (const float number : {float(doctor.DTR_VIP), doctor.DTR_Discount, float(deposit), float(used)})
        all += std::to_string(number) + "|";
    return all;
}

TEST(SqliteFile, AnyDeclaredTypesGiveTheSameSession) {
    std::vector<std::string> sessions;
    const std::pair<const char*, bool> declared[] = {
        {"as the demo has them", false}, {"", false}, {"", true}, {" TEXT", false}};
    for (const auto& [type, texts] : declared) {
        const TestDatabase database;
        if (!sessions.empty()) redeclare(database, type, texts);
        const auto connection = database.connect();
        clsZELVORecordSet operations;
        const std::int32_t key = operations.Insert_ChubangJun(*connection, sampleOrder());
        EXPECT_EQ(operations.Insert_ChubangJun_Mileage(*connection, 1, key, 560, "2024-05-06"), 1);
        sessions.push_back(everything(*connection, key));
        EXPECT_EQ(sessions.back(), sessions.front()) << "columns declared " << type;
    }
    EXPECT_NE(sessions[0].find("-1|"), std::string::npos) << "a flag is on";
}

TEST(SqliteFile, AnOrderWithoutAKeyIsNone) {
    for (const char* key : {"CBJ_PK INT PRIMARY KEY", "CBJ_PK", "CBJ_PK INTEGER PRIMARY KEY"}) {
        const TestDatabase database;
        database.run(
            "INSERT INTO t_ChubangJun (CBJ_PK, DTR_PK) VALUES (70, 2);"
            "CREATE TABLE fresh AS SELECT * FROM t_ChubangJun; DROP TABLE t_ChubangJun");
        std::string columns = database.value("SELECT group_concat(name) FROM pragma_table_info('fresh')");
        database.run("CREATE TABLE t_ChubangJun (" + columns.replace(0, 6, key) +
                     "); INSERT INTO t_ChubangJun SELECT * FROM fresh");
        const auto connection = database.connect();
        EXPECT_EQ(clsZELVORecordSet().Insert_ChubangJun(*connection, sampleOrder()),
                  std::string(key).ends_with("INTEGER PRIMARY KEY") ? 71 : -1)
            << key;
    }
}

}  // namespace zelvo::sqlite
