#include <gtest/gtest.h>

#include "DataTests.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "data/Statement.h"

namespace zelvo::data {

using testing::hostileTexts;
using testing::sampleOrder;
using testing::TestDatabase;

class TextSafety : public ::testing::Test {
protected:
    TestDatabase database_;
    std::unique_ptr<Connection> connection_ = database_.connect();
    clsZELVORecordSet operations_;
    tables::XArrayDB array_;
    RecordSet set_;

    std::string latest(const std::string& table, const std::string& column) {
        RecordSet found;
        connection_->open(found, "SELECT " + column + " FROM " + table + " ORDER BY rowid DESC LIMIT 1",
                          Cursor::Static);
        return found.text(0);
    }
    /// How the doctors and herbs stand: nothing that goes into another table may touch them.
    std::string bystanders() const {
        return database_.value(
            "SELECT (SELECT group_concat(DTR_PK||DTR_ID||DTR_PWD) FROM t_Doctor) || (SELECT count(*) FROM t_DrugList)");
    }
};

TEST_F(TextSafety, WritesStoreWhatTheyGot) {
    struct Argument {
        std::string table, column;
        std::function<std::int32_t(const std::string&)> write;
    };
    std::vector<Argument> arguments;
    const std::pair<const char*, std::string ChubangJun::*> orderTexts[] = {
        {"Patient_Name", &ChubangJun::Patient_Name},
        {"Patient_Jumin", &ChubangJun::Patient_Jumin},
        {"Patient_Email", &ChubangJun::Patient_Email},
        {"CBJ_TJAL_Slot", &ChubangJun::CBJ_TJAL_Slot},
        {"CBJ_Send_Name", &ChubangJun::CBJ_Send_Name},
        {"CBJ_Send_Zip", &ChubangJun::CBJ_Send_Zip},
        {"CBJ_Send_Address", &ChubangJun::CBJ_Send_Address},
        {"CBJ_Send_Tel", &ChubangJun::CBJ_Send_Tel},
        {"CBJ_Send_Cell", &ChubangJun::CBJ_Send_Cell},
        {"CBJ_Send_Hospital", &ChubangJun::CBJ_Send_Hospital},
        {"CBJ_Reci_Zip", &ChubangJun::CBJ_Reci_Zip},
        {"CBJ_Reci_Address", &ChubangJun::CBJ_Reci_Address},
        {"CBJ_Reci_Tel", &ChubangJun::CBJ_Reci_Tel},
        {"CBJ_Reci_Cell", &ChubangJun::CBJ_Reci_Cell},
        {"CBJ_Reci_Date", &ChubangJun::CBJ_Reci_Date},
        {"CBJ_BesongMsg", &ChubangJun::CBJ_BesongMsg},
        {"CBJ_Msg", &ChubangJun::CBJ_Msg}};
    for (const auto& [column, member] : orderTexts) {
        arguments.push_back({"t_ChubangJun", column, [this, member = member](const std::string& text) {
                                 ChubangJun order = sampleOrder();
                                 order.*member = text;
                                 return operations_.Insert_ChubangJun(*connection_, order);
                             }});
    }
    const std::pair<const char*, std::string CostNotes::*> noteTexts[] = {
        {"CCD_JojeCost", &CostNotes::CCD_JojeCost},   {"CCD_DrugCost", &CostNotes::CCD_DrugCost},
        {"CCD_TJMLcost", &CostNotes::CCD_TJMLcost},   {"CCD_TJALCost", &CostNotes::CCD_TJALCost},
        {"CCD_PouchCost", &CostNotes::CCD_PouchCost}, {"CCD_BoxCost", &CostNotes::CCD_BoxCost},
        {"CCD_FormCost", &CostNotes::CCD_FormCost},   {"CCD_BesongCost", &CostNotes::CCD_BesongCost},
        {"CCD_VATCost", &CostNotes::CCD_VATCost},     {"CCD_ElseCost", &CostNotes::CCD_ElseCost}};
    std::int32_t key = 1'000;
    for (const auto& [column, member] : noteTexts) {
        arguments.push_back(
            {"t_CBJcostDetail", column, [this, &key, member = member](const std::string& text) {
                 CostNotes notes;
                 notes.*member = text;
                 return operations_.Insert_ChubangJun_CostDetail(*connection_, ++key, notes);
             }});
    }
    const auto detail = [this](std::string HerbLine::*member) {
        return [this, member](const std::string& text) {
            HerbLine line;
            line.*member = text;
            return operations_.Insert_ChubangJun_Detail(*connection_, 1, line);
        };
    };
    arguments.push_back({"t_CBJDetail", "DGL_CallSign", detail(&HerbLine::DGL_CallSign)});
    arguments.push_back({"t_CBJDetail", "DET_Note", detail(&HerbLine::DET_Note)});
    const auto sheet = [this, &key](int place) {
        return [this, &key, place](const std::string& text) {
            const std::string none;
            return operations_.Insert_ChubangJun_EatGuide(*connection_, ++key, place == 0 ? text : none,
                                                          place == 1 ? text : none, place == 2 ? text : none);
        };
    };
    arguments.push_back({"t_EatGuide", "BogYak", sheet(0)});
    arguments.push_back({"t_EatGuide", "HospName", sheet(1)});
    arguments.push_back({"t_EatGuide", "PhoneNo", sheet(2)});
    arguments.push_back({"t_Stock", "STK_Date", [this](const std::string& text) {
                             return operations_.Insert_ChubangJun_Mileage(*connection_, 1, 1, 100, text);
                         }});

    const std::string before = bystanders();
    Transaction transaction(*connection_);
    for (const Argument& argument : arguments) {
        for (const auto& [name, text] : hostileTexts()) {
            ASSERT_GT(argument.write(text), 0) << argument.column << ", " << name;
            EXPECT_EQ(latest(argument.table, argument.column), basics::cleanUtf8(text))
                << argument.column << ", " << name;
        }
    }
    EXPECT_EQ(transaction.commit(), CommitOutcome::Done);
    EXPECT_EQ(bystanders(), before);
}

TEST_F(TextSafety, ValueWithALaterPlaceholderIsSubstituted) {
    ChubangJun order = sampleOrder();
    order.Patient_Name = "'[CBJ_Msg]' [CBJ_State][DTR_PK]";
    order.CBJ_Msg = "it's";
    ASSERT_GT(operations_.Insert_ChubangJun(*connection_, order), 0);
    EXPECT_EQ(latest("t_ChubangJun", "Patient_Name"), "'it's' 0[DTR_PK]");
}

TEST_F(TextSafety, SearchesFindWhatHoldsTheWordAndNothingElse) {
    database_.run(
        "DELETE FROM t_ChubangJun; UPDATE t_Doctor SET DTR_PWD = 'secret';"
        "INSERT INTO t_DrugDanga VALUES (9001, 10, '2000-01-01', '2999-12-31');"
        "INSERT INTO t_DrugList VALUES (9001, 'x', 'inside', 0, 1)");
    const std::int32_t order = operations_.Insert_ChubangJun(*connection_, sampleOrder());
    for (const auto& [name, text] : hostileTexts()) {
        SCOPED_TRACE(name);
        const std::string stored = basics::cleanUtf8(text), withoutQuotes = basics::removeAll(stored, "'");
        const bool wildcard = text.find('%') != std::string::npos;
        const auto literal = [](const std::string& value) {
            return Statement("'[V]'").fill("[V]", value).text();
        };
        database_.run("UPDATE t_DrugList SET DGL_CallSign = " + literal("<" + stored + ">") +
                      " WHERE DGL_PK = 9001;"
                      "UPDATE t_ChubangJun SET Patient_Name = " +
                      literal("<" + withoutQuotes + ">") +
                      ";"
                      "UPDATE t_Doctor SET DTR_Name = " +
                      literal("<" + withoutQuotes + ">") + ", DTR_ID = " + literal(stored) +
                      " WHERE DTR_PK = 1");

        ASSERT_EQ(operations_.RecordSet_YakGukDrugList(*connection_, set_, "<" + text + ">"), 1);
        EXPECT_EQ(set_.rowCount(), 1U);
        for (const std::int16_t kind : {2, 3}) {
            array_.reDim(-1, 6);
            ASSERT_EQ(
                operations_.RecordSet_CBJmInfo(*connection_, set_, array_, kind, 1, "<" + text + ">", "", ""),
                1);
            EXPECT_EQ(array_.rowCount(), 1U);
            ASSERT_EQ(
                operations_.RecordSet_CBJmInfo(*connection_, set_, array_, kind, 1, "<" + text + "!", "", ""),
                1);
            EXPECT_EQ(array_.rowCount(), 1U) << "found what it should not";
        }

        std::int32_t doctor = 0;
        EXPECT_FALSE(operations_.RecordSet_LoginCheck(*connection_, text, text, doctor));
        EXPECT_TRUE(operations_.RecordSet_LoginCheck(*connection_, text, "secret", doctor));
        EXPECT_EQ(doctor, 1);
        DoctorRecord record;
        record.DTR_ID = text;
        record.DTR_PWD = text;
        EXPECT_EQ(operations_.RecordSet_DoctorInfo(*connection_, 1, record), 0);
        record.DTR_PWD = "secret";
        EXPECT_EQ(operations_.RecordSet_DoctorInfo(*connection_, 1, record), 1);
        EXPECT_EQ(record.DTR_ID, stored);
        EXPECT_FALSE(wildcard && operations_.RecordSet_LoginCheck(*connection_, "%", "%", doctor));
    }
    EXPECT_EQ(database_.value("SELECT CBJ_PK FROM t_ChubangJun"), std::to_string(order));
}

TEST_F(TextSafety, DatesAndKindsAreTextsToo) {
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
    }
}

TEST_F(TextSafety, BarePlaceholdersTakeNumbersOnly) {
    testing::FaultyConnection watched(database_.connect());
    clsZELVOStockmoney money;
    for (const auto& [name, text] : hostileTexts()) {
        SCOPED_TRACE(name);
        std::string herb = "before", price = "before";
        EXPECT_EQ(operations_.RecordSet_HapBang(watched, text, herb, price), -1);
        std::int32_t sum = 5;
        EXPECT_FALSE(money.ZELVO_CBJcostSum(watched, sum, 1, "", text, "", ""));
        EXPECT_EQ(sum, 0);
        ChubangJun order = sampleOrder();
        order.CBJ_RegDate = text;
        EXPECT_EQ(operations_.Insert_ChubangJun(watched, order), -1) << "no date";
    }
    for (const std::string& statement : watched.statements) EXPECT_EQ(statement, "SELECT GETDATE()");
}

}  // namespace zelvo::data
