// What is the embedded database's own affair: its files, foreign schemas, what a kill leaves.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <thread>

#include "DataTests.h"
#include "basics/Fault.h"
#include "basics/Text.h"
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
    std::thread holder([&first] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        EXPECT_EQ(first->commit(), data::CommitOutcome::Done);
    });
    second->begin();
    second->execute("INSERT INTO t_EatGuide (CBJ_PK) VALUES (2)");
    EXPECT_EQ(second->commit(), data::CommitOutcome::Done);
    holder.join();
    EXPECT_EQ(database.value("SELECT count(*) FROM t_EatGuide"), "2");
}

/// A child writes an order statement by statement and is killed with -9 behind `statements` of them; 4 is the
/// commit.
void writeAndDie(const TestDatabase& database, int statements) {
    const auto connection = database.connect();
    clsZELVORecordSet operations;
    connection->begin();
    std::int32_t key = 0;
    if (statements > 0) key = operations.Insert_ChubangJun(*connection, sampleOrder());
    if (statements > 1) operations.Insert_ChubangJun_Detail(*connection, key, {});
    if (statements > 2) operations.Insert_ChubangJun_EatGuide(*connection, key, "a", "b", "c");
    if (statements > 3 && connection->commit() != data::CommitOutcome::Done) ::_exit(1);
    ::kill(::getpid(), SIGKILL);
}

TEST(SqliteFile, KillLeavesTheWholeOrderOrNothing) {
    for (const char* journal : {"delete", "wal"}) {
        const TestDatabase database(false);
        database.run(std::string("PRAGMA journal_mode = ") + journal);
        for (int statements = 0; statements <= 4; ++statements) {
            SCOPED_TRACE(std::string(journal) + ", killed behind statement " + std::to_string(statements));
            const pid_t child = ::fork();
            ASSERT_GE(child, 0);
            if (child == 0) {
                try {
                    writeAndDie(database, statements);
                } catch (const std::exception&) {
                }
                ::_exit(1);
            }
            int status = 0;
            ::waitpid(child, &status, 0);
            ASSERT_TRUE(WIFSIGNALED(status));
            const std::string rows = statements == 4 ? "1,1,1" : "0,0,0";
            EXPECT_EQ(
                database.value(
                    "SELECT (SELECT count(*) FROM t_ChubangJun) || ',' || (SELECT count(*) FROM t_CBJDetail)"
                    " || ',' || (SELECT count(*) FROM t_EatGuide)"),
                rows);
            EXPECT_EQ(database.value("PRAGMA integrity_check"), "ok");
        }
    }
}

/// The demo's database with all its rows, its columns declared some other way.
void redeclare(const TestDatabase& database, const std::string& type) {
    std::string script = "BEGIN;";
    for (const auto& table : database.rows(
             "SELECT name FROM sqlite_master WHERE type = 'table' AND name LIKE 't\\_%' ESCAPE '\\'")) {
        std::vector<std::string> declared, columns;
        for (const auto& column :
             database.rows("SELECT name, pk, type FROM pragma_table_info('" + table[0] + "')")) {
            const bool key =
                column[1] != "0" && column[2] == "INTEGER" && columns.empty() && table[0] != "t_DrugDanga";
            declared.push_back(column[0] + (key ? " INTEGER PRIMARY KEY" : type));
            // A number in a column of texts stands there the way a person would have written it.
            columns.push_back("CASE typeof(" + column[0] + ") WHEN 'real' THEN printf('%.6g', " + column[0] +
                              ") ELSE " + column[0] + " END");
        }
        script += "CREATE TABLE fresh (" + basics::join(declared, ", ") + "); INSERT INTO fresh SELECT " +
                  basics::join(columns, ", ") + " FROM " + table[0] + "; DROP TABLE " + table[0] +
                  "; ALTER TABLE fresh RENAME TO " + table[0] + ";";
    }
    database.run(script + "COMMIT");
}

/// All that the session reads, in one text.
std::string everything(data::Connection& connection) {
    clsZELVORecordSet operations;
    data::clsZELVOStockmoney money;
    RecordSet set;
    std::string all;
    const auto addArray = [&](std::int16_t status, const tables::XArrayDB& array) {
        all += std::to_string(status) + "\n";
        for (int row = 0; row <= array.upperRow(); ++row) {
            for (int column = 0; column <= array.upperColumn(); ++column)
                all += array.text(row, column) + "|";
            all += "\n";
        }
    };
    const auto fresh = [](int lastColumn) {
        tables::XArrayDB array;
        array.reDim(-1, lastColumn);
        return array;
    };
    tables::XArrayDB types = fresh(7), methods = fresh(5), addOns = fresh(7), orders = fresh(6);
    addArray(operations.RecordSet_JobList(connection, set, types, 7), types);
    addArray(operations.RecordSet_TangJun(connection, set, methods, 5), methods);
    addArray(operations.RecordSet_TangJunADD(connection, set, addOns, 7), addOns);
    addArray(operations.RecordSet_CBJmInfo(connection, set, orders, 99, 1, "", "", ""), orders);
    all += std::to_string(operations.RecordSet_YakGukDrugList(connection, set, "귀"));
    for (; !set.atEnd(); set.moveNext())
        all += set.text("DGL_PK") + set.text("DGL_Internal") + set.text("DGD_Danga") + "\n";
    std::string name, price;
    all += std::to_string(operations.RecordSet_HapBang(connection, "1", name, price)) + name + price;
    data::DoctorRecord doctor;
    doctor.DTR_PK = 1;
    all += std::to_string(operations.RecordSet_DoctorInfo(connection, 2, doctor)) + doctor.DTR_Name +
           doctor.DTR_ValidPay;
    all += std::to_string(doctor.DTR_VIP) + std::to_string(doctor.DTR_IsUsePouch) +
           std::to_string(doctor.DTR_Discount);
    std::int32_t sum = 0;
    for (const char* kind : {"S", "M"}) {
        all += std::to_string(money.ZELVO_StockMoney(connection, sum, 1, kind, "2000-01-01", "2999-12-31"));
        all += std::to_string(sum) + "\n";
    }
    all +=
        std::to_string(money.ZELVO_CBJcostSum(connection, sum, 1, "적립", "", "", "")) + std::to_string(sum);
    return all;
}

TEST(SqliteFile, AnyDeclaredTypesGiveTheSameSession) {
    // Numbers in a column of texts sort as texts, on every server: the places of the rows get two digits.
    const std::string places = "UPDATE t_TangJunAddList SET TJAL_Order = TJAL_Order + 10";
    TestDatabase database;
    database.run(places);
    const auto write = [&](data::Connection& connection) {
        clsZELVORecordSet operations;
        const std::int32_t key = operations.Insert_ChubangJun(connection, sampleOrder());
        EXPECT_GT(key, 0);
        EXPECT_EQ(operations.Insert_ChubangJun_Mileage(connection, 1, key, 560, "2024-05-06"), 1);
    };
    write(*database.connect());
    const std::string expected = everything(*database.connect());
    EXPECT_NE(expected.find("-1|"), std::string::npos) << "a flag is on";
    for (const char* type : {"", " TEXT"}) {
        TestDatabase foreign;
        foreign.run(places);
        redeclare(foreign, type);
        const auto connection = foreign.connect();
        write(*connection);
        EXPECT_EQ(everything(*connection), expected) << "columns declared as [" << type << "]";
    }
}

}  // namespace zelvo::sqlite
