#include "ordering/CostAnswer.h"

#include "support/OrderWindow.h"

namespace zelvo::ordering {
namespace {

using testing::CostPage;

std::string withBody(const std::string& body) {
    return "[START]" + body + "[END]";
}
/// So many elements behind the first.
std::string lines(int count, const std::string& element = "5&") {
    std::string text;
    for (int i = 0; i < count; ++i) text += "/*/" + element;
    return text;
}

TEST(CostAnswer, ReadsAmountsNotesAndMileage) {
    const CostAnswer answer = readCostAnswer(CostPage::priced(72040, 720));
    ASSERT_EQ(answer.reading, CostReading::Good);
    EXPECT_EQ(answer.total.amount, 72040);
    ASSERT_EQ(answer.lines.size(), 10U);
    EXPECT_EQ(answer.lines[1].amount, 72040);
    EXPECT_EQ(answer.lines[9].note, "note 10\r\nmore");
    EXPECT_EQ(answer.mileage, 720);
    const CostAnswer update = readCostAnswer(withBody("1" + lines(13, "7&a&b") + "/*/9"), updateCostLines);
    EXPECT_EQ(update.lines.at(11).note, "a&b") << "only the first & divides";
    EXPECT_EQ(update.mileage, 9);
}

TEST(CostAnswer, TellsWhatIsWrong) {
    using enum CostReading;
    const std::string page = "비용계산 서버 웹페이지 오류";
    const std::string empty = "비용계산 서버 웹페이지의 답변이 비어 있습니다. 잠시 후 다시 실행해 주십시오.";
    const struct {
        std::string answer;
        CostReading reading;
        std::string reason;
    } cases[] = {
        {"", NoStart, empty},
        {" \r\n", NoStart, empty},
        {"<h1>404</h1>", NoStart, "<h1>404</h1>"},
        {"[END]1/*/[START]", NoEnd, page + "([END] 문자열 찾기 실패)"},
        {withBody("0 휴업"), NoSeparator, page + "(/*/ 문자열 찾기 실패)"},
        {withBody("0/*/휴업&amp;점검"), Refused, "비용계산 실패(0/*/휴업&amp;점검)"},
        {withBody("/*/5&"), Refused, "비용계산 실패(/*/5&)"},
        {withBody("1" + lines(11, " 2147483647\r\n&") + "/*/-2147483648"), Good, ""},
    };
    for (const auto& test : cases) {
        const CostAnswer answer = readCostAnswer(test.answer);
        EXPECT_EQ(answer.reading, test.reading) << test.answer;
        EXPECT_EQ(answer.reason, test.reason);
    }
    const std::pair<const char*, std::string> faults[] = {
        {"mileage missing", lines(11)},
        {"no divider", lines(11, "5") + "/*/1"},
        {"answer of a modification", lines(13) + "/*/1"},
        {"beyond 32 bits", lines(11, "2147483648&") + "/*/1"},
        {"separators", lines(11, "1,000&") + "/*/1"},
        {"half a won", lines(11, "10.5&") + "/*/1"},
        {"exponent", lines(11, "1e3&") + "/*/1"},
        {"empty amount", lines(11, "&note") + "/*/1"},
        {"mileage no number", lines(11) + "/*/abc"},
        {"huge", lines(200000)},
    };
    for (const auto& [name, body] : faults) {
        const CostAnswer answer = readCostAnswer(withBody("1" + body));
        EXPECT_EQ(answer.reading, Fault) << name;
        EXPECT_LT(answer.reason.size(), 300U) << name;
    }
}

TEST(CostAnswer, ACutAnswerIsNeverAPrice) {
    const std::string whole = CostPage::priced(72040, 720);
    for (std::size_t cut = 0; cut < whole.size(); ++cut) {
        const CostReading reading = readCostAnswer(std::string_view(whole).substr(0, cut)).reading;
        EXPECT_EQ(reading == CostReading::Good, cut >= whole.find("[END]") + 5) << "cut at " << cut;
    }
}

}  // namespace
}  // namespace zelvo::ordering
