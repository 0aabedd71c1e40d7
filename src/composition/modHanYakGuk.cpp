#include "composition/modHanYakGuk.h"

#include <cmath>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "composition/clsXArrayString.h"

namespace zelvo::composition::modHanYakGuk {

namespace {

/// What a change of one column does to the rest of its row. Gives the duplicate's row number, or 0.
std::int16_t followChange(screen::Desktop& desktop, int mode, int row, tables::XArrayDB& herbs) {
    if (mode == herb::name) {
        for (int column = herb::pharmacyName; column <= herb::amount; ++column) herbs.set(row, column, "");
        return 0;
    }
    if (mode == herb::pharmacyName) {
        const std::int16_t duplicate = Find_DuplicateDrug(desktop, herbs, row, herb::pharmacyName, 0);
        if (duplicate <= 0) return 0;
        desktop.inform("이미 [" + basics::decimalText(std::int64_t{duplicate}) +
                           "] 번째 레코드에 같은 한약국약재가 존재 합니다.",
                       "약재구성");
        return duplicate;
    }
    const std::string grams = herbs.text(row, herb::grams), price = herbs.text(row, herb::price);
    if (!basics::IsNumeric(grams)) herbs.set(row, herb::grams, "");
    if (!basics::IsNumeric(grams) || !basics::IsNumeric(price)) {
        herbs.set(row, herb::amount, "");
    } else {
        herbs.set(row, herb::amount, amountText(grams, price, basics::NumberPicture::Plain));
    }
    return 0;
}

/// A text of as many characters as there are slots, with a "1" at the slot of each chosen add-on. One without
/// a slot is a Fault: it must not be left out without a word.
std::string addOnSlots(const tables::XArrayDB& addOns) {
    std::string slots(option::slotCount, '0');
    for (int row = 0; row <= addOns.upperRow(); ++row) {
        if (!addOns.isTrue(row, option::selected)) continue;
        const int place = basics::toInt16(addOns.text(row, option::slot));
        if (place < 1 || place > option::slotCount) basics::throwOverflow();
        slots[static_cast<std::size_t>(place - 1)] = '1';
    }
    return slots;
}

int chosenRow(const tables::XArrayDB& options) {
    const int row = selectedRow(options);
    if (row < 0) throw basics::Fault("선택된 항목이 없습니다.");
    return row;
}

}  // namespace

std::string amountText(std::string_view grams, std::string_view price, basics::NumberPicture picture) {
    const float amount = basics::toSingle(grams) * basics::toSingle(price);
    if (!std::isfinite(amount)) basics::throwOverflow();
    return basics::formatNumber(static_cast<double>(amount), picture);
}

std::int16_t Find_DuplicateDrug(screen::Desktop& desktop, tables::XArrayDB& herbs, int row, int column,
                                std::int16_t keepCell) {
    try {
        const std::string wanted = herbs.text(row, column);
        if (herbs.upperRow() <= 0) return 0;
        int found = herbs.find(0, column, wanted);
        if (found == row) found = row == herbs.upperRow() ? -1 : herbs.find(row + 1, column, wanted);
        if (found < 0) return 0;
        if (keepCell == 0) herbs.set(row, column, "");
        return basics::toInt16(static_cast<double>(found) + 1);
    } catch (const basics::Fault& fault) {
        desktop.alarm(fault.what(), "약재구성");
        return -1;
    }
}

std::int16_t Update_DrugCell(screen::Desktop& desktop, int mode, int row, tables::XArrayDB& herbs) {
    try {
        const std::int16_t duplicate = followChange(desktop, mode, row, herbs);
        return Check_DrugRow(desktop, herbs, row) == -1 ? std::int16_t{-1} : duplicate;
    } catch (const basics::Fault& fault) {
        desktop.alarm(std::string(fault.what()) + "/ Colindex=[" + basics::decimalText(std::int64_t{mode}) +
                          "] / intRowMark=[" + basics::decimalText(std::int64_t{row}) + "]",
                      "처방전 약재구성 에러");
        return -1;
    }
}

std::int16_t Check_DrugRow(screen::Desktop& desktop, tables::XArrayDB& herbs, int row) {
    try {
        herbs.set(row, herb::state, herb::complete);
        for (int column = herb::name; column <= herb::amount; ++column) {
            desktop.yield();
            if (!basics::isBlank(herbs.text(row, column))) continue;
            herbs.set(row, herb::state, herb::incomplete);
            break;
        }
        return 0;
    } catch (const basics::Fault&) {
        herbs.setCellText(static_cast<std::size_t>(row), herb::state, herb::incomplete);
        return -1;
    }
}

std::int16_t Renumber_DrugRows(screen::Desktop& desktop, tables::XArrayDB& herbs) {
    try {
        for (int row = herbs.lowerRow(); row <= herbs.upperRow(); ++row) {
            desktop.yield();
            herbs.set(row, herb::order, std::int32_t{basics::toInt16(static_cast<double>(row) + 1)});
        }
        return 0;
    } catch (const basics::Fault&) {
        return -1;
    }
}

bool isUnfilled(const tables::XArrayDB& herbs, int row) {
    for (int column = 0; column <= herb::lastColumn; ++column)
        if (column != herb::order && !basics::isBlank(herbs.text(row, column))) return false;
    return true;
}

int selectedRow(const tables::XArrayDB& options) {
    return options.find(0, option::selected, "-1");
}

std::int16_t Build_CostFields(const tables::XArrayDB& jobList, const tables::XArrayDB& herbs,
                              const tables::XArrayDB& methods, const tables::XArrayDB& addOns,
                              CostFields& fields) {
    try {
        const int job = chosenRow(jobList);
        fields.JobListKey = jobList.text(job, option::key);
        if (jobList.isTrue(job, option::hasHerbs)) {
            clsXArrayString().XArrayDB2String(herbs, fields.DrugText, rowSeparator, cellSeparator);
        } else {
            fields.DrugText.clear();
            fields.Chubsu.clear();
            fields.DrugPrice.clear();
        }
        if (jobList.isTrue(job, option::hasDecoction)) {
            fields.TJMLKey = methods.text(chosenRow(methods), option::key);
            fields.TJALSlot = addOnSlots(addOns);
        } else {
            fields.TJMLKey.clear();
            fields.TJALSlot.clear();
            fields.PouchAmount.clear();
            fields.PouchTotal.clear();
        }
        return 0;
    } catch (const basics::Fault&) {
        return -1;
    }
}

}  // namespace zelvo::composition::modHanYakGuk
