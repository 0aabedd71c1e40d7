// What the statement layer asks of every driver.
#include <gtest/gtest.h>

#include "basics/Fault.h"
#include "data/RecordSet.h"
#include "data/Statement.h"
#include "support/TestDatabase.h"

namespace zelvo::data {

using basics::Fault;
using testing::TestDatabase;

struct Driver {
    const char* name;
    std::unique_ptr<Connection> (*connect)(const TestDatabase&);
};

class Port : public ::testing::TestWithParam<Driver> {
protected:
    Port() {
        database_.run(
            "INSERT INTO t_UserChubang (UCB_PK, DTR_PK, UCB_Name, UCB_Date, UCB_Note) VALUES"
            " (9, 1, 'b', '2024-02-01', 'x'), (10, 1, 'A', '2024-01-01 09:00:00', NULL),"
            " (2, 1, '십전', NULL, ''), (30, 1, 'a', '2023-12-31', 'x');");
    }
    std::unique_ptr<Connection> connect() const { return GetParam().connect(database_); }
    void openChubang(Connection& connection, RecordSet& set, Cursor cursor = Cursor::Keyset) const {
        connection.open(set, "SELECT * FROM t_UserChubang  WHERE DTR_PK = 1", cursor,
                        {"t_UserChubang", "UCB_PK"});
    }
    static std::string column(const RecordSet& set, std::string_view field) {
        std::string all;
        for (std::size_t row = 0; row < set.rowCount(); ++row)
            all += set.cellText(row, set.columnOf(field)) + ";";
        return all;
    }
    TestDatabase database_{false};
};

TEST_P(Port, SaysValuesAsEveryDriverDoes) {
    database_.run(
        "INSERT INTO t_Doctor (DTR_PK, DTR_ID, DTR_PWD, DTR_Discount, DTR_Mileage, DTR_VIP, DTR_IsUsePouch, DTR_RegDate)"
        " VALUES (7, 'kim', 'pw', 4, 0.1, 1, 0, '2024-05-06 09:00:00')");
    const auto connection = connect();
    RecordSet set;
    connection->open(set, "SELECT * FROM t_Doctor", Cursor::Static);
    const std::pair<const char*, const char*> expected[] = {{"dtr_pk", "7"},
                                                            {"DTR_Discount", "4"},
                                                            {"DTR_Mileage", "0.1"},
                                                            {"DTR_VIP", "True"},
                                                            {"DTR_IsUsePouch", "False"},
                                                            {"DTR_Name", ""},
                                                            {"DTR_RegDate", "2024-05-06 09:00:00"}};
    for (const auto& [field, text] : expected) EXPECT_EQ(set.text(field), text) << field;
    EXPECT_TRUE(set.isNull("DTR_Name"));
    EXPECT_FALSE(set.isNull("DTR_ID"));
    EXPECT_THROW(set.text("DTR_Nme"), Fault);
    set.moveNext();
    EXPECT_TRUE(set.atEnd());
    EXPECT_THROW(set.text(0), Fault);
    EXPECT_THROW(set.moveNext(), Fault);
}

TEST_P(Port, UnderstandsTheServersDialect) {
    database_.run(
        "INSERT INTO t_Doctor (DTR_PK, DTR_Name, DTR_ID, DTR_PWD, DTR_RegDate)"
        " VALUES (7, '김 LEFT(''=''1''', 'Kim', '12', '2024-05-06 09:08:07')");
    const auto connection = connect();
    const struct {
        const char *condition, *found;
    } cases[] = {
        {"LEFT(convert(varchar(10),DTR_RegDate,120),10) >= '2024-05-06'", "7"},
        {"LEFT (convert(varchar(10),DTR_RegDate,120),10) <= '2024-05-05'", ""},
        {"DTR_ID = 'kIM '", "7"},
        {"DTR_ID = 'ki'", ""},
        {"DTR_Name = '김 left(''=''1'''", "7"},
        {"DTR_Name like '%left(''=''%'", "7"},
        {"DTR_PK = '7'", "7"},
        {"DTR_PWD = '12'", "7"},
        {"DTR_PWD = '012'", ""},
        {"DTR_PK >= '7' AND DTR_PK <= '7'", "7"},
    };
    for (const auto& test : cases) {
        RecordSet set;
        connection->open(set, std::string("SELECT DTR_PK FROM t_Doctor WHERE ") + test.condition,
                         Cursor::Static);
        EXPECT_EQ(set.atEnd() ? "" : set.text(0), test.found) << test.condition;
    }
    connection->execute("UPDATE t_Doctor SET DTR_Name = '1', DTR_Refer = 'LEFT(' WHERE DTR_ID = 'KIM'");
    EXPECT_EQ(database_.value("SELECT DTR_Name || DTR_Refer FROM t_Doctor"), "1LEFT(");
}

TEST_P(Port, KeepsASetWhenAnOpenFails) {
    const auto connection = connect();
    RecordSet set;
    openChubang(*connection, set);
    set.moveTo(2);
    const auto generation = set.generation();
    EXPECT_THROW(connection->open(set, "SELECT * FROM t_Nowhere", Cursor::Static), Fault);
    EXPECT_THROW(connection->execute("UPDATE t_Nowhere SET a = 1"), Fault);
    EXPECT_EQ(set.rowCount(), 4U);
    EXPECT_EQ(set.position(), 2U);
    EXPECT_EQ(set.generation(), generation);
    connection->close();
    EXPECT_FALSE(connection->isOpen());
    EXPECT_THROW(openChubang(*connection, set), Fault);
    EXPECT_THROW(connection->begin(), Fault);
}

TEST_P(Port, SortsAndFinds) {
    const auto connection = connect();
    RecordSet set;
    openChubang(*connection, set);
    set.moveTo(3);
    const std::pair<const char*, const char*> orders[] = {{"UCB_Name DESC ", "2;9;10;30;"},
                                                          {"UCB_Name  ASC ", "10;30;9;2;"},
                                                          {"ucb_pk", "2;9;10;30;"},
                                                          {"UCB_Date DESC ", "9;10;30;2;"},
                                                          {"UCB_Note, UCB_PK desc", "10;2;30;9;"}};
    for (const auto& [order, keys] : orders) {
        const auto generation = set.generation();
        set.sort(order);
        EXPECT_EQ(column(set, "UCB_PK"), keys) << order;
        EXPECT_EQ(set.position(), 0U);
        EXPECT_NE(set.generation(), generation);
    }
    for (const char* order : {"UCB_Nme", "UCB_Name DOWN", "", "UCB_Name ASC ASC"})
        EXPECT_THROW(set.sort(order), Fault) << order;

    const std::pair<const char*, const char*> conditions[] = {
        {"UCB_PK = 30", "a"}, {"UCB_PK = 9 ", "b"}, {"UCB_Name = 'B'", "b"}};
    for (const auto& [condition, name] : conditions) {
        set.find(condition);
        EXPECT_EQ(set.text("UCB_Name"), name) << condition;
    }
    set.find("UCB_PK = 31");
    EXPECT_TRUE(set.atEnd());
    for (const char* condition : {"UCB_PK", "UCB_PK = ", "UCB_PK = x", "UCB_Nme = 1"}) {
        EXPECT_THROW(set.find(condition), Fault) << condition;
    }
}

TEST_P(Port, SendsChangedRowsBack) {
    const auto connection = connect();
    RecordSet set, fixed;
    openChubang(*connection, set);
    set.sort("UCB_PK DESC");  // 30, 10, 9, 2
    const int note = set.columnOf("UCB_Note");
    ASSERT_TRUE(set.setCellText(1, note, "it's [UCB_PK] 당귀"));
    EXPECT_EQ(database_.value("SELECT UCB_Note FROM t_UserChubang WHERE UCB_PK = 10"), "");
    ASSERT_TRUE(set.writeRow(1));
    EXPECT_EQ(database_.value("SELECT UCB_Note FROM t_UserChubang WHERE UCB_PK = 10"), "it's [UCB_PK] 당귀");
    EXPECT_EQ(database_.value("SELECT count(*) FROM t_UserChubang WHERE UCB_Note = 'x'"), "2");

    set.moveTo(2);
    ASSERT_TRUE(set.removeRow(1));
    EXPECT_EQ(set.text("UCB_PK"), "9");
    EXPECT_EQ(column(set, "UCB_PK"), "30;9;2;");
    EXPECT_EQ(database_.value("SELECT count(*) FROM t_UserChubang"), "3");

    EXPECT_FALSE(set.setCellText(0, set.columnOf("UCB_PK"), "5")) << "a key stays";
    database_.run("DELETE FROM t_UserChubang WHERE UCB_PK = 30");
    ASSERT_TRUE(set.setCellText(0, note, "late"));
    EXPECT_FALSE(set.writeRow(0)) << "somebody has taken the row away";
    EXPECT_FALSE(set.removeRow(0));
    EXPECT_EQ(set.rowCount(), 3U);

    openChubang(*connection, fixed, Cursor::Static);
    EXPECT_FALSE(fixed.setCellText(0, note, "no"));
    EXPECT_FALSE(fixed.removeRow(0));
    connection->close();
    EXPECT_FALSE(set.removeRow(1)) << "the connection has gone";
}

TEST_P(Port, KeepsOrDropsATransactionAsAWhole) {
    const auto insert = [](Connection& connection, int key) {
        connection.execute(Statement("INSERT INTO t_EatGuide (CBJ_PK) VALUES ([K])").fill("[K]", key).text());
    };
    const auto connection = connect();
    {
        Transaction transaction(*connection);
        insert(*connection, 1);
    }
    {
        Transaction transaction(*connection);
        insert(*connection, 2);
        EXPECT_EQ(transaction.commit(), CommitOutcome::Done);
    }
    {
        Transaction transaction(*connection);
        insert(*connection, 3);
        transaction.rollback();
        EXPECT_EQ(transaction.commit(), CommitOutcome::Refused);
    }
    {
        // A failed statement does not end the transaction by itself.
        Transaction transaction(*connection);
        insert(*connection, 4);
        EXPECT_THROW(insert(*connection, 4), Fault);
        insert(*connection, 5);
        EXPECT_EQ(transaction.commit(), CommitOutcome::Done);
    }
    EXPECT_EQ(database_.value("SELECT group_concat(CBJ_PK) FROM t_EatGuide"), "2,4,5");
    EXPECT_THROW(
        {
            Transaction outer(*connection);
            Transaction inner(*connection);
        },
        Fault);
}

INSTANTIATE_TEST_SUITE_P(Drivers, Port,
                         ::testing::Values(Driver{
                             "Sqlite", [](const TestDatabase& database) { return database.connect(); }}),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace zelvo::data
