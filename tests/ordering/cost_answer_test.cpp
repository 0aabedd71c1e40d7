#include "ordering/CostAnswer.h"

#include "support/OrderWindow.h"

namespace zelvo::ordering {
namespace {

using testing::CostPage;

std::string withBody(const std::string& body) {
    return "[START]" + body + "[END]";
}
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
    const struct {
        const char* name;
        std::string answer;
        CostReading reading;
        const char* reason = nullptr;
    } cases[] = {
        {"empty", "", CostReading::NoStart, ""},
        {"no page of ours", "<h1>404</h1>", CostReading::NoStart, "<h1>404</h1>"},
        {"end before start", "[END]1/*/[START]", CostReading::NoEnd,
         "비용계산 서버 웹페이지 오류([END] 문자열 찾기 실패)"},
        {"nothing inside", withBody(""), CostReading::NoSeparator,
         "비용계산 서버 웹페이지 오류(/*/ 문자열 찾기 실패)"},
        {"refusal without separator", withBody("0 휴업"), CostReading::NoSeparator},
        {"refusal", withBody("0/*/휴업&amp;점검"), CostReading::Refused, "비용계산 실패(0/*/휴업&amp;점검)"},
        {"starts with a separator", withBody("/*/" + lines(12)), CostReading::Refused},
        {"mileage missing", withBody("1" + lines(11)), CostReading::Fault},
        {"no divider", withBody("1" + lines(11, "5") + "/*/1"), CostReading::Fault},
        {"answer of a modification", withBody("1" + lines(13) + "/*/1"), CostReading::Fault},
        {"most that fits", withBody("1" + lines(11, " 2147483647\r\n&") + "/*/-2147483648"),
         CostReading::Good},
        {"beyond 32 bits", withBody("1" + lines(11, "2147483648&") + "/*/1"), CostReading::Fault},
        {"separators", withBody("1" + lines(11, "1,000&") + "/*/1"), CostReading::Fault},
        {"half a won", withBody("1" + lines(11, "10.5&") + "/*/1"), CostReading::Fault},
        {"exponent", withBody("1" + lines(11, "1e3&") + "/*/1"), CostReading::Fault},
        {"empty amount", withBody("1" + lines(11, "&note") + "/*/1"), CostReading::Fault},
        {"mileage no number", withBody("1" + lines(11) + "/*/abc"), CostReading::Fault},
        {"huge", withBody("1" + lines(200000)), CostReading::Fault},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        const CostAnswer answer = readCostAnswer(test.answer);
        EXPECT_EQ(answer.reading, test.reading) << answer.reason;
        if (test.reason) {
            EXPECT_EQ(answer.reason, test.reason);
        }
        if (test.reading == CostReading::Fault) {
            EXPECT_LT(answer.reason.size(), 300U);
        }
    }
}

TEST(CostAnswer, ACutAnswerIsNeverAPrice) {
    const std::string whole = CostPage::priced(72040, 720);
    const std::size_t end = whole.find("[END]") + 5;
    for (std::size_t cut = 0; cut < whole.size(); ++cut) {
        const CostReading reading = readCostAnswer(std::string_view(whole).substr(0, cut)).reading;
        EXPECT_EQ(reading == CostReading::Good, cut >= end) << "cut at " << cut;
    }
}

}  // namespace
}  // namespace zelvo::ordering
