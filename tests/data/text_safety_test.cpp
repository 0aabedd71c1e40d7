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

    /// Gives each text of a record this text and a number of its own, has the record written, and looks what
    /// stands in the table.
    template <class Record>
    void passThrough(const char* table, const std::string& columns,
                     const std::vector<std::string Record::*>& members, Record record,
                     const std::string& text, const std::function<std::int32_t(const Record&)>& write) {
        int number = 0;
        for (const auto member : members) record.*member = text + std::to_string(number++);
        ASSERT_GT(write(record), 0) << table;
        connection_->open(set_, "SELECT " + columns + " FROM " + table + " ORDER BY rowid DESC LIMIT 1",
                          Cursor::Static);
        while (--number >= 0)
            EXPECT_EQ(set_.text(number), basics::cleanUtf8(text + std::to_string(number))) << columns;
    }
};

TEST_F(TextSafety, WritesStoreWhatTheyGot) {
    using Order = ChubangJun;
    using Notes = CostNotes;
    struct Sheet {
        std::string text, clinic, phone;
    };
    struct Stock {
        std::string date;
    };
    struct Prescription {
        std::string name, memo;
    };
    // Nothing that goes into another table may touch the doctors.
    const auto before = database_.rows("SELECT DTR_PK, DTR_ID, DTR_PWD FROM t_Doctor");
    std::int32_t key = 1'000;
    Transaction transaction(*connection_);
    for (const auto& [name, text] : hostileTexts()) {
        SCOPED_TRACE(name);
        passThrough<Order>(
            "t_ChubangJun",
            "Patient_Name, Patient_Jumin, Patient_Email, CBJ_TJAL_Slot, CBJ_Send_Name, CBJ_Send_Zip, CBJ_Send_Address,"
            " CBJ_Send_Tel, CBJ_Send_Cell, CBJ_Send_Hospital, CBJ_Reci_Zip, CBJ_Reci_Address, CBJ_Reci_Tel, CBJ_Reci_Cell,"
            " CBJ_Reci_Date, CBJ_BesongMsg, CBJ_Msg",
            {&Order::Patient_Name, &Order::Patient_Jumin, &Order::Patient_Email, &Order::CBJ_TJAL_Slot,
             &Order::CBJ_Send_Name, &Order::CBJ_Send_Zip, &Order::CBJ_Send_Address, &Order::CBJ_Send_Tel,
             &Order::CBJ_Send_Cell, &Order::CBJ_Send_Hospital, &Order::CBJ_Reci_Zip, &Order::CBJ_Reci_Address,
             &Order::CBJ_Reci_Tel, &Order::CBJ_Reci_Cell, &Order::CBJ_Reci_Date, &Order::CBJ_BesongMsg,
             &Order::CBJ_Msg},
            sampleOrder(), text,
            [&](const Order& order) { return operations_.Insert_ChubangJun(*connection_, order); });
        passThrough<Notes>(
            "t_CBJcostDetail",
            "CCD_JojeCost, CCD_DrugCost, CCD_TJMLcost, CCD_TJALCost, CCD_PouchCost, CCD_BoxCost, CCD_FormCost,"
            " CCD_BesongCost, CCD_VATCost, CCD_ElseCost",
            {&Notes::CCD_JojeCost, &Notes::CCD_DrugCost, &Notes::CCD_TJMLcost, &Notes::CCD_TJALCost,
             &Notes::CCD_PouchCost, &Notes::CCD_BoxCost, &Notes::CCD_FormCost, &Notes::CCD_BesongCost,
             &Notes::CCD_VATCost, &Notes::CCD_ElseCost},
            {}, text, [&](const Notes& notes) {
                return operations_.Insert_ChubangJun_CostDetail(*connection_, ++key, notes);
            });
        passThrough<HerbLine>("t_CBJDetail", "DGL_CallSign, DET_Note",
                              {&HerbLine::DGL_CallSign, &HerbLine::DET_Note}, {}, text,
                              [&](const HerbLine& line) {
                                  return operations_.Insert_ChubangJun_Detail(*connection_, 1, line);
                              });
        passThrough<Sheet>("t_EatGuide", "BogYak, HospName, PhoneNo",
                           {&Sheet::text, &Sheet::clinic, &Sheet::phone}, {}, text, [&](const Sheet& sheet) {
                               return operations_.Insert_ChubangJun_EatGuide(*connection_, key, sheet.text,
                                                                             sheet.clinic, sheet.phone);
                           });
        passThrough<Prescription>(
            "t_UserChubang", "UCB_Name, UCB_Note", {&Prescription::name, &Prescription::memo}, {}, text,
            [&](const Prescription& own) {
                return operations_.Insert_MyChubang(*connection_, 1, own.name, own.memo);
            });
        passThrough<UserHerbLine>("t_UserDetail", "DGL_CallSign, UDET_Note",
                                  {&UserHerbLine::DGL_CallSign, &UserHerbLine::UDET_Note}, {}, text,
                                  [&](const UserHerbLine& line) {
                                      return operations_.Insert_MyChubangDetail(*connection_, 1, line);
                                  });
        passThrough<Stock>("t_Stock", "STK_Date", {&Stock::date}, {}, text, [&](const Stock& stock) {
            return operations_.Insert_ChubangJun_Mileage(*connection_, 1, 1, 100, stock.date);
        });
    }
    // A value that holds a later placeholder is itself substituted.
    ChubangJun order = sampleOrder();
    order.Patient_Name = "'[CBJ_Msg]' [CBJ_State][DTR_PK]";
    order.CBJ_Msg = "it's";
    key = operations_.Insert_ChubangJun(*connection_, order);
    EXPECT_EQ(transaction.commit(), CommitOutcome::Done);
    EXPECT_EQ(database_.value("SELECT Patient_Name FROM t_ChubangJun WHERE CBJ_PK = " + std::to_string(key)),
              "'it's' 0[DTR_PK]");
    EXPECT_EQ(database_.rows("SELECT DTR_PK, DTR_ID, DTR_PWD FROM t_Doctor"), before);
}

TEST_F(TextSafety, ModificationsStoreWhatTheyGot) {
    using Update = CBJmUpdate;
    CBJmUpdate row;
    row.costChanged = true;
    row.CBJ_PK = basics::toInt32(database_.value("SELECT max(CBJ_PK) FROM t_ChubangJun"));
    const auto others =
        database_.rows("SELECT * FROM t_ChubangJun WHERE CBJ_PK < " + std::to_string(row.CBJ_PK));
    const auto write = [&](const Update& update) {
        return operations_.Update_ChubangJun(*connection_, update);
    };
    for (const auto& [name, text] : hostileTexts()) {
        SCOPED_TRACE(name);
        passThrough<Update>(
            "t_ChubangJun",
            "Patient_Name, Patient_Jumin, Patient_Email, CBJ_Reci_Tel, CBJ_Reci_Cell, CBJ_Reci_Zip, CBJ_Reci_Address,"
            " CBJ_BesongMsg, CBJ_Reci_Date, CBJ_Send_Hospital, CBJ_Send_Name, CBJ_Send_Tel, CBJ_Send_Cell, CBJ_Send_Zip,"
            " CBJ_Send_Address, CBJ_Msg",
            {&Update::Patient_Name, &Update::Patient_Jumin, &Update::Patient_Email, &Update::CBJ_Reci_Tel,
             &Update::CBJ_Reci_Cell, &Update::CBJ_Reci_Zip, &Update::CBJ_Reci_Address, &Update::CBJ_BesongMsg,
             &Update::CBJ_Reci_Date, &Update::CBJ_Send_Hospital, &Update::CBJ_Send_Name,
             &Update::CBJ_Send_Tel, &Update::CBJ_Send_Cell, &Update::CBJ_Send_Zip, &Update::CBJ_Send_Address,
             &Update::CBJ_Msg},
            row, text, write);
        passThrough<Update>("t_CBJcostDetail", "CCD_BesongCost, CCD_ElseCost",
                            {&Update::CCD_BesongCost, &Update::CCD_ElseCost}, row, text, write);
        passThrough<Update>("t_EatGuide", "BogYak, HospName, PhoneNo",
                            {&Update::BogYak, &Update::HospName, &Update::PhoneNo}, row, text, write);
    }
    row.Patient_Age = "0 OR 1";
    EXPECT_FALSE(write(row)) << "an age is a number";
    EXPECT_EQ(database_.rows("SELECT * FROM t_ChubangJun WHERE CBJ_PK < " + std::to_string(row.CBJ_PK)),
              others);
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
        for (const std::int16_t kind : {2, 3}) {
            for (const char* end : {">", "!"}) {
                array_.reDim(-1, 6);
                ASSERT_EQ(operations_.RecordSet_CBJmInfo(*connection_, set_, array_, kind, 1,
                                                         "<" + text + end, "", ""),
                          1);
                EXPECT_EQ(array_.rowCount(), *end == '>' ? 1U : 0U) << "kind " << kind;
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
        EXPECT_EQ(operations_.RecordSet_CBJmInfo(*connection_, set_, array_, 1, 1, "", text, text), 1);
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
