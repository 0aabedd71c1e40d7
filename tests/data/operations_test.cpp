#include <gtest/gtest.h>

#include "DataTests.h"

namespace zelvo::data {

using testing::FaultyConnection;
using testing::sampleOrder;
using testing::TestDatabase;

class Operations : public ::testing::Test {
protected:
    TestDatabase database_;
    FaultyConnection connection_{database_.connect()};
    clsZELVORecordSet operations_;
    clsZELVOStockmoney money_;
    tables::XArrayDB array_;
    RecordSet set_;

    static std::string row(const tables::XArrayDB& array, int row) {
        std::string all;
        for (int column = 0; column <= array.upperColumn(); ++column) all += array.text(row, column) + "|";
        return all;
    }
};

TEST_F(Operations, OrderStandsAsItWasSent) {
    const std::int32_t key = operations_.Insert_ChubangJun(connection_, sampleOrder());
    EXPECT_EQ(database_.value("SELECT MAX(CBJ_PK) FROM t_ChubangJun"), std::to_string(key));
    EXPECT_EQ(
        database_.rows(
            "SELECT DTR_PK, Patient_PK, Patient_Age, Patient_Sex, CBJ_IsPaid, CBJ_DrugCost, CBJ_BesongCost,"
            " CBJ_PouchAmount, CBJ_DayTuyak, CBJ_RegDate, CBJ_UserCost, CBJ_UserCostNote, CBJ_UserChk2,"
            " CBJ_ChubangName FROM t_ChubangJun ORDER BY CBJ_PK DESC LIMIT 1")[0],
        (std::vector<std::string>{"1", "77", "41", "1", "1", "52000", "4000", "100.5", "0.1",
                                  "2024-05-06 09:08:07", "0", "", "0", ""}));
    ASSERT_EQ(operations_.Insert_ChubangJun_Mileage(connection_, 1, 5, -300, "2024-05-06"), 1);
    EXPECT_EQ(
        database_.rows(
            "SELECT DTR_PK, CBJ_PK, CBJ_IsCanceled, STK_Money, STK_Method, STK_Date, STK_Note FROM t_Stock"
            " ORDER BY STK_PK DESC LIMIT 1")[0],
        (std::vector<std::string>{"1", "5", "0", "-300", "0", "2024-05-06", "Mileage 금액"}));
}

/// Each statement of each operation fails in turn: the operation says so, and works again afterwards.
TEST_F(Operations, EveryFailedStatementEndsInTheFailureValue) {
    DoctorRecord doctor;
    std::int32_t number = 0;
    std::string herb, price;
    const struct {
        const char* name;
        std::int32_t failure;
        std::function<std::int32_t()> run;
    } cases[] = {
        {"Insert_ChubangJun", -1, [&] { return operations_.Insert_ChubangJun(connection_, sampleOrder()); }},
        {"Insert_ChubangJun_CostDetail", -1,
         [&] { return operations_.Insert_ChubangJun_CostDetail(connection_, 9000 + ++number, {}); }},
        {"Insert_ChubangJun_Detail", -1,
         [&] { return operations_.Insert_ChubangJun_Detail(connection_, 1, {}); }},
        {"Insert_ChubangJun_EatGuide", -1,
         [&] { return operations_.Insert_ChubangJun_EatGuide(connection_, 9000 + ++number, "a", "b", "c"); }},
        {"Insert_ChubangJun_Mileage", -1,
         [&] { return operations_.Insert_ChubangJun_Mileage(connection_, 1, 1, 1, "2024-01-01"); }},
        {"RecordSet_SvrGetdate", 0,
         [&] { return operations_.RecordSet_SvrGetdate(connection_) == "-1" ? 0 : 1; }},
        {"RecordSet_TangJunADD", -1,
         [&] { return operations_.RecordSet_TangJunADD(connection_, set_, array_, 7); }},
        {"RecordSet_TangJun", -1,
         [&] { return operations_.RecordSet_TangJun(connection_, set_, array_, 5); }},
        {"RecordSet_JobList", -1,
         [&] { return operations_.RecordSet_JobList(connection_, set_, array_, 7); }},
        {"RecordSet_GongJi", -1, [&] { return operations_.RecordSet_GongJi(connection_, set_); }},
        {"RecordSet_YakGukDrugList", -1,
         [&] { return operations_.RecordSet_YakGukDrugList(connection_, set_, ""); }},
        {"RecordSet_HapBang", -1,
         [&] { return operations_.RecordSet_HapBang(connection_, "1", herb, price); }},
        {"RecordSet_CBJmInfo", -1,
         [&] { return operations_.RecordSet_CBJmInfo(connection_, set_, array_, 99, -1, "", "", ""); }},
        {"RecordSet_DoctorInfo", -1,
         [&] { return operations_.RecordSet_DoctorInfo(connection_, 0, doctor); }},
        {"RecordSet_LoginCheck", 0,
         [&] {
             return operations_.RecordSet_LoginCheck(connection_, doctor.DTR_ID, doctor.DTR_PWD, number) ? 1
                                                                                                         : 0;
         }},
        {"RecordSet_StockMoneyIN", -1,
         [&] { return operations_.RecordSet_StockMoneyIN(connection_, set_, 1, "", ""); }},
        {"RecordSet_StockMoneyUsed", -1,
         [&] { return operations_.RecordSet_StockMoneyUsed(connection_, set_, 1, "", ""); }},
        {"RecordSet_StockMileage", -1,
         [&] { return operations_.RecordSet_StockMileage(connection_, set_, 1, "", ""); }},
        {"ZELVO_StockMoney", 0,
         [&] { return money_.ZELVO_StockMoney(connection_, number, 1, "", "", "") ? 1 : 0; }},
        {"ZELVO_CBJcostSum", 0,
         [&] { return money_.ZELVO_CBJcostSum(connection_, number, 1, "", "", "", "") ? 1 : 0; }},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        array_.reDim(-1, 7);
        connection_.statements.clear();
        ASSERT_GT(test.run(), 0);
        const auto statements = static_cast<int>(connection_.statements.size());
        for (int failing = 1; failing <= statements; ++failing) {
            const std::size_t rows = set_.rowCount();
            const std::uint64_t generation = set_.generation();
            connection_.failAt(failing);
            EXPECT_EQ(test.run(), test.failure) << "statement " << failing;
            EXPECT_EQ(set_.rowCount(), rows);
            EXPECT_EQ(set_.generation(), generation) << "the caller's set stays unchanged";
        }
        EXPECT_GT(test.run(), 0);
    }
}

TEST_F(Operations, WalkFillsTheArrayInFrontOfItsRows) {
    database_.run(
        "DELETE FROM t_JobList; INSERT INTO t_JobList VALUES (3, 'three', 'm3', 1, 0, 2, 1), (4, 'four', NULL, 0, 1, 1, 1),"
        " (5, 'gone', '', 0, 1, 1, 0)");
    array_.reDim(0, 7);
    array_.set(0, 2, "before");
    int passes = 0;
    connection_.yield = [&] { ++passes; };
    ASSERT_EQ(operations_.RecordSet_JobList(connection_, set_, array_, 7), 1);
    ASSERT_EQ(array_.rowCount(), 3U);
    EXPECT_EQ(row(array_, 0), "0|4|four|||0|-1|1|");
    EXPECT_EQ(row(array_, 1), "0|3|three||m3|-1|0|2|");
    EXPECT_EQ(array_.text(2, 2), "before");
    EXPECT_TRUE(array_.isTrue(0, 6));
    EXPECT_EQ(passes, 2);
    EXPECT_TRUE(set_.isOpen() && set_.atEnd());

    database_.run("DELETE FROM t_JobList");
    EXPECT_EQ(operations_.RecordSet_JobList(connection_, set_, array_, 7), 1) << "no rows are no failure";
    EXPECT_EQ(array_.rowCount(), 3U);
}

TEST_F(Operations, WalkGoesOnAfterAFailedStep) {
    const struct {
        const char *name, *spoil;
        std::int16_t expected;
        std::function<std::int16_t()> run;
    } cases[] = {
        {"add-ons", "ALTER TABLE t_TangJunAddList DROP COLUMN TJAL_Type", -1,
         [&] { return operations_.RecordSet_TangJunADD(connection_, set_, array_, 7); }},
        {"methods", "ALTER TABLE t_TangJunMethodList DROP COLUMN TJML_Message", -1,
         [&] { return operations_.RecordSet_TangJun(connection_, set_, array_, 5); }},
        {"order types", "ALTER TABLE t_JobList DROP COLUMN JL_Message", 0,
         [&] { return operations_.RecordSet_JobList(connection_, set_, array_, 7); }},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        array_.reDim(-1, 7);
        ASSERT_EQ(test.run(), 1);
        const std::size_t rows = array_.rowCount();
        ASSERT_GT(rows, 1U);
        const std::string key = array_.text(1, 1), name = array_.text(1, 2);

        array_.reDim(-1, 7);
        int passes = 0;
        connection_.yield = [&] {
            if (++passes == 1) throw std::runtime_error("a listener fails");
        };
        EXPECT_EQ(test.run(), test.expected);
        EXPECT_EQ(array_.rowCount(), rows);
        connection_.yield = [] {};

        database_.run(test.spoil);
        array_.reDim(-1, 7);
        EXPECT_EQ(test.run(), test.expected);
        ASSERT_EQ(array_.rowCount(), rows);
        EXPECT_EQ(array_.text(1, 1), key);
        EXPECT_EQ(array_.text(1, 2), name);
        EXPECT_TRUE(set_.atEnd());
    }
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
    ASSERT_EQ(operations_.RecordSet_YakGukDrugList(connection_, set_, ""), 1);
    EXPECT_EQ(set_.rowCount(), 5U);

    const struct {
        const char* key;
        std::int16_t result;
        const char *name, *price;
    } lookups[] = {{"1", 1, "today", "10.5"},
                   {" 2 ", 1, "ends", "4"},
                   {"3", -1, "", ""},
                   {"4", -1, "", ""},
                   {"", -1, "", ""}};
    for (const auto& lookup : lookups) {
        std::string name = "before", price = "before";
        EXPECT_EQ(operations_.RecordSet_HapBang(connection_, lookup.key, name, price), lookup.result)
            << lookup.key;
        EXPECT_EQ(name, lookup.name) << lookup.key;
        EXPECT_EQ(price, lookup.price) << lookup.key;
    }
}

TEST_F(Operations, SearchKindsFindTheirOrders) {
    database_.run("DELETE FROM t_ChubangJun");
    // One order a kind: the state, the pay and the delivery methods run through; two doctors; one is
    // cancelled.
    for (int i = 0; i < 6; ++i) {
        ChubangJun order = sampleOrder();
        order.DTR_PK = i == 5 ? 2 : 1;
        order.CBJ_State = static_cast<std::int16_t>(i % 4);
        order.CBJ_PayMethod = static_cast<std::int16_t>(i % 3 + 1);
        order.CBJ_BesongMethod = static_cast<std::int16_t>(i % 4 + 1);
        order.CBJ_IsPaid = i % 3 == 0 ? 1 : 0;
        order.CBJ_IsCanceled = i == 4 ? 1 : 0;
        order.Patient_Name = "Kim" + std::to_string(i);
        order.Patient_Jumin = i == 1 ? "홍길동홍길동-1" : "9" + std::to_string(9 - i) + "0101-1";
        order.CBJ_RegDate = "2024-05-0" + std::to_string(i + 1) + " 23:59:59";
        ASSERT_EQ(operations_.Insert_ChubangJun(connection_, order), i + 1);
    }
    const struct {
        std::int16_t kind;
        std::int32_t doctor;
        const char *word, *from, *to, *keys;
    } cases[] = {
        {1, 1, "", "2024-05-02", "2024-05-03", "3;2;"},
        {1, 1, "", "2024-05-03", "2024-05-02", ""},
        {2, 1, "  k'iM ", "", "", "4;3;1;2;"},
        {2, 1, "Kim2", "", "", "3;"},
        {3, -1, "%", "", "", nullptr},
        {4, 1, "", "", "", "1;"},
        {5, 1, "", "", "", "2;"},
        {6, 1, "", "", "", "3;"},
        {7, 1, "", "", "", "4;"},
        {8, 1, "", "", "", "3;2;"},
        {9, 1, "", "", "", "4;1;"},
        {10, 1, "", "", "", "4;1;"},
        {11, 1, "", "", "", "2;"},
        {12, 1, "", "", "", "3;"},
        {13, 1, "", "", "", "1;"},
        {14, 1, "", "", "", "2;"},
        {15, 1, "", "", "", "3;"},
        {16, 1, "", "", "", "4;"},
        {90, 1, "nobody", "", "", "5;"},
        {99, 1, "nobody", "", "", "4;3;2;1;"},
        {99, -5, "", "", "", "6;4;3;2;1;"},
        {17, 1, "", "", "", nullptr},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE("kind " + std::to_string(test.kind) + " " + test.word);
        array_.reDim(-1, 6);
        ASSERT_EQ(operations_.RecordSet_CBJmInfo(connection_, set_, array_, test.kind, test.doctor, test.word,
                                                 test.from, test.to),
                  1);
        std::string keys;
        for (int i = 0; i <= array_.upperRow(); ++i) {
            EXPECT_EQ(array_.text(i, 0), std::to_string(i + 1));
            keys += array_.text(i, 1) + ";";
        }
        // Without an order by the search itself only the number of rows is sure.
        if (test.keys)
            EXPECT_EQ(keys, test.keys);
        else
            EXPECT_EQ(array_.rowCount(), test.kind == 3 ? 5U : 4U);
    }
    array_.reDim(-1, 6);
    ASSERT_EQ(operations_.RecordSet_CBJmInfo(connection_, set_, array_, 5, 1, "", "", ""), 1);
    EXPECT_EQ(array_.text(0, 4), "홍길동홍길동");
    connection_.statements.clear();
    EXPECT_EQ(operations_.RecordSet_CBJmInfo(connection_, set_, array_, 99, 0, "", "", ""), -1);
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

    for (int i = 0; i < 4; ++i) {
        ChubangJun order = sampleOrder();
        order.CBJ_PayMethod = static_cast<std::int16_t>(i % 3 + 1);
        order.CBJ_IsPaid = i == 0 ? 1 : 0;
        order.CBJ_ElseCost = i;
        order.CBJ_RegDate = "2024-05-0" + std::to_string(i + 1) + " 12:00:00";
        ASSERT_GT(operations_.Insert_ChubangJun(connection_, order), 0);
    }
    database_.run(
        "UPDATE t_ChubangJun SET CBJ_UserCost = 10000, CBJ_UserCostNoVAT = 100000");  // 166,000 + i each
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

    ASSERT_EQ(operations_.RecordSet_StockMoneyIN(connection_, set_, 1, "", ""), 1);
    EXPECT_EQ(set_.rowCount(), 2U);
    EXPECT_EQ(set_.text("STK_Money"), "20");
    ASSERT_EQ(operations_.RecordSet_StockMoneyIN(connection_, set_, 1, "2024-01-01", ""), 1);
    EXPECT_EQ(set_.rowCount(), 0U) << "both date conditions or none";
    ASSERT_EQ(operations_.RecordSet_StockMileage(connection_, set_, 1, "2024-01-01", "2024-01-31"), 1);
    EXPECT_EQ(set_.text(1), "3");
    ASSERT_EQ(operations_.RecordSet_StockMoneyUsed(connection_, set_, 1, "", ""), 1);
    EXPECT_EQ(set_.text("CBJ_SumCost"), "166000");
    EXPECT_EQ(set_.rowCount(), 1U) << "only what the pharmacy holds for paid";
}

TEST_F(Operations, DoctorsAreFoundByIdOrKey) {
    database_.run(
        "DELETE FROM t_Doctor; INSERT INTO t_Doctor (DTR_PK, DTR_ID, DTR_PWD, DTR_Discount, DTR_VIP, DTR_IsUseBox, DTR_ValidPay)"
        " VALUES (17, 'kim', 'p''w', 12.5, 1, 1500, '101')");
    DoctorRecord doctor;
    doctor.DTR_PK = 17;
    doctor.DTR_Name = "before";
    ASSERT_EQ(operations_.RecordSet_DoctorInfo(connection_, 2, doctor), 1);
    EXPECT_EQ(doctor.DTR_ID + doctor.DTR_PWD + doctor.DTR_Name + doctor.DTR_ValidPay, "kimp'w101");
    EXPECT_EQ(doctor.DTR_Discount, 12.5F);
    EXPECT_EQ(doctor.DTR_IsUseBox, 1500);
    EXPECT_TRUE(doctor.DTR_VIP);
    EXPECT_FALSE(doctor.DTR_IsUsePouch);
    doctor.DTR_PK = 18;
    EXPECT_EQ(operations_.RecordSet_DoctorInfo(connection_, 2, doctor), 0);
    EXPECT_EQ(doctor.DTR_IsUseBox, 1500) << "what nobody was found for stays";
    doctor.DTR_PWD = "wrong";
    EXPECT_EQ(operations_.RecordSet_DoctorInfo(connection_, 1, doctor), 0);
    std::int32_t key = 5;
    EXPECT_FALSE(operations_.RecordSet_LoginCheck(connection_, "kim", "pw", key));
    EXPECT_EQ(key, 5);
    EXPECT_TRUE(operations_.RecordSet_LoginCheck(connection_, "kim", "p'w", key));
    EXPECT_EQ(key, 17);
}

}  // namespace zelvo::data
