#include "tables/XArrayDB.h"

#include <gtest/gtest.h>

#include <random>

#include "basics/Fault.h"

namespace zelvo::tables {
namespace {

TEST(XArrayDB, cellsGiveTheirTextForm) {
    XArrayDB array;
    array.reDim(0, 7);
    array.set(0, 1, true);
    array.set(0, 2, false);
    array.set(0, 3, -2147483647);
    array.set(0, 4, std::int64_t{9000000000});
    array.set(0, 5, 17.1F);
    array.set(0, 6, "True");
    array.set(0, 7, std::string(16, 'x'));
    const std::pair<std::string, bool> expected[] = {
        {"", false},          {"-1", true},   {"0", false},   {"-2147483647", true},
        {"9000000000", true}, {"17.1", true}, {"True", true}, {std::string(16, 'x'), false}};
    for (int column = 0; column <= 7; ++column) {
        EXPECT_EQ(array.text(0, column), expected[column].first);
        EXPECT_EQ(array.isTrue(0, column), expected[column].second) << column;
        EXPECT_EQ(array.isNothing(0, column), column == 0);
        EXPECT_EQ(array.find(0, column, array.text(0, column)), column == 0 ? -1 : 0);
    }
    for (const std::string text : {"abcdefgh", "a text that is too long for the cell itself"}) {
        array.set(0, 0, text);
        array.set(0, 0, array.textView(0, 0).substr(2));
        EXPECT_EQ(array.text(0, 0), text.substr(2)) << "taken out of the cell itself";
    }
}

TEST(XArrayDB, whatLiesOutsideIsAFaultForTheLogicAndNothingForAGrid) {
    XArrayDB array;
    array.reDim(1, 2);
    const std::vector<std::function<void()>> outside{
        [&] { array.text(2, 0); },       [&] { array.text(-1, 0); },       [&] { array.set(0, 3, "x"); },
        [&] { array.set(0, -1, true); }, [&] { array.insertRows(3); },     [&] { array.insertRows(-1); },
        [&] { array.deleteRows(1, 2); }, [&] { array.deleteRows(0, -1); }, [&] { array.find(0, 3, "x"); },
    };
    for (std::size_t i = 0; i < outside.size(); ++i) EXPECT_THROW(outside[i](), basics::Fault) << i;
    EXPECT_EQ(array.cellText(2, 0) + array.cellText(0, -1), "");
    EXPECT_FALSE(array.setCellText(0, 3, "x") || array.removeRow(2));
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
            ASSERT_EQ(array.cellText(row, static_cast<int>(column)), model[row][column]);
        }
    }
}

TEST(XArrayDB, behavesLikeAPlainTableUnderRandomWork) {
    constexpr std::size_t columns = 4;
    std::mt19937 random(20240229);
    XArrayDB array;
    Model model;
    array.reDim(-1, columns - 1);
    for (int step = 0; step <= 20000; ++step) {
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
}

}  // namespace
}  // namespace zelvo::tables
