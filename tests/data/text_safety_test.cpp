#include <gtest/gtest.h>

#include "DataTests.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "data/Statement.h"

namespace zelvo::data {

using testing::hostileTexts;
using testing::sampleOrder;

class TextSafety : public ::testing::Test {
protected:
    testing::TestDatabase database_;
    std::unique_ptr<Connection> connection_ = database_.connect();
    clsZELVORecordSet operations_;
    tables::XArrayDB array_;
    RecordSet set_;

    /// What is written into a table from texts.
    struct Write {
        const char *table, *columns;
        std::vector<std::string*> texts;
        std::function<std::int32_t()> write;
    };
    /// Gives each text this text and a number of its own, has them written, and looks what stands in the
    /// table.
    void passThrough(const Write& row, const std::string& text) {
        int number = 0;
        for (std::string* const each : row.texts) *each = text + std::to_string(number++);
        ASSERT_GT(row.write(), 0) << row.table;
        connection_->open(
            set_,
            std::string("SELECT ") + row.columns + " FROM " + row.table + " ORDER BY rowid DESC LIMIT 1",
            Cursor::Static);
        while (--number >= 0)
            EXPECT_EQ(set_.text(number), basics::cleanUtf8(text + std::to_string(number))) << row.columns;
    }
};

TEST_F(TextSafety, WritesAndModificationsStoreWhatTheyGot) {
    // Nothing that goes into another table may touch the doctors, no modification another order.
    const auto others = [this] {
        auto rows = database_.rows("SELECT DTR_PK, DTR_ID, DTR_PWD FROM t_Doctor");
        for (auto& order : database_.rows("SELECT * FROM t_ChubangJun WHERE CBJ_PK < 9"))
            rows.push_back(order);
        return rows;
    };
    const auto before = others();
    std::int32_t key = 1'000;
    ChubangJun order = sampleOrder();
    CostNotes notes;
    HerbLine herb;
    UserHerbLine own;
    CBJmUpdate update;
    update.costChanged = true;
    update.CBJ_PK = 9;
    std::string sheet, clinic, phone, name, memo, date;
    clsZELVORecordSet& to = operations_;
    const auto modifies = [&] { return to.Update_ChubangJun(*connection_, update) == CommitOutcome::Done; };
    const Write writes[] = {
        {"t_ChubangJun",
         "Patient_Name, Patient_Jumin, Patient_Email, CBJ_TJAL_Slot, CBJ_Send_Name, CBJ_Send_Zip, CBJ_Send_Address,"
         " CBJ_Send_Tel, CBJ_Send_Cell, CBJ_Send_Hospital, CBJ_Reci_Zip, CBJ_Reci_Address, CBJ_Reci_Tel, CBJ_Reci_Cell,"
         " CBJ_Reci_Date, CBJ_BesongMsg, CBJ_Msg",
         {&order.Patient_Name, &order.Patient_Jumin, &order.Patient_Email, &order.CBJ_TJAL_Slot,
          &order.CBJ_Send_Name, &order.CBJ_Send_Zip, &order.CBJ_Send_Address, &order.CBJ_Send_Tel,
          &order.CBJ_Send_Cell, &order.CBJ_Send_Hospital, &order.CBJ_Reci_Zip, &order.CBJ_Reci_Address,
          &order.CBJ_Reci_Tel, &order.CBJ_Reci_Cell, &order.CBJ_Reci_Date, &order.CBJ_BesongMsg,
          &order.CBJ_Msg},
         [&] { return to.Insert_ChubangJun(*connection_, order); }},
        {"t_CBJcostDetail",
         "CCD_JojeCost, CCD_DrugCost, CCD_TJMLcost, CCD_TJALCost, CCD_PouchCost, CCD_BoxCost, CCD_FormCost,"
         " CCD_BesongCost, CCD_VATCost, CCD_ElseCost",
         {&notes.CCD_JojeCost, &notes.CCD_DrugCost, &notes.CCD_TJMLcost, &notes.CCD_TJALCost,
          &notes.CCD_PouchCost, &notes.CCD_BoxCost, &notes.CCD_FormCost, &notes.CCD_BesongCost,
          &notes.CCD_VATCost, &notes.CCD_ElseCost},
         [&] { return to.Insert_ChubangJun_CostDetail(*connection_, ++key, notes); }},
        {"t_CBJDetail",
         "DGL_CallSign, DET_Note",
         {&herb.DGL_CallSign, &herb.DET_Note},
         [&] { return to.Insert_ChubangJun_Detail(*connection_, 1, herb); }},
        {"t_EatGuide",
         "BogYak, HospName, PhoneNo",
         {&sheet, &clinic, &phone},
         [&] { return to.Insert_ChubangJun_EatGuide(*connection_, key, sheet, clinic, phone); }},
        {"t_UserChubang",
         "UCB_Name, UCB_Note",
         {&name, &memo},
         [&] { return to.Insert_MyChubang(*connection_, 1, name, memo); }},
        {"t_UserDetail",
         "DGL_CallSign, UDET_Note",
         {&own.DGL_CallSign, &own.UDET_Note},
         [&] { return to.Insert_MyChubangDetail(*connection_, 1, own); }},
        {"t_Stock",
         "STK_Date",
         {&date},
         [&] { return to.Insert_ChubangJun_Mileage(*connection_, 1, 1, 100, date); }},
        {"t_ChubangJun WHERE CBJ_PK = 9",
         "Patient_Name, Patient_Jumin, Patient_Email, CBJ_Reci_Tel, CBJ_Reci_Cell, CBJ_Reci_Zip, CBJ_Reci_Address,"
         " CBJ_BesongMsg, CBJ_Reci_Date, CBJ_Send_Hospital, CBJ_Send_Name, CBJ_Send_Tel, CBJ_Send_Cell, CBJ_Send_Zip,"
         " CBJ_Send_Address, CBJ_Msg",
         {&update.Patient_Name, &update.Patient_Jumin, &update.Patient_Email, &update.CBJ_Reci_Tel,
          &update.CBJ_Reci_Cell, &update.CBJ_Reci_Zip, &update.CBJ_Reci_Address, &update.CBJ_BesongMsg,
          &update.CBJ_Reci_Date, &update.CBJ_Send_Hospital, &update.CBJ_Send_Name, &update.CBJ_Send_Tel,
          &update.CBJ_Send_Cell, &update.CBJ_Send_Zip, &update.CBJ_Send_Address, &update.CBJ_Msg},
         modifies},
        {"t_CBJcostDetail WHERE CBJ_PK = 9",
         "CCD_BesongCost, CCD_ElseCost",
         {&update.CCD_BesongCost, &update.CCD_ElseCost},
         modifies},
        {"t_EatGuide WHERE CBJ_PK = 9",
         "BogYak, HospName, PhoneNo",
         {&update.BogYak, &update.HospName, &update.PhoneNo},
         modifies},
    };
    for (const auto& [what, text] : hostileTexts()) {
        SCOPED_TRACE(what);
        for (const Write& row : writes) passThrough(row, text);
    }
    update.Patient_Age = "0 OR 1";
    EXPECT_EQ(modifies(), 0) << "an age is a number";
    // A value that holds a later placeholder is itself substituted.
    order.Patient_Name = "'[CBJ_Msg]' [CBJ_State][DTR_PK]";
    order.CBJ_Msg = "it's";
    key = to.Insert_ChubangJun(*connection_, order);
    EXPECT_EQ(database_.value("SELECT Patient_Name FROM t_ChubangJun WHERE CBJ_PK = " + std::to_string(key)),
              "'it's' 0[DTR_PK]");
    EXPECT_EQ(others(), before);
}

TEST_F(TextSafety, SearchesFindWhatHoldsTheWordAndNothingElse) {
    database_.run(
        "DELETE FROM t_ChubangJun; UPDATE t_Doctor SET DTR_PWD = 'secret';"
        "INSERT INTO t_DrugDanga VALUES (9001, 10, '2000-01-01', '2999-12-31');"
        "INSERT INTO t_DrugList VALUES (9001, 'x', 'inside', 0, 1)");
    ASSERT_GT(operations_.Insert_ChubangJun(*connection_, sampleOrder()), 0);
    for (const auto& [name, text] : hostileTexts()) {
        SCOPED_TRACE(name);
        const std::string stored = basics::cleanUtf8(text);
        database_.run(
            Statement("UPDATE t_DrugList SET DGL_CallSign = '<[V]>' WHERE DGL_PK = 9001;"
                      "UPDATE t_ChubangJun SET Patient_Name = '<[N]>';"
                      "UPDATE t_UserChubang SET UCB_Name = '<[V]>', UCB_Note = '<[V]>' WHERE UCB_PK = 1;"
                      "UPDATE t_Doctor SET DTR_Name = '<[N]>', DTR_ID = '[V]' WHERE DTR_PK = 1")
                .fill("[N]", basics::removeAll(stored, "'"))
                .fill("[V]", stored)
                .text());
        ASSERT_EQ(operations_.RecordSet_YakGukDrugList(*connection_, set_, "<" + text + ">"), 1);
        EXPECT_EQ(set_.rowCount(), 1U);
        for (const SearchKind kind : {searchName, searchMemo}) {
            ASSERT_EQ(operations_.RecordSet_FindYakGukChubang(*connection_, set_, "<" + text + ">", kind), 1);
            EXPECT_EQ(set_.rowCount(), 1U) << "kind " << int{kind};
            ASSERT_EQ(operations_.RecordSet_FindMyChubang(*connection_, set_, "<" + text + ">", 1, kind), 1);
            EXPECT_EQ(set_.rowCount(), 0U) << "kind " << int{kind};
        }
        for (const OrdersBy kind : {OrdersBy::PatientName, OrdersBy::DoctorName}) {
            for (const char* end : {">", "!"}) {
                array_.reDim(-1, 6);
                ASSERT_EQ(operations_.RecordSet_CBJmInfo(*connection_, set_, array_, kind, 1,
                                                         "<" + text + end, "", ""),
                          1);
                EXPECT_EQ(array_.rowCount(), *end == '>' ? 1U : 0U) << static_cast<int>(kind);
            }
        }
        std::int32_t doctor = 0;
        EXPECT_FALSE(operations_.RecordSet_LoginCheck(*connection_, text, text, doctor));
        EXPECT_FALSE(operations_.RecordSet_LoginCheck(*connection_, "%", "%", doctor));
        EXPECT_TRUE(operations_.RecordSet_LoginCheck(*connection_, text, "secret", doctor));
        EXPECT_EQ(doctor, 1);
        DoctorRecord record;
        record.DTR_ID = record.DTR_PWD = text;
        EXPECT_EQ(operations_.RecordSet_DoctorInfo(*connection_, 1, record), 0);
        record.DTR_PWD = "secret";
        EXPECT_EQ(operations_.RecordSet_DoctorInfo(*connection_, 1, record), 1);
        EXPECT_EQ(record.DTR_ID, stored);
    }
}

TEST_F(TextSafety, DatesAndKindsAreTextsAndBarePlaceholdersTakeNumbersOnly) {
    testing::FaultyConnection watched(database_.connect());
    clsZELVOStockmoney money;
    for (const auto& [name, text] : hostileTexts()) {
        SCOPED_TRACE(name);
        std::int32_t sum = 5;
        EXPECT_TRUE(money.ZELVO_StockMoney(*connection_, sum, 1, text, text, text));
        EXPECT_TRUE(money.ZELVO_CBJcostSum(*connection_, sum, 1, text, "", text, text));
        EXPECT_EQ(operations_.RecordSet_StockMoneyIN(*connection_, set_, 1, text, text), 1);
        EXPECT_EQ(operations_.RecordSet_StockMoneyUsed(*connection_, set_, 1, text, text), 1);
        EXPECT_EQ(operations_.RecordSet_StockMileage(*connection_, set_, 1, text, text), 1);
        array_.reDim(-1, 6);
        EXPECT_EQ(operations_.RecordSet_CBJmInfo(*connection_, set_, array_, OrdersBy::IssueDate, 1, "", text,
                                                 text),
                  1);
        EXPECT_TRUE(array_.empty());

        std::string herb, price;
        EXPECT_EQ(operations_.RecordSet_HapBang(watched, text, herb, price), -1);
        EXPECT_FALSE(money.ZELVO_CBJcostSum(watched, sum, 1, "", text, "", ""));
        EXPECT_EQ(sum, 0);
        ChubangJun order = sampleOrder();
        order.CBJ_RegDate = text;
        EXPECT_EQ(operations_.Insert_ChubangJun(watched, order), -1) << "no date";
    }
    for (const std::string& statement : watched.statements) EXPECT_EQ(statement, "SELECT GETDATE()");
}

}  // namespace zelvo::data
