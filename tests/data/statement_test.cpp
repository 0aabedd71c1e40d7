#include <gtest/gtest.h>

#include "basics/Fault.h"
#include "data/Statement.h"

using zelvo::basics::Fault;
using zelvo::data::Statement;

TEST(Statement, PutsEachValueWhereItsPlaceholderStands) {
    using Fill = std::function<void(Statement&)>;
    const struct {
        std::string name, text;
        Fill fill;
        std::string expected;
    } cases[] = {
        {"every occurrence", "[A],[A]", [](Statement& s) { s.fill("[A]", 7); }, "7,7"},
        {"case-sensitive", "[a] [A]", [](Statement& s) { s.fill("[A]", -7); }, "[a] -7"},
        {"shortest single", "[A]", [](Statement& s) { s.fill("[A]", 0.1F); }, "0.1"},
        {"quoted", "'[A]'", [](Statement& s) { s.fill("[A]", "it's"); }, "'it''s'"},
        {"quoted and bare", "x = [A] AND y = '[A]'", [](Statement& s) { s.fill("[A]", " 1,234 "); },
         "x = 1234 AND y = ' 1,234 '"},
        {"bare blank", "[A]", [](Statement& s) { s.fill("[A]", "  "); }, "0"},
        {"behind an empty literal", "'' + [A]", [](Statement& s) { s.fill("[A]", "5"); }, "'' + 5"},
        {"value with a later placeholder", "'[A]', [B]",
         [](Statement& s) { s.fill("[A]", "a[B]").fill("[B]", 3); }, "'a3', 3"},
        {"later text inside a filled literal", "'[A]'",
         [](Statement& s) { s.fill("[A]", "'[B]'").fill("[B]", "'"); }, "''''''''"},
        {"the same placeholder in its own value", "'[A]'", [](Statement& s) { s.fill("[A]", "[A]"); },
         "'[A]'"},
        {"wildcards stay", "LIKE '%[A]%'", [](Statement& s) { s.fill("[A]", "5%_"); }, "LIKE '%5%_%'"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        Statement statement(test.text);
        test.fill(statement);
        EXPECT_EQ(statement.text(), test.expected);
    }
}

TEST(Statement, LetsOnlyNumbersStandBare) {
    for (const char* text : {"1 OR 1=1", "x", "1;2", "--", "'", "[A]", "0x10", "1e5"}) {
        Statement statement("WHERE k = [A]");
        EXPECT_THROW(statement.fill("[A]", text), Fault) << text;
        EXPECT_EQ(statement.text(), "WHERE k = [A]");
    }
}
