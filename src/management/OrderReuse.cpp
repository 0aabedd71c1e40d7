#include "management/OrderReuse.h"

#include <exception>

#include "basics/Numbers.h"
#include "composition/modHanYakGuk.h"
#include "management/OrderStanding.h"

namespace zelvo::management {

namespace {

namespace herb = composition::herb;

constexpr const char* caption = "처방전 재사용";

}  // namespace

OrderReuse::OrderReuse(screen::Window& form, OrderDetail& detail, ordering::OrderDraft& draft,
                       composition::OrderWatch& watch, std::function<void()> showOrderTab)
    : form_(form), detail_(detail), draft_(draft), watch_(watch), showOrderTab_(std::move(showOrderTab)) {
    screen::usePressed(detail_.state.ssrCBJreuse, [this] { Reuse_Order(); });
}

void OrderReuse::Reuse_Order() {
    if (detail_.listKey() == 0) return;
    // Half an order is no starting point. What keeps it from being read is told there.
    if (detail_.shownKey() == 0) detail_.reload();
    if (detail_.shownKey() == 0) return;
    if (!form_.desktop().ask("현재의 처방전 내용을 [처방전 작성 및 전송]에서 다시 사용하시겠습니까?", caption,
                             screen::Answer::No)) {
        return;
    }
    detail_.keepingOrder([this] {
        const screen::BusyPointer busy(form_.desktop(), "처방전을 다시 쓰도록 옮기는 중입니다.");
        try {
            if (stillStands(form_.desktop(), draft_.session, detail_, detail_.shownKey(), caption))
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
    draft_.leftOut.clear();
    draft_.leftOut.tellHerbs(detail_.herbs.lost());
    copyDose();
    draft_.options.chooseTJML(basics::toInt32(detail_.decoction.lblCBJmTJMLPK.caption()));
    std::vector<std::string> leftOut = draft_.options.chooseTJAL(detail_.decoction.addOnKeys());
    if (const std::size_t nameless = detail_.decoction.lostAddOns(); nameless > 0)
        leftOut.push_back(basics::decimalText(static_cast<std::int64_t>(nameless)) + "가지");
    draft_.leftOut.tellAddOns(leftOut);
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
/// it. An order none of whose herbs is in view leaves it, and with it the price of its own herbs.
void OrderReuse::copyHerbs() {
    composition::DoseFields& dose = draft_.dose;
    screen::Grid& ordered = detail_.herbs.tdbCBJmDGL;
    if (!ordered.onRow()) return dose.txtChubsu.setText(detail_.herbs.txtCBJmChubsu.text());
    draft_.herbs.onChanging();
    draft_.lines().reDim(-1, herb::lastColumn);
    dose.txtChubsu.setText(detail_.herbs.txtCBJmChubsu.text());
    dose.txtDrugPrice.setText(detail_.herbs.txtCBJmDrugCost.text());
    draft_.herbs.Load_DrugFromGrid(ordered);
    draft_.herbs.tdbDGL.bind(&draft_.lines());
    draft_.herbs.showRowCount();
    if (allOffered()) dose.repriceHerbs();
}

/// A herb that is no longer offered leaves the former price for now; choosing another one empties it.
bool OrderReuse::allOffered() const {
    const tables::XArrayDB& herbs = draft_.lines();
    for (int row = herbs.lowerRow(); row <= herbs.upperRow(); ++row) {
        if (herbs.text(row, herb::state) != herb::complete) return false;
    }
    return true;
}

void OrderReuse::copyDose() {
    draft_.dose.txtDayTuyak.setText(detail_.decoction.txtCBJmDayTuyak.text());
    draft_.dose.txtTuyakilsu.setText(detail_.decoction.txtCBJmTuyakilsu.text());
    draft_.dose.txtPouchAmount.setText(detail_.decoction.txtCBJmPouchAmount.text());
    draft_.dose.txtPouchTotal.setText(detail_.decoction.txtCBJmPouchTotal.text());
}

}  // namespace zelvo::management
