#include <gtest/gtest.h>

#include "DataTests.h"

namespace zelvo::data {

using testing::FaultyConnection;
using testing::TestDatabase;

class Operations : public ::testing::Test {
protected:
    TestDatabase database_;
    FaultyConnection connection_{database_.connect()};
    clsZELVORecordSet operations_;
    clsZELVOStockmoney money_;
    tables::XArrayDB array_;
    RecordSet set_;

    std::string rows() const {
        std::string all;
        for (int row = 0; row <= array_.upperRow(); ++row) {
            for (int column = 0; column <= array_.upperColumn(); ++column)
                all += array_.text(row, column) + "|";
            all += ";";
        }
        return all;
    }
};

/// Each statement of each read fails in turn: it says so, leaves the caller's set alone, and works again
/// afterwards. What failing writes come to, the tests of the send hold.
TEST_F(Operations, EveryFailedStatementEndsInTheFailureValue) {
    FaultyConnection& line = connection_;
    clsZELVORecordSet& from = operations_;
    DoctorRecord doctor;
    std::int32_t sum = 0;
    std::string herb, price, noted;
    line.onFailure = [&noted, checked = line.onFailure](const Failure& failure) {
        checked(failure);
        noted = failure.operation;
    };
    const std::pair<const char*, std::function<std::int32_t()>> reads[] = {
        {"add-ons", [&] { return from.RecordSet_TangJunADD(line, set_, array_); }},
        {"methods", [&] { return from.RecordSet_TangJun(line, set_, array_); }},
        {"order types", [&] { return from.RecordSet_JobList(line, set_, array_); }},
        {"notices", [&] { return from.RecordSet_GongJi(line, set_); }},
        {"herbs", [&] { return from.RecordSet_YakGukDrugList(line, set_, ""); }},
        {"one herb", [&] { return from.RecordSet_HapBang(line, "1", herb, price); }},
        {"orders",
         [&] { return from.RecordSet_CBJmInfo(line, set_, array_, OrdersBy::Everything, -1, "", "", ""); }},
        {"own prescriptions", [&] { return from.RecordSet_MyChubang(line, set_, 1); }},
        {"found ones", [&] { return from.RecordSet_FindMyChubang(line, set_, "", 1, searchName); }},
        {"the pharmacy's", [&] { return from.RecordSet_FindYakGukChubang(line, set_, "", searchMemo); }},
        {"herb lines", [&] { return from.RecordSet_MyDrugList(line, set_, 1); }},
        {"doctor", [&] { return from.RecordSet_DoctorInfo(line, 0, doctor); }},
        {"deposits", [&] { return from.RecordSet_StockMoneyIN(line, set_, 1, "", ""); }},
        {"used", [&] { return from.RecordSet_StockMoneyUsed(line, set_, 1, "", ""); }},
        {"mileage", [&] { return from.RecordSet_StockMileage(line, set_, 1, "", ""); }},
        {"balance", [&] { return money_.ZELVO_StockMoney(line, sum, 1, "", "", "") ? 1 : -1; }},
        {"cost", [&] { return money_.ZELVO_CBJcostSum(line, sum, 1, "", "", "", "") ? 1 : -1; }},
    };
    for (const auto& [name, read] : reads) {
        SCOPED_TRACE(name);
        array_.reDim(-1, 7);
        line.statements.clear();
        ASSERT_EQ(read(), 1);
        const auto statements = static_cast<int>(line.statements.size());
        for (int failing = 1; failing <= statements; ++failing) {
            const std::uint64_t generation = set_.generation();
            line.failAt(failing);
            EXPECT_EQ(read(), -1) << "statement " << failing;
            EXPECT_TRUE(noted.starts_with("RecordSet_") || noted.starts_with("ZELVO_")) << noted;
            EXPECT_EQ(set_.generation(), generation);
        }
        EXPECT_EQ(read(), 1);
    }
}

TEST_F(Operations, WalkFillsTheArrayInFrontOfItsRows) {
    database_.run(
        "DELETE FROM t_JobList; INSERT INTO t_JobList VALUES (3, 'three', 'm3', 1, 0, 2, 1), (4, 'four', NULL, 0, 1, 1, 1),"
        " (5, 'gone', '', 0, 1, 1, 0)");
    array_.reDim(0, 7);
    array_.set(0, 2, "before");
    int passes = 0;
    connection_.yield = [&] {
        if (++passes == 3) throw std::runtime_error("a listener fails");
    };
    ASSERT_EQ(operations_.RecordSet_JobList(connection_, set_, array_), 1);
    EXPECT_EQ(rows(), "0|4|four|||0|-1|1|;0|3|three||m3|-1|0|2|;||before||||||;");
    EXPECT_EQ(passes, 2);

    array_.reDim(-1, 7);
    EXPECT_EQ(operations_.RecordSet_JobList(connection_, set_, array_), 0);
    EXPECT_EQ(array_.rowCount(), 2U) << "the walk goes on after a step that failed";
    database_.run("ALTER TABLE t_TangJunAddList DROP COLUMN TJAL_Type");
    array_.reDim(-1, 7);
    EXPECT_EQ(operations_.RecordSet_TangJunADD(connection_, set_, array_), -1);
    EXPECT_TRUE(array_.rowCount() > 1 && !array_.text(1, 2).empty());
    database_.run("DELETE FROM t_JobList");
    EXPECT_EQ(operations_.RecordSet_JobList(connection_, set_, array_), 1) << "no rows are no failure";
    database_.run(
        "ALTER TABLE t_JobList DROP COLUMN JL_DrugVisible; ALTER TABLE t_JobList ADD JL_DrugVisible BIT;"
        "INSERT INTO t_JobList VALUES (6, 'six', '', 1, 1, 1, NULL)");
    array_.reDim(-1, 7);
    operations_.RecordSet_JobList(connection_, set_, array_);
    EXPECT_EQ(rows(), "0|6|six|||0|-1|1|;") << "a flag that is NULL is no";
}

TEST_F(Operations, HerbsAreOfferedByTheServersDate) {
    database_.run(
        "DELETE FROM t_DrugList; DELETE FROM t_DrugDanga;"
        "INSERT INTO t_DrugList VALUES (1, '당귀', 'today', 0, 1), (2, '당귀', 'ends', 1, 1), (3, '당귀', 'starts', 1, 1),"
        " (4, '당귀', 'withdrawn', 1, 0), (5, '일당귀', 'twice', 1, 1), (6, '감초', 'other', 1, 1), (7, '당귀', 'none', 1, 1);"
        "INSERT INTO t_DrugDanga SELECT DGL_PK, 10.5, '2000-01-01', '2999-12-31' FROM t_DrugList WHERE DGL_PK IN (1,4,5,6);"
        "INSERT INTO t_DrugDanga VALUES (2, 4, '2000-01-01', date('now','localtime')), (5, 20, date('now','localtime'), '2999-12-31'),"
        " (3, 4, date('now','localtime','+1 day'), '2999-12-31')");
    ASSERT_EQ(operations_.RecordSet_YakGukDrugList(connection_, set_, "당귀"), 1);
    std::string found;
    for (; !set_.atEnd(); set_.moveNext())
        found += set_.text("DGL_Internal") + " " + set_.text("DGD_Danga") + ";";
    EXPECT_EQ(found, "ends 4;twice 10.5;twice 20;today 10.5;");
    const std::pair<const char*, std::string> lookups[] = {
        {"1", "1today10.5"}, {" 2 ", "1ends4"}, {"3", "-1"}, {"4", "-1"}, {"", "-1"}};
    for (const auto& [key, herb] : lookups) {
        std::string name = "before", price = "before";
        const int result = operations_.RecordSet_HapBang(connection_, key, name, price);
        EXPECT_EQ(std::to_string(result) + name + price, herb) << key;
    }
}

TEST_F(Operations, SearchKindsFindTheirOrders) {
    // States, pay and delivery methods run through; the fifth is cancelled, the sixth another doctor's.
    database_.run(
        "DELETE FROM t_ChubangJun; WITH t(i) AS (VALUES (0), (1), (2), (3), (4), (5))"
        "INSERT INTO t_ChubangJun (CBJ_PK, DTR_PK, CBJ_State, CBJ_PayMethod, CBJ_BesongMethod, CBJ_IsPaid, CBJ_IsCanceled,"
        " Patient_Name, Patient_Jumin, CBJ_RegDate, CBJ_JobList_PK) SELECT i + 1, 1 + (i = 5), i % 4, i % 3 + 1, i % 4 + 1,"
        " i % 3 = 0, i = 4, 'Kim' || i, iif(i = 1, '홍길동홍길동-1', '9' || (9 - i) || '0101-1'),"
        " '2024-05-0' || (i + 1) || ' 23:59:59', 1 FROM t;");
    struct Case {
        std::int16_t kind;
        std::int32_t doctor;
        const char *word, *from, *to, *keys;
    };
    std::vector<Case> cases = {{1, 1, "", "2024-05-02", "2024-05-03", "3;2;"},
                               {1, 1, "", "2024-05-03", "2024-05-02", ""},
                               {2, 1, "  k'iM ", "", "", "4;3;1;2;"},
                               {2, 1, "Kim2", "", "", "3;"},
                               {90, 1, "nobody", "", "", "5;"},
                               {99, 1, "nobody", "", "", "4;3;2;1;"},
                               {99, -5, "", "", "", "6;4;3;2;1;"}};
    // The kinds from 4 to 16.
    for (const char* keys :
         {"1;", "2;", "3;", "4;", "3;2;", "4;1;", "4;1;", "2;", "3;", "1;", "2;", "3;", "4;"})
        cases.push_back({static_cast<std::int16_t>(cases.size() - 3), 1, "", "", "", keys});
    for (const Case& test : cases) {
        array_.reDim(-1, 6);
        ASSERT_EQ(operations_.RecordSet_CBJmInfo(connection_, set_, array_, OrdersBy{test.kind}, test.doctor,
                                                 test.word, test.from, test.to),
                  1);
        std::string keys;
        for (int i = 0; i <= array_.upperRow(); ++i) {
            EXPECT_EQ(array_.text(i, 0), std::to_string(i + 1));
            keys += array_.text(i, 1) + ";";
        }
        if (test.kind == 5) {
            EXPECT_EQ(array_.text(0, 4), "홍길동홍길동");
        }
        EXPECT_EQ(keys, test.keys) << "kind " << test.kind << " " << test.word;
    }
    connection_.statements.clear();
    EXPECT_EQ(operations_.RecordSet_CBJmInfo(connection_, set_, array_, OrdersBy::Everything, 0, "", "", ""),
              -1);
    EXPECT_TRUE(connection_.statements.empty());
}

TEST_F(Operations, SumsOfTheLedger) {
    database_.run(
        "DELETE FROM t_Stock; DELETE FROM t_ChubangJun;"
        "INSERT INTO t_Stock (DTR_PK, CBJ_PK, CBJ_IsCanceled, STK_Money, STK_Date) VALUES"
        " (1, 0, 0, 100, '2024-01-01'), (1, 0, 1, 20, '2024-02-01 10:00:00'), (1, 7, 0, 3, '2024-01-31'),"
        " (1, 8, 1, 4000, '2024-01-01'), (2, 0, 0, 90000, '2024-01-01'), (3, 0, 0, 2147483647, ''), (3, 0, 0, 1, '')");
    const struct {
        std::int32_t doctor;
        const char *kind, *from, *to;
        bool result;
        std::int32_t sum;
    } stock[] = {{1, "S", "", "", true, 120},
                 {1, "M", "", "", true, 3},
                 {1, "", "", "", true, 103},
                 {1, "?", "", "", true, 4123},
                 {1, "S", "2024-02-01", "", true, 20},
                 {1, "S", "2024-01-01", "2024-01-31", true, 100},
                 {1, "S", "", "2024-01-31", true, 120},
                 {9, "S", "", "", true, 0},
                 {3, "S", "", "", false, 0}};
    for (const auto& test : stock) {
        std::int32_t sum = -5;
        EXPECT_EQ(money_.ZELVO_StockMoney(connection_, sum, test.doctor, test.kind, test.from, test.to),
                  test.result);
        EXPECT_EQ(sum, test.sum) << test.doctor << test.kind << test.from;
    }

    // 166,000 won and as many as its number.
    database_.run(
        "WITH t(i) AS (VALUES (0), (1), (2), (3))"
        "INSERT INTO t_ChubangJun (DTR_PK, CBJ_PayMethod, CBJ_IsPaid, CBJ_DrugCost, CBJ_BesongCost, CBJ_ElseCost,"
        " CBJ_UserCost, CBJ_UserCostNoVAT, CBJ_RegDate) SELECT 1, i % 3 + 1, i = 0, 52000, 4000, i, 10000, 100000,"
        " '2024-05-0' || (i + 1) || ' 12:00:00' FROM t;");
    const struct {
        const char *word, *paid, *from, *to;
        std::int32_t sum;
    } costs[] = {{"적립", "", "", "", 332'003},       {"적립", "1", "", "", 166'000},
                 {"후불", "", "", "", 166'001},       {"후불정산", "0", "", "", 166'002},
                 {"", "", "2024-05-04", "", 166'003}, {"", "", "2024-05-02", "2024-05-03", 332'003}};
    for (const auto& test : costs) {
        std::int32_t sum = -5;
        EXPECT_TRUE(money_.ZELVO_CBJcostSum(connection_, sum, 1, test.word, test.paid, test.from, test.to));
        EXPECT_EQ(sum, test.sum) << test.word << test.paid << test.from;
    }
}

}  // namespace zelvo::data
