#include "ordering/OrderFit.h"

#include <cstdint>
#include <limits>

#include "basics/Numbers.h"
#include "basics/Pictures.h"
#include "basics/Text.h"
#include "ordering/OrderRows.h"

namespace zelvo::ordering {

namespace {

namespace herb = composition::herb;
namespace option = composition::option;

using Found = std::optional<Misfit>;

constexpr double mostShort = mostQuantity;
constexpr double mostLong = std::numeric_limits<std::int32_t>::max();

bool isWithin(const std::string& text, double least, double most) {
    if (!basics::IsNumeric(text)) return false;
    const double number = basics::roundHalfEven(basics::toNumber(text));
    return number >= least && number <= most;
}

/// The chosen rows of a list must have a number in this column, or the order could not name them.
Found optionMisfit(screen::Grid& grid, const tables::XArrayDB& options, int column, double least,
                   double most) {
    for (int row = options.lowerRow(); row <= options.upperRow(); ++row) {
        if (!options.isTrue(row, option::selected) || isWithin(options.text(row, column), least, most))
            continue;
        return Misfit{"[" + options.text(row, option::name) +
                          "] 항목은 한약국의 목록에 잘못 등록되어 있어 주문할 수 없습니다. "
                          "선택을 바꾸시거나 [한약국으로 연락] 주십시오.",
                      &grid};
    }
    return {};
}

Found optionMisfit(const OrderDraft& draft) {
    composition::OrderOptions& options = draft.options;
    if (auto found =
            optionMisfit(options.tdbJobList, options.m_xaJobList, option::key, -mostShort, mostShort))
        return found;
    if (!draft.hasDecoction()) return {};
    if (auto found = optionMisfit(options.tdbTJML, options.m_xaTJML, option::key, -mostShort, mostShort))
        return found;
    return optionMisfit(options.tdbTJAL, options.m_xaTJAL, option::slot, 1, option::slotCount);
}

Found numberMisfit(const OrderDraft& draft) {
    const bool herbs = draft.hasHerbs(), decoction = draft.hasDecoction();
    const struct {
        screen::TextField& field;
        const char* label;
        bool counts, whole, mayBeOpen = false;
    } numbers[] = {{draft.dose.txtChubsu, "[첩수]를", herbs, true},
                   {draft.dose.txtTuyakilsu, "[복용일]을", decoction, true, true},
                   {draft.dose.txtDayTuyak, "[1일 복용 팩수]를", decoction, false, true},
                   {draft.dose.txtPouchAmount, "[1팩 용량]을", decoction, true},
                   {draft.dose.txtPouchTotal, "[총파우치]를", decoction, true}};
    for (const auto& number : numbers) {
        const std::string& text = number.field.text();
        // Days and packs a day may be left open, which is stored as 0 and comes back as 0 by a reuse; the
        // checks have asked for the others.
        if (!number.counts || basics::isBlank(text)) continue;
        if (number.mayBeOpen && basics::IsNumeric(text) && basics::toNumber(text) == 0) continue;
        if (isQuantity(text, number.whole)) continue;
        return Misfit{std::string(number.label) + " 0보다 크고 " + basics::wonText(mostShort) +
                          " 이하인 숫자로 입력해 주십시오.",
                      &number.field};
    }
    screen::TextField& age = draft.patient.txtPatientAge;
    const std::string years = basics::removeBlanks(age.text());
    if (basics::IsNumeric(years) && !isWithin(years, 0, mostShort))
        return Misfit{"[나이]를 다시 확인하여 주십시오.", &age};
    return {};
}

std::string lineName(const tables::XArrayDB& herbs, int row) {
    return "[" + basics::decimalText(std::int64_t{row} + 1) + "] 번째 약재 [" + herbs.text(row, herb::name) +
           "]의 ";
}

Found lineMisfit(const OrderDraft& draft, int row) {
    static constexpr struct {
        int column;
        const char* label;
        double most;
    } numbers[] = {{herb::key, "한약국약재", mostLong},
                   {herb::grams, "용량", mostLong},
                   {herb::price, "단가", mostLong},
                   {herb::amount, "금액", mostShort}};
    const tables::XArrayDB& herbs = draft.lines();
    for (const auto& number : numbers) {
        const std::string text = herbs.text(row, number.column);
        if (isWithin(text, -mostLong, number.most)) continue;
        return Misfit{lineName(herbs, row) + "[" + number.label + " " +
                          basics::formatText(text, basics::NumberPicture::Separated) +
                          "] 값을 주문서에 담을 수 없습니다. (최대 " +
                          basics::formatNumber(number.most, basics::NumberPicture::Separated) + ")",
                      &draft.herbs.tdbDGL, row};
    }
    return {};
}

Found lineTextMisfit(const OrderDraft& draft, const data::TextLengths& lengths, int row) {
    static constexpr struct {
        int column;
        std::string_view stored, label;
    } texts[] = {{herb::name, "DGL_CallSign", "약재명"}, {herb::note, "DET_Note", "비고"}};
    const tables::XArrayDB& herbs = draft.lines();
    for (const auto& text : texts) {
        const std::size_t over = lengths.excess("t_CBJDetail", text.stored, herbs.text(row, text.column));
        if (over == 0) continue;
        return Misfit{tooLong(lineName(herbs, row) + "[" + std::string(text.label) + "]", over),
                      &draft.herbs.tdbDGL, row};
    }
    return {};
}

Found textMisfit(const OrderDraft& draft, const data::TextLengths& lengths) {
    const auto check = [&lengths](std::string_view table, std::string_view column, std::string_view label,
                                  screen::Field& field, const std::string& text) -> Found {
        const std::size_t over = lengths.excess(table, column, text);
        if (over == 0) return {};
        return Misfit{tooLong("[" + std::string(label) + "]", over), &field};
    };
    for (const RowText& text : rowTexts(draft)) {
        if (auto found = check("t_ChubangJun", text.column, text.label, text.field, text.stored))
            return found;
    }
    composition::DosageSheet& sheet = draft.sheet;
    if (auto found = check("t_EatGuide", "HospName", "복용법 한의원명", sheet.txtEatGuideHosName,
                           sheet.txtEatGuideHosName.text()))
        return found;
    if (auto found = check("t_EatGuide", "PhoneNo", "복용법 연락처", sheet.txtEatGuideCall,
                           sheet.txtEatGuideCall.text()))
        return found;
    return check("t_EatGuide", "BogYak", "복용법", sheet.rtxEatGuide, sheet.rtxEatGuide.rtf());
}

}  // namespace

std::string tooLong(const std::string& name, std::size_t characters) {
    return name + " 내용이 저장할 수 있는 길이보다 " +
           basics::decimalText(static_cast<std::int64_t>(characters)) + "자 깁니다. 줄여서 입력해 주십시오.";
}

std::optional<Misfit> firstMisfit(const OrderDraft& draft, const data::TextLengths& lengths) {
    if (auto found = optionMisfit(draft)) return found;
    if (auto found = numberMisfit(draft)) return found;
    for (int row = 0; draft.hasHerbs() && row <= draft.lines().upperRow(); ++row) {
        if (auto found = lineMisfit(draft, row)) return found;
        if (auto found = lineTextMisfit(draft, lengths, row)) return found;
    }
    return textMisfit(draft, lengths);
}

}  // namespace zelvo::ordering
