#include "tables/XArrayDB.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <random>

#include "basics/Fault.h"

namespace zelvo::tables {
namespace {

TEST(XArrayDB, cellsGiveTheirTextForm) {
    XArrayDB array;
    array.reDim(0, 9);
    array.set(0, 1, true);
    array.set(0, 2, false);
    array.set(0, 3, -2147483647);
    array.set(0, 4, std::int64_t{9000000000});
    array.set(0, 5, 17.1F);
    array.set(0, 6, 0.25);
    array.set(0, 7, "True");
    array.set(0, 8, std::string(15, 'x'));
    array.set(0, 9, std::string(16, 'x'));
    const std::vector<std::pair<std::string, bool>> expected{
        {"", false},
        {"-1", true},
        {"0", false},
        {"-2147483647", true},
        {"9000000000", true},
        {"17.1", true},
        {"0.25", true},
        {"True", true},
        {std::string(15, 'x'), false},
        {std::string(16, 'x'), false},
    };
    for (int column = 0; column <= 9; ++column) {
        const auto& [text, truth] = expected[static_cast<std::size_t>(column)];
        EXPECT_EQ(array.text(0, column), text);
        EXPECT_EQ(array.isTrue(0, column), truth) << column;
        EXPECT_EQ(array.isNothing(0, column), column == 0);
        EXPECT_EQ(array.textView(0, column), column >= 7 ? text : "");
        EXPECT_EQ(array.find(0, column, text), text.empty() ? -1 : 0);
    }
    array.set(0, 9, "");
    EXPECT_FALSE(array.isNothing(0, 9));
    array.setNothing(0, 9);
    EXPECT_TRUE(array.isNothing(0, 9));
}

TEST(XArrayDB, aCellTakesATextOutOfItself) {
    XArrayDB array;
    array.reDim(0, 1);
    array.set(0, 0, "abcdefgh");
    array.set(0, 0, array.textView(0, 0).substr(2));
    EXPECT_EQ(array.text(0, 0), "cdefgh");
    array.set(0, 1, "a text that is too long for the cell itself");
    array.set(0, 1, array.textView(0, 1).substr(7));
    EXPECT_EQ(array.text(0, 1), "that is too long for the cell itself");
}

TEST(XArrayDB, whatLiesOutsideIsAFaultForTheLogicAndNothingForAGrid) {
    XArrayDB array;
    EXPECT_TRUE(array.empty());
    array.reDim(-1, 2);
    EXPECT_EQ(array.upperRow(), -1);
    EXPECT_EQ(array.upperColumn(), 2);
    EXPECT_EQ(array.find(0, 1, "x"), -1);
    array.insertRows(0, 2);
    const std::vector<std::function<void()>> outside{
        [&] { array.text(2, 0); },       [&] { array.text(-1, 0); },       [&] { array.set(0, 3, "x"); },
        [&] { array.set(0, -1, true); }, [&] { array.insertRows(3); },     [&] { array.insertRows(-1); },
        [&] { array.deleteRows(1, 2); }, [&] { array.deleteRows(0, -1); }, [&] { array.find(0, 3, "x"); },
        [&] { array.reDim(-2, 0); },
    };
    for (std::size_t i = 0; i < outside.size(); ++i) EXPECT_THROW(outside[i](), basics::Fault) << i;
    EXPECT_EQ(array.cellText(2, 0), "");
    EXPECT_EQ(array.cellText(0, -1), "");
    EXPECT_FALSE(array.setCellText(0, 3, "x"));
    EXPECT_FALSE(array.removeRow(2));
    EXPECT_EQ(array.rowCount(), 2U);
}

TEST(XArrayDB, generationTellsReplacedRowsFromSingleOnes) {
    XArrayDB array;
    array.reDim(1, 1);
    const auto before = array.generation();
    array.insertRows(1);
    array.deleteRows(0);
    EXPECT_EQ(array.generation(), before);
    array.reDim(1, 1);
    EXPECT_NE(array.generation(), before);

    XArrayDB other;
    other.reDim(0, 1);
    other.set(0, 0, "other");
    const auto replaced = array.generation();
    array = std::move(other);
    EXPECT_NE(array.generation(), replaced);
    EXPECT_EQ(array.text(0, 0), "other");
    const XArrayDB taken(std::move(array));
    EXPECT_EQ(taken.text(0, 0), "other");
    EXPECT_TRUE(
        array.empty());  // NOLINT(bugprone-use-after-move): an array that was moved from is an empty one
}

/// What an array has to be like, written down plainly.
using Model = std::vector<std::vector<std::string>>;

std::string randomText(std::mt19937& random) {
    static const std::vector<std::size_t> lengths{0, 1, 5, 14, 15, 16, 17, 40, 300, 5000};
    std::string text(lengths[random() % lengths.size()], 'a');
    for (char& c : text) c = static_cast<char>('a' + random() % 26);
    return text;
}

void expectSame(const XArrayDB& array, const Model& model) {
    ASSERT_EQ(array.rowCount(), model.size());
    for (std::size_t row = 0; row < model.size(); ++row) {
        for (std::size_t column = 0; column < model[row].size(); ++column) {
            ASSERT_EQ(array.cellText(row, static_cast<int>(column)), model[row][column])
                << row << "," << column;
        }
    }
}

TEST(XArrayDB, behavesLikeAPlainTableUnderRandomWork) {
    constexpr std::size_t columns = 4;
    std::mt19937 random(20240229);
    XArrayDB array;
    Model model;
    array.reDim(-1, columns - 1);
    for (int step = 0; step < 20000; ++step) {
        const auto position = model.empty() ? 0 : random() % (model.size() + 1);
        const auto row = static_cast<int>(position);
        const auto at = model.begin() + row;
        const auto choice = random() % 100;
        if (choice < 12) {
            const auto count = random() % 4;
            array.insertRows(row, static_cast<int>(count));
            model.insert(at, count, std::vector<std::string>(columns));
        } else if (choice < 22 && position < model.size()) {
            const auto count = std::min<std::size_t>(random() % 5, model.size() - position);
            array.deleteRows(row, static_cast<int>(count));
            model.erase(at, at + static_cast<std::ptrdiff_t>(count));
        } else if (position < model.size()) {
            const auto column = random() % columns;
            model[position][column] = randomText(random);
            array.set(row, static_cast<int>(column), model[position][column]);
        }
        if (choice == 99 && step % 7 == 0) {
            array.reDim(static_cast<int>(random() % 3) - 1, columns - 1);
            model.assign(array.rowCount(), std::vector<std::string>(columns));
        }
        if (step % 500 == 0) expectSame(array, model);
    }
    expectSame(array, model);
    for (std::size_t row = 0; row < model.size(); ++row) {
        const auto& text = model[row][2];
        const auto found =
            std::find_if(model.begin(), model.end(), [&](const auto& cells) { return cells[2] == text; });
        EXPECT_EQ(array.find(0, 2, text), text.empty() ? -1 : static_cast<int>(found - model.begin()));
    }
}

long peakMemoryMb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

TEST(XArrayDB, aTextThatIsRewrittenForAWholeDayNeedsNoMoreMemory) {
    XArrayDB array;
    array.reDim(9, 1);
    array.set(9, 1, "a text that lives on, longer than its cell");
    const long before = peakMemoryMb();
    const std::string text(10'000, 'x');
    for (int i = 0; i < 50'000; ++i) array.set(i % 9, 0, text);  // half a gigabyte in all
    EXPECT_LT(peakMemoryMb() - before, 350);
    EXPECT_EQ(array.text(8, 0), text);
    EXPECT_EQ(array.text(9, 1), "a text that lives on, longer than its cell");
}

}  // namespace
}  // namespace zelvo::tables
