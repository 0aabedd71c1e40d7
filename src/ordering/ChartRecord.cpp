#include "ordering/ChartRecord.h"

#include <vector>

#include "basics/Numbers.h"
#include "basics/Text.h"

namespace zelvo::ordering {

namespace {

std::int16_t shortFrom(const screen::TextField& field) {
    return basics::toInt16(basics::numberFromStart(field.text()));
}

std::string herbList(const tables::XArrayDB& herbs) {
    namespace herb = composition::herb;
    std::vector<std::string> rows;
    for (int row = 0; row <= herbs.upperRow(); ++row) {
        rows.push_back(herbs.text(row, herb::name) + composition::cellSeparator +
                       herbs.text(row, herb::grams));
    }
    return basics::join(rows, composition::rowSeparator);
}

}  // namespace

ChartRecord chartRecord(const OrderDraft& draft, const std::string& sumCost) {
    ChartRecord record;
    if (draft.jobRow() >= 0)
        record.strJob = draft.options.m_xaJobList.text(draft.jobRow(), composition::option::name);
    if (draft.frames.c1eDrug.visible()) {
        record.intChupSu = shortFrom(draft.dose.txtChubsu);
        record.strxDrugList = herbList(draft.lines());
    }
    if (draft.frames.c1eTangJun.visible()) {
        record.intPouchAmount = shortFrom(draft.dose.txtPouchAmount);
        record.sglDayTuYak = static_cast<float>(basics::numberFromStart(draft.dose.txtDayTuyak.text()));
        record.intTuyakilsu = shortFrom(draft.dose.txtTuyakilsu);
        record.intPouchTotal = shortFrom(draft.dose.txtPouchTotal);
    }
    record.strMessage = basics::trim(draft.sheet.txtCBJmsg.text());
    record.lngSumCost = basics::toInt32(basics::numberFromStart(sumCost));
    return record;
}

}  // namespace zelvo::ordering
