#include "ordering/CostConfirmation.h"

#include <array>
#include <exception>
#include <utility>

#include "basics/Numbers.h"
#include "basics/Pictures.h"
#include "composition/frmMessage.h"
#include "data/Words.h"
#include "data/clsZELVORecordSet.h"
#include "ordering/OrderFit.h"

namespace zelvo::ordering {

using composition::modHanYakGuk::CostFields;

namespace {

constexpr const char* caption = "처방전 비용확인";
constexpr const char *selectedStyle = "styCostConfirmselect", *outdatedStyle = "styCostOutdated";

constexpr std::array<std::string_view, cost::lastRow + 1> labels = {"             [ 합계비용 ]",
                                                                    " 조제비용",
                                                                    " 약재비용",
                                                                    " 탕전비용",
                                                                    " 제형변화비용",
                                                                    " 파우치비용",
                                                                    " 박스비용",
                                                                    " 복용법용지비용",
                                                                    " 택배비용",
                                                                    " 부가세",
                                                                    " 기타"};

std::vector<screen::GridColumn> costColumns() {
    return {{.caption = "비용 항목", .width = 2400},
            {.caption = "비용(원)", .alignRight = true, .width = 1400},
            {.caption = "자세히", .button = true, .width = 700},
            {.caption = "비용세부항목", .shown = false, .stops = false}};
}

std::string zeroIfEmpty(const std::string& text) {
    return text.empty() ? "0" : text;
}

/// While the price is being asked for: the waiting text in place of the cost lines, and no way to the send
/// controls.
class WaitingView {
public:
    WaitingView(screen::Desktop& desktop, composition::OrderFrames& frames, CostConfirmation& pane)
        : desktop_(desktop), frames_(frames), pane_(pane) {
        pane_.txtCOMcost.setText(
            "\r\n\r\n잠시만 기다려 주십시오.\r\n\r\n처방전 비용을 계산 중입니다.\r\n\r\n감사합니다.");
        pane_.txtCOMcost.setVisible(true);
        desktop_.processEvents(false);
        pane_.tdbCostConfirm.setVisible(false);
        frames_.c1eSendmain.setEnabled(false);
    }
    ~WaitingView() {
        frames_.c1eSendmain.setEnabled(true);
        pane_.txtCOMcost.setVisible(false);
        try {
            desktop_.processEvents(false);
        } catch (const std::exception&) {
            // Nothing that happens elsewhere may keep the cost lines away.
        }
        pane_.tdbCostConfirm.setVisible(true);
    }
    WaitingView(const WaitingView&) = delete;
    WaitingView& operator=(const WaitingView&) = delete;

private:
    screen::Desktop& desktop_;
    composition::OrderFrames& frames_;
    CostConfirmation& pane_;
};

}  // namespace

CostConfirmation::CostConfirmation(screen::Window& form, OrderDraft& draft, SendGate& gate)
    : ssrCostConfirm(form, "ssrCostConfirm", draft.frames.c1eSendmain.inside(), "비용확인"),
      tdbCostConfirm(form, "tdbCostConfirm", draft.frames.c1eCostConfirm.inside(), costColumns()),
      txtCOMcost(form, "txtCOMcost", draft.frames.c1eCostConfirm.inside()),
      lblSumcost(form, "lblSumcost", draft.frames.c1eSendmain.inside(), "0"),
      lblMileageMoney(form, "lblMileageMoney", draft.frames.c1eSendmain.inside(), "0"),
      lblCostOutdated(form, "lblCostOutdated", draft.frames.c1eSendmain.inside(), "다시 확인"),
      lblCBJcostAspURL(form, "lblCBJcostAspURL", draft.frames.c1eSendmain.inside(), "비용계산URL"),
      lblCBJcostUpAspURL(form, "lblCBJcostUpAspURL", draft.frames.c1eSendmain.inside(), "비용수정URL"),
      form_(form),
      draft_(draft),
      gate_(gate) {
    for (screen::Label* variable : {&lblSumcost, &lblMileageMoney, &lblCBJcostAspURL, &lblCBJcostUpAspURL}) {
        variable->setVisible(false);
    }
    lblCostOutdated.setVisible(false);
    lblCostOutdated.setTipText("처방전이 바뀌었거나 전송되었습니다. [비용확인]을 다시 실행하여 주십시오.");
    txtCOMcost.setVisible(false);
    txtCOMcost.setReadOnly(true);
    txtCOMcost.setMultiLine(true);
    txtCOMcost.setTabStop(false);
    tdbCostConfirm.allowsUpdate = false;
    tdbCostConfirm.emptyHint = "[비용확인]을 누르면 항목별 비용이 여기에 표시됩니다.";
    tdbCostConfirm.bind(&m_xaCostConfirm);

    screen::usePressed(ssrCostConfirm, [this] {
        // Another Enter leads on, and does not ask again.
        if (Confirm_Cost()) tdbCostConfirm.setFocus();
    });
    tdbCostConfirm.onCellButton.add([this](int column) {
        if (column == cost::button) showNote();
    });
    tdbCostConfirm.onRowStyle.add([this](int row, std::string& style) {
        if (row == tdbCostConfirm.currentRow()) {
            style = selectedStyle;
        } else if (outdated()) {
            style = outdatedStyle;
        }
    });
    gate_.onSet.add([this] { showFreshness(); });
}

void CostConfirmation::Form_Load() {
    tdbCostConfirm.addStyle(selectedStyle, {0, 0, 192});
    tdbCostConfirm.addStyle(outdatedStyle, {110, 110, 110});
}

/// True when the order may be sent at the price that it shows.
bool CostConfirmation::Confirm_Cost() {
    screen::Desktop& desktop = form_.desktop();
    if (draft_.session.m_DTRPK == 0) {
        desktop.inform("로그인 후에 사용 하십시오.(m_DTRPK = 0)", "비용확인");
        return false;
    }
    const screen::BusyPointer busy(desktop);
    if (!currentHerbIsSound()) {
        desktop.inform("[약재정보]를 다시 확인바랍니다.", "비용확인");
        return false;
    }
    if (!passesChecks()) {
        gate_.Set_CostConfirmed(false);
        return false;
    }
    gate_.checksPassed();
    lblMileageMoney.setCaption("0");
    lblSumcost.setCaption("0");
    const WaitingView waiting(desktop, draft_.frames, *this);
    const bool priced = Request_Cost();
    // A change that came while the page was asked has taken the flag back: the price no longer fits.
    gate_.Set_CostConfirmed(priced && gate_.costConfirmed());
    return gate_.costConfirmed();
}

/// False only when the check of the row that is being edited failed; an incomplete row is found by the
/// checks.
bool CostConfirmation::currentHerbIsSound() {
    if (!draft_.hasHerbs() || draft_.lines().empty()) return true;
    screen::Grid& herbs = draft_.herbs.tdbDGL;
    herbs.commitEdit();
    if (!herbs.onRow()) return true;
    return composition::modHanYakGuk::Check_DrugRow(form_.desktop(), draft_.lines(), herbs.currentRow()) !=
           -1;
}

/// Whether the order may be priced. What stands against it has been shown, and has the focus.
bool CostConfirmation::passesChecks() {
    const CheckResult result =
        Check_CostInput(form_.desktop(), draft_.checkedTexts(), draft_.options.m_xaJobList, draft_.lines(),
                        draft_.options.m_xaTJML);
    if (result != CheckResult::Passed) {
        focusFault(result);
        return false;
    }
    return orderFits();
}

bool CostConfirmation::orderFits() {
    const std::optional<Misfit> misfit = firstMisfit(draft_, textLengths());
    if (!misfit) return true;
    form_.desktop().inform(misfit->message, caption);
    if (misfit->herbRow >= 0) draft_.herbs.tdbDGL.setCurrentRow(misfit->herbRow);
    misfit->field->setFocus();
    return false;
}

/// Nothing is known of them after a read that failed: then the order is stored or not, as its insert goes.
const data::TextLengths& CostConfirmation::textLengths() {
    if (!textLengths_) {
        data::TextLengths read;
        const std::int16_t status =
            data::clsZELVORecordSet().RecordSet_TextLengths(draft_.session.connection(), read);
        textLengths_ = status == 1 ? std::move(read) : data::TextLengths();
    }
    return *textLengths_;
}

void CostConfirmation::focusFault(CheckResult result) {
    switch (result) {
        case CheckResult::Patient:
            return draft_.patient.txtPatientName.setFocus();
        case CheckResult::SetDelivery:
            return draft_.patient.cboBesongMethod.setFocus();
        case CheckResult::Sender:
            return draft_.sender.txtHospitalName.setFocus();
        case CheckResult::OrderType:
            return draft_.options.tdbJobList.setFocus();
        case CheckResult::Herbs:
            if (const int row = unsoundLine(draft_.lines()); row >= 0) draft_.herbs.tdbDGL.setCurrentRow(row);
            return draft_.herbs.tdbDGL.setFocus();
        case CheckResult::Decoction:
            return draft_.dose.txtDayTuyak.setFocus();
        case CheckResult::Message:
            return draft_.sheet.txtCBJmsg.setFocus();
        case CheckResult::PayMethod:
            return draft_.payment.cboPaymentMethod.setFocus();
        case CheckResult::Fault:
        case CheckResult::Passed:
            return;
    }
}

/// True when the price is on the screen; every failure has been shown.
bool CostConfirmation::Request_Cost() {
    screen::Desktop& desktop = form_.desktop();
    try {
        CostFields fields;
        if (draft_.costFields(fields) == -1) {
            desktop.alarm("[비용확인]을 다시 실행해 주십시오.(COM+ 비용계산 항목구성 중 에러 발생)", caption);
            return false;
        }
        clearCosts();
        desktop.processEvents(false);  // the page is waited for with the glass as it stands
        const CostAnswer answer = readCostAnswer(askPage(fields));
        m_xaCostConfirm.reDim(cost::lastRow, cost::note);
        tdbCostConfirm.bind(&m_xaCostConfirm);
        if (answer.reading == CostReading::Good) {
            showCosts(answer);
            return true;
        }
        desktop.alarm(answer.reason, answer.reading == CostReading::Fault ? "처방전 비용확인 에러" : caption);
    } catch (const std::exception& fault) {
        desktop.alarm(fault.what(), "처방전 비용확인 에러");
    }
    return false;
}

std::string CostConfirmation::askPage(const CostFields& fields) const {
    screen::OrderCostText::CostRequest request;
    request.url = lblCBJcostAspURL.caption();
    request.doctorKey = basics::decimalText(std::int64_t{draft_.session.m_DTRPK});
    request.besongMethod =
        basics::decimalText(std::int64_t{data::delivery::code(draft_.patient.cboBesongMethod.text())});
    request.besongZip = draft_.patient.txtBesongZip.text();
    request.besongJuso = draft_.patient.txtBesongJuso.text();
    request.jobListKey = zeroIfEmpty(fields.JobListKey);
    request.drugText = fields.DrugText;
    request.chubsu = zeroIfEmpty(fields.Chubsu);
    request.drugPrice = zeroIfEmpty(fields.DrugPrice);
    request.tjmlKey = zeroIfEmpty(fields.TJMLKey);
    request.tjalSlot = fields.TJALSlot;
    request.pouchAmount = zeroIfEmpty(fields.PouchAmount);
    request.pouchTotal = zeroIfEmpty(fields.PouchTotal);
    request.payMethod =
        basics::decimalText(std::int64_t{data::pay::code(draft_.payment.cboPaymentMethod.text())});
    const auto page = form_.desktop().components().make<screen::OrderCostText>();
    return page->ChubangJunCost(request);
}

/// The former price goes before the new one is asked for: a request that fails leaves no figure standing.
void CostConfirmation::clearCosts() {
    m_xaCostConfirm.reDim(-1, cost::note);
    tdbCostConfirm.setCaption("");
    tdbCostConfirm.bind(&m_xaCostConfirm);
}

void CostConfirmation::showCosts(const CostAnswer& answer) {
    lblMileageMoney.setCaption(basics::decimalText(std::int64_t{answer.mileage}));
    for (int row = 0; row <= cost::lastRow; ++row) {
        const CostLine& line = row == 0 ? answer.total : answer.lines.at(static_cast<std::size_t>(row - 1));
        m_xaCostConfirm.set(row, cost::label, labels[static_cast<std::size_t>(row)]);
        m_xaCostConfirm.set(row, cost::amount, basics::wonText(line.amount));
        m_xaCostConfirm.set(row, cost::note, line.note);
    }
    lblSumcost.setCaption(basics::decimalText(std::int64_t{answer.total.amount}));
    tdbCostConfirm.setCaption("합계 비용 = " + basics::wonText(answer.total.amount));
    tdbCostConfirm.bind(&m_xaCostConfirm);
}

/// The figures stay, so that the doctor can compare.
bool CostConfirmation::outdated() const {
    return !m_xaCostConfirm.empty() && !m_xaCostConfirm.text(0, cost::amount).empty() &&
           !gate_.ssrCBJSend.visible();
}

void CostConfirmation::showFreshness() {
    if (lblCostOutdated.visible() == outdated()) return;
    lblCostOutdated.setVisible(outdated());
    tdbCostConfirm.refresh();
}

void CostConfirmation::showNote() {
    if (!tdbCostConfirm.onRow()) return;
    composition::frmMessage message(form_.desktop());
    composition::placeBeside(message, draft_.frames.c1eCBJMsg);
    message.read(tdbCostConfirm.value(cost::label), tdbCostConfirm.value(cost::note));
}

}  // namespace zelvo::ordering
