#include "management/OrderReuse.h"

#include <exception>

#include "basics/Numbers.h"
#include "composition/modHanYakGuk.h"

namespace zelvo::management {

namespace {

namespace herb = composition::herb;

constexpr const char* caption = "처방전 재사용";
constexpr int selectedColumn = 0, keyColumn = 1;

std::string keyText(std::int32_t key) {
    return basics::decimalText(std::int64_t{key});
}

}  // namespace

OrderReuse::OrderReuse(screen::Window& form, const screen::Grid& list, OrderDetail& detail,
                       ordering::OrderDraft& draft, composition::OrderWatch& watch,
                       std::function<void()> showOrderTab)
    : form_(form),
      list_(list),
      detail_(detail),
      draft_(draft),
      watch_(watch),
      showOrderTab_(std::move(showOrderTab)) {
    screen::usePressed(detail_.state.ssrCBJreuse, [this] { Reuse_Order(); });
}

void OrderReuse::Reuse_Order() {
    if (!list_.onRow()) return;
    // Half an order is no starting point. What keeps it from being read is told there.
    if (detail_.shownKey() == 0) detail_.reload();
    if (detail_.shownKey() == 0) return;
    if (!form_.desktop().ask("현재의 처방전 내용을 [처방전 작성 및 전송]에서 다시 사용하시겠습니까?", caption,
                             screen::Answer::No)) {
        return;
    }
    detail_.keepingOrder([this] {
        const screen::BusyPointer busy(form_.desktop());
        try {
            Copy_CBJmToComposition();
        } catch (const std::exception& fault) {
            form_.desktop().alarm(fault.what(), caption);
        }
    });
}

void OrderReuse::Copy_CBJmToComposition() {
    copySheet();
    if (choose(draft_.options.tdbJobList, draft_.options.m_xaJobList,
               detail_.decoction.lblCBJmJobListPK.caption()))
        draft_.options.pressJobList(selectedColumn);
    draft_.options.tdbJobList.bind(&draft_.options.m_xaJobList);
    copyHerbs();
    copyDose();
    if (choose(draft_.options.tdbTJML, draft_.options.m_xaTJML, detail_.decoction.lblCBJmTJMLPK.caption()))
        draft_.options.pressTJML(selectedColumn);
    draft_.options.tdbTJML.bind(&draft_.options.m_xaTJML);
    chooseAddOns();
    form_.desktop().yield();
    watch_.priceOutdated();
    showOrderTab_();
}

void OrderReuse::copySheet() {
    composition::DosageSheet& sheet = draft_.sheet;
    sheet.txtCBJmsg.setText(detail_.sheet.txtCBJmCBMsg.text());
    sheet.rtxEatGuide.setRtf(detail_.sheet.rtxCBJmEatMsg.rtf());
    sheet.txtEatGuideHosName.setText(detail_.sheet.txtEatGuideHosName2.text());
    sheet.txtEatGuideCall.setText(detail_.sheet.txtEatGuideCall2.text());
}

/// Packets, their price and the herbs. The former composition goes first: the packets are not to be priced by
/// it.
void OrderReuse::copyHerbs() {
    screen::Grid& ordered = detail_.herbs.tdbCBJmDGL;
    const bool hasHerbs = ordered.onRow();
    if (hasHerbs) draft_.lines().reDim(-1, herb::lastColumn);
    draft_.dose.txtChubsu.setText(detail_.herbs.txtCBJmChubsu.text());
    draft_.dose.txtDrugPrice.setText(detail_.herbs.txtCBJmDrugCost.text());
    if (!hasHerbs) return;
    draft_.herbs.Load_DrugFromGrid(ordered);
    draft_.herbs.tdbDGL.bind(&draft_.lines());
    draft_.herbs.showRowCount();
    priceHerbs();
}

/// The packets cost what their herbs cost today. A herb that is no longer offered leaves the former price for
/// now; choosing another one empties it.
void OrderReuse::priceHerbs() {
    const tables::XArrayDB& herbs = draft_.lines();
    for (int row = herbs.lowerRow(); row <= herbs.upperRow(); ++row) {
        if (herbs.text(row, herb::state) != herb::complete) return;
    }
    const std::string packets = draft_.dose.txtChubsu.text();
    draft_.dose.txtChubsu.setText("");
    draft_.dose.txtChubsu.setText(packets);
}

void OrderReuse::copyDose() {
    draft_.dose.txtDayTuyak.setText(detail_.decoction.txtCBJmDayTuyak.text());
    draft_.dose.txtTuyakilsu.setText(detail_.decoction.txtCBJmTuyakilsu.text());
    draft_.dose.txtPouchAmount.setText(detail_.decoction.txtCBJmPouchAmount.text());
    draft_.dose.txtPouchTotal.setText(detail_.decoction.txtCBJmPouchTotal.text());
}

void OrderReuse::chooseAddOns() {
    screen::Grid& grid = draft_.options.tdbTJAL;
    tables::XArrayDB& addOns = draft_.options.m_xaTJAL;
    unselectAll(addOns);
    for (const std::int32_t key : detail_.decoction.addOnKeys()) {
        const int row = addOns.find(0, keyColumn, keyText(key));
        if (row < 0) continue;
        grid.setCurrentRow(row);
        draft_.options.pressTJAL(selectedColumn);
    }
    grid.bind(&addOns);
}

/// Moves to the option of this key. False when the pharmacy offers it no more: then none is selected.
bool OrderReuse::choose(screen::Grid& grid, tables::XArrayDB& options, const std::string& key) const {
    unselectAll(options);
    const int row = options.find(0, keyColumn, keyText(basics::toInt32(key)));
    if (row >= 0) grid.setCurrentRow(row);
    return row >= 0;
}

void OrderReuse::unselectAll(tables::XArrayDB& options) const {
    for (int row = options.lowerRow(); row <= options.upperRow(); ++row) {
        options.set(row, selectedColumn, false);
        form_.desktop().yield();
    }
}

}  // namespace zelvo::management
