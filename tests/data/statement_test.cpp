#include "data/Statement.h"

#include <gtest/gtest.h>

#include "basics/Fault.h"

using zelvo::data::Statement;

TEST(Statement, PutsEachValueWhereItsPlaceholderStands) {
    const std::pair<Statement, std::string> cases[] = {
        {Statement("[A],[A] [a]").fill("[A]", -7), "-7,-7 [a]"},
        {Statement("[A]").fill("[A]", 0.1F), "0.1"},
        {Statement("x = [A] AND y = '[A]'").fill("[A]", " 1,234 "), "x = 1234 AND y = ' 1,234 '"},
        {Statement("[A]").fill("[A]", "  "), "0"},
        {Statement("'' + [A]").fill("[A]", "5"), "'' + 5"},
        {Statement("'[A]', [B]").fill("[A]", "a[B]").fill("[B]", 3), "'a3', 3"},
        {Statement("'[A]'").fill("[A]", "'[B]'").fill("[B]", "'"), "''''''''"},
        {Statement("LIKE '%[A]%'").fill("[A]", "[A]5%_'"), "LIKE '%[A]5%_''%'"},
    };
    for (const auto& [statement, text] : cases) EXPECT_EQ(statement.text(), text);
    for (const char* text : {"1 OR 1=1", "x", "1;2", "--", "'", "[A]", "0x10", "1e5"}) {
        Statement bare("WHERE k = [A]");
        EXPECT_THROW(bare.fill("[A]", text), zelvo::basics::Fault) << text;
        EXPECT_EQ(bare.text(), "WHERE k = [A]");
    }
}
