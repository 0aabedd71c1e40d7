// What is the embedded database's own affair: its files, foreign schemas, what a kill leaves.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "DataTests.h"
#include "basics/Fault.h"
#include "basics/Text.h"
#include "data/OrderOutcome.h"
#include "platform/sqlite/SqliteConnection.h"
#include "support/TestFolder.h"

namespace zelvo::sqlite {

using basics::Fault;
using data::clsZELVORecordSet;
using data::RecordSet;
using testing::sampleOrder;
using testing::TestDatabase;

TEST(SqliteFile, OpensOnlyWhatIsADatabase) {
    namespace fs = std::filesystem;
    const testing::TestFolder machine;
    const fs::path& folder = machine.path;
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

/// The next order gets another key, in a file that keeps keys and in one from before that: there of those
/// under which rows were left.
TEST(SqliteFile, TheKeyOfADeletedOrderIsNotGivenAgain) {
    for (const char* left :
         {"DELETE FROM t_CBJDetail; DELETE FROM t_EatGuide; DELETE FROM t_CBJcostDetail", ""}) {
        const TestDatabase database;
        if (!*left) {
            const std::string made = database.value(
                "SELECT replace(sql, ' AUTOINCREMENT', '') FROM sqlite_master WHERE name = 't_ChubangJun'");
            database.run("ALTER TABLE t_ChubangJun RENAME TO kept; " + made +
                         "; INSERT INTO t_ChubangJun SELECT * FROM kept; DROP TABLE kept");
        }
        database.run(std::string("DELETE FROM t_ChubangJun WHERE CBJ_PK > 7;") + left);
        EXPECT_EQ(clsZELVORecordSet().Insert_ChubangJun(*database.connect(), sampleOrder()), 10) << left;
        EXPECT_EQ(database.value("SELECT max(CBJ_PK) FROM t_ChubangJun"), "10");
    }
}

/// What a session reads of each kind of value, in one text: flags, prices, rates, sums between dates.
std::string everything(data::Connection& connection) {
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
    std::int32_t deposit = 0, used = 0;
    money.ZELVO_StockMoney(connection, deposit, 1, "", "2000-01-01", "2999-12-31");
    money.ZELVO_CBJcostSum(connection, used, 1, "적립", "", "", "");
    for (const float number : {float(doctor.DTR_VIP), doctor.DTR_Discount, float(deposit), float(used)})
        all += std::to_string(number) + "|";
    return all;
}

TEST(SqliteFile, AnyDeclaredTypesGiveTheSameSession) {
    const TestDatabase database;
    const std::string declared = everything(*database.connect());
    for (const auto& table :
         database.rows("SELECT name FROM sqlite_master WHERE name LIKE 't\\_%' ESCAPE '\\'")) {
        database.run("CREATE TABLE fresh AS SELECT * FROM " + table[0] + "; DROP TABLE " + table[0] +
                     "; ALTER TABLE fresh RENAME TO " + table[0]);
    }
    EXPECT_EQ(everything(*database.connect()), declared);
    EXPECT_EQ(clsZELVORecordSet().Insert_ChubangJun(*database.connect(), sampleOrder()), -1)
        << "it has no key";
    EXPECT_NE(declared.find("-1|"), std::string::npos) << "a flag is on";
}

}  // namespace zelvo::sqlite
