#include "ordering/CostAnswer.h"

#include <charconv>
#include <optional>
#include <system_error>
#include <utility>

#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::ordering {

namespace {

constexpr std::string_view startMark = "[START]", endMark = "[END]", separator = "/*/";

/// White space around a text is the page's layout and no part of it.
std::string_view withoutSpace(std::string_view text) {
    constexpr std::string_view space = " \t\r\n";
    const std::size_t first = text.find_first_not_of(space);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

std::optional<std::int32_t> wholeWon(std::string_view text) {
    text = withoutSpace(text);
    std::int32_t won = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), won);
    if (error != std::errc() || end != text.data() + text.size()) return {};
    return won;
}

CostAnswer failed(CostReading reading, std::string reason) {
    CostAnswer answer;
    answer.reading = reading;
    answer.reason = std::move(reason);
    return answer;
}

/// The page's own words, for they say best what ails it.
std::string whatCame(std::string_view answer) {
    if (withoutSpace(answer).empty())
        return "비용계산 서버 웹페이지의 답변이 비어 있습니다. 잠시 후 다시 실행해 주십시오.";
    return std::string(answer);
}

CostAnswer wrongElement(std::size_t number, std::string_view text) {
    constexpr std::size_t shownCharacters = 40;
    return failed(CostReading::Fault, "비용계산 서버의 답변을 읽을 수 없습니다. (" + std::to_string(number) +
                                          "번째 항목의 금액: \"" + basics::part(text, 0, shownCharacters) +
                                          "\")");
}

std::optional<CostLine> costLine(std::string_view element) {
    const std::size_t divider = element.find('&');
    if (divider == std::string_view::npos) return {};
    const auto amount = wholeWon(element.substr(0, divider));
    if (!amount) return {};
    return CostLine{*amount, basics::replaceAll(element.substr(divider + 1), "vbCrLf", basics::lineBreak)};
}

CostAnswer readElements(const std::vector<std::string>& elements, std::size_t lineCount) {
    const std::size_t mileageAt = lineCount + 2;
    if (elements.size() <= mileageAt) {
        return failed(CostReading::Fault, "비용계산 서버의 답변에 빠진 항목이 있습니다. (" +
                                              std::to_string(mileageAt + 1) + "개 중 " +
                                              std::to_string(elements.size()) + "개)");
    }
    CostAnswer answer;
    for (std::size_t i = 1; i < mileageAt; ++i) {
        auto line = costLine(elements[i]);
        if (!line) return wrongElement(i, elements[i]);
        if (i == 1) {
            answer.total = std::move(*line);
        } else {
            answer.lines.push_back(std::move(*line));
        }
    }
    const auto mileage = wholeWon(elements[mileageAt]);
    if (!mileage) return wrongElement(mileageAt, elements[mileageAt]);
    answer.mileage = *mileage;
    return answer;
}

}  // namespace

CostAnswer readCostAnswer(std::string_view answer, std::size_t lineCount) {
    const std::size_t start = answer.find(startMark);
    if (start == std::string_view::npos) return failed(CostReading::NoStart, whatCame(answer));
    const std::size_t end = answer.find(endMark, start + 1);
    if (end == std::string_view::npos) {
        return failed(CostReading::NoEnd, "비용계산 서버 웹페이지 오류([END] 문자열 찾기 실패)");
    }
    const std::size_t bodyAt = start + startMark.size();
    const std::string_view body = answer.substr(bodyAt, end - bodyAt);
    if (body.find(separator) == std::string_view::npos) {
        return failed(CostReading::NoSeparator, "비용계산 서버 웹페이지 오류(/*/ 문자열 찾기 실패)");
    }
    if (!body.starts_with('1'))
        return failed(CostReading::Refused, "비용계산 실패(" + std::string(body) + ")");
    return readElements(basics::split(basics::removeAll(body, "amp;"), separator), lineCount);
}

}  // namespace zelvo::ordering
