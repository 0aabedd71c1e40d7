#include "management/OrderReuse.h"

#include <exception>

#include "basics/Numbers.h"
#include "composition/modHanYakGuk.h"

namespace zelvo::management {

namespace {

namespace herb = composition::herb;

constexpr const char* caption = "처방전 재사용";
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
    draft_.options.chooseJobList(basics::toInt32(detail_.decoction.lblCBJmJobListPK.caption()));
    copyHerbs();
    copyDose();
    draft_.options.chooseTJML(basics::toInt32(detail_.decoction.lblCBJmTJMLPK.caption()));
    draft_.options.chooseTJAL(detail_.decoction.addOnKeys());
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

}  // namespace zelvo::management
