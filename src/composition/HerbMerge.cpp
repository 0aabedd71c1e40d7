#include <cstdint>
#include <optional>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "composition/HerbTable.h"
#include "composition/modHanYakGuk.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::composition {

namespace {

/// The amount at a price of whole won. Stored grams or a price that are no number leave it blank, and the row
/// red.
std::string amountAtWholePrice(const std::string& grams, const std::string& price) {
    try {
        const std::string whole = basics::decimalText(std::int64_t{basics::toInt32(price)});
        return modHanYakGuk::amountText(grams, whole, basics::NumberPicture::Plain);
    } catch (const basics::Fault&) {
        return {};
    }
}

/// Nothing for a text that is no amount.
std::optional<float> gramsOf(const std::string& text) {
    try {
        if (basics::IsNumeric(text)) return basics::toSingle(text);
    } catch (const basics::Fault&) {
        // More than any herb weighs.
    }
    return std::nullopt;
}

}  // namespace

void HerbTable::Load_DrugFromGrid(screen::Grid& detail) {
    const bool merging = !session_.g_xaDrug.empty();
    onChanging();
    const screen::BusyPointer busy(form_.desktop());
    for (detail.moveFirst(); !detail.atEnd(); detail.moveNext()) {
        form_.desktop().yield();
        append({detail.value("약재명"), detail.value("한약국약재PK"), detail.value("용량(g)"),
                detail.value("비고")},
               merging);
    }
    detail.moveFirst();
    modHanYakGuk::Renumber_DrugRows(form_.desktop(), session_.g_xaDrug);
}

void HerbTable::loadLines(const std::vector<HerbLine>& lines) {
    onChanging();
    session_.g_xaDrug.reDim(-1, herb::lastColumn);
    for (const HerbLine& line : lines) append(line, false);
    modHanYakGuk::Renumber_DrugRows(form_.desktop(), session_.g_xaDrug);
    tdbDGL.bind(&session_.g_xaDrug);
    showRowCount();
}

void HerbTable::append(const HerbLine& line, bool merging) {
    tables::XArrayDB& herbs = session_.g_xaDrug;
    int row = rowCount();
    herbs.insertRows(row);
    lookUpHerb(line, row);
    herbs.set(row, herb::merged, merging ? herb::mergedMark : "");
    if (merging) row = mergeRow(row);
    modHanYakGuk::Check_DrugRow(form_.desktop(), herbs, row);
}

void HerbTable::dropMergeMarks() {
    tables::XArrayDB& herbs = session_.g_xaDrug;
    for (int row = herbs.lowerRow(); row <= herbs.upperRow(); ++row) herbs.set(row, herb::merged, "");
    tdbDGL.refresh();
}

/// Fills a new row, with today's name and price of the pharmacy's herb.
void HerbTable::lookUpHerb(const HerbLine& line, int row) {
    tables::XArrayDB& herbs = session_.g_xaDrug;
    herbs.set(row, herb::name, line.name);
    herbs.set(row, herb::key, line.key);
    herbs.set(row, herb::note, line.note);

    std::string name, price;
    const bool offered = session_.g_conYakGuk && data::clsZELVORecordSet().RecordSet_HapBang(
                                                     *session_.g_conYakGuk, line.key, name, price) != -1;
    if (!offered) {
        herbs.set(row, herb::key, "");
        herbs.set(row, herb::grams, line.grams);
    } else if (basics::isBlank(name) || basics::isBlank(price)) {
        herbs.set(row, herb::key, "");
    } else {
        herbs.set(row, herb::pharmacyName, name);
        herbs.set(row, herb::price, price);
        herbs.set(row, herb::grams, line.grams);
        herbs.set(row, herb::amount, amountAtWholePrice(line.grams, price));
    }
}

/// Of two rows with one pharmacy herb the larger amount stays, the older one if they are equal. Gives the row
/// that stays.
int HerbTable::mergeRow(int row) {
    tables::XArrayDB& herbs = session_.g_xaDrug;
    const int older =
        modHanYakGuk::Find_DuplicateDrug(form_.desktop(), herbs, row, herb::pharmacyName, -1) - 1;
    if (older < 0) return row;

    const std::optional<float> olderGrams = gramsOf(herbs.text(older, herb::grams));
    if (olderGrams && *olderGrams >= gramsOf(herbs.text(row, herb::grams)).value_or(0.0F)) {
        herbs.set(older, herb::merged, herb::mergedMark);
        herbs.deleteRows(row);
        return older;
    }
    herbs.deleteRows(older);
    return row - 1;
}

}  // namespace zelvo::composition
