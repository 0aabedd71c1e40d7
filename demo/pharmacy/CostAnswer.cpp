#include "pharmacy/CostAnswer.h"

#include "basics/Numbers.h"
#include "basics/Text.h"

namespace zelvo::pharmacy {
namespace {

constexpr auto separator = "/*/";

/// A note as the page writes it: one line, ampersands escaped, nothing in it that divides the answer.
std::string noteText(const std::string& note) {
    auto text = basics::replaceAll(note, "&", "&amp;");
    for (const auto* mark : {separator, "[START]", "[END]"}) text = basics::removeAll(text, mark);
    text = basics::replaceAll(text, basics::lineBreak, "vbCrLf");
    return basics::replaceAll(text, "\n", "vbCrLf");
}

std::string element(const CostLine& line) {
    return separator + basics::decimalText(std::int64_t{line.won}) + "&" + noteText(line.note);
}

std::string page(const std::string& body) {
    return "<html><head><title>처방전 비용계산</title></head><body>\n[START]" + body +
           "[END]\n</body></html>\n";
}

std::string elements(const Price& price) {
    auto text = "1" + element(price.total);
    for (const auto& line : price.lines.each) text += element(line);
    return text;
}

std::string mileage(const Price& price) {
    return separator + basics::decimalText(std::int64_t{price.mileage});
}

}  // namespace

std::string costAnswer(const Price& price) {
    return page(elements(price) + mileage(price));
}

std::string costUpdateAnswer(const Price& price, const StoredOrder& order) {
    return page(elements(price) + element(order.userCost) + element(order.userCostNoVat) + mileage(price));
}

std::string refusal(const std::string& reason) {
    return page(std::string("0") + separator + noteText(reason));
}

}  // namespace zelvo::pharmacy
