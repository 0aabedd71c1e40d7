#include "host/frmDoctorOCSmain.h"

#include "basics/Fault.h"
#include "composition/frmMessage.h"
#include "input/Shortcuts.h"
#include "input/TabOrder.h"
#include "screen/SmallWindow.h"

namespace zelvo::host {

namespace {

constexpr double designWidth = 1280 * screen::twipsPerPixel, designHeight = 800 * screen::twipsPerPixel;

// The window's end can't be stopped by a broken line: a step that fails is passed over.
template <class Step>
void regardless(Step step) {
    try {
        step();
    } catch (const basics::Fault&) {
    }
}

}  // namespace

frmDoctorOCSmain::frmDoctorOCSmain(screen::Desktop& desktop, session::Session& session)
    : Window(desktop, "frmDoctorOCSmain", designWidth, designHeight),
      c1eMain(*this, "c1eMain"),
      c1tMain(*this, "c1tMain", {"한약국 공지사항", "처방전 작성 및 전송", "처방전 관리", "MY OCS"},
              c1eMain.inside()),
      stbMain(*this, "stbMain"),
      notices(*this, c1tMain.page(noticeTab), session),
      balance(*this, c1tMain.page(myOcsTab), session),
      order(*this, c1tMain.page(orderTab), session, balance),
      management(*this, c1tMain.page(managementTab), session, order, balance,
                 [this] { c1tMain.select(orderTab); }),
      profile(*this, c1tMain.page(myOcsTab), session, order.sender),
      addresses(*this, session, order.frames.c1tPatient1, addressBlocks()),
      login(*this, c1tMain.page(noticeTab), session,
            {c1tMain, stbMain, profile, order.sender, order.payment, management.search.cbodtrList}),
      session_(session),
      rules_(*this) {
    setCaption("ZEL-VO 메인 윈도우");
    setMainTabs(&c1tMain);
    setTabOrder(input::tabOrder());
    input::addShortcuts(*this);
    addShortcut({"F1", "단축키 보기", [] { return true; }, [this] { userInput([this] { showShortcuts(); }); },
                 &c1tMain});
    onLoad.add([this] { Form_Load(); });
    onResize.add([this] { Form_Resize(); });
    onUnload.add([this] { Form_Unload(); });
    c1tMain.onClick.add([this] { c1tMain_Click(); });
    login.whenDoctorLeaves = [this] {
        management.forget();
        order.usable.forget();
    };
    login.whenLoggedIn = [this] {
        management.detail.On_CBJRowChange(-1);
        balance.Clear_StockView();
        order.keeping.begin();
        order.herbUndo.forget();
        order.usable.forget();
    };
}

/// The price of a new order depends on where it goes and where it comes from.
std::vector<services::AddressBlock> frmDoctorOCSmain::addressBlocks() {
    composition::PatientDelivery& patient = order.patient;
    composition::SenderBlock& sender = order.sender;
    management::PatientSection& sentTo = management.detail.patient;
    management::SenderSection& sentFrom = management.detail.sender;
    return {{patient.ssrZipCode0, patient.txtBesongZip, patient.txtBesongJuso, &order.gate},
            {sender.ssrZipCode1, sender.txtBalsongZip, sender.txtBalsongJuso, &order.gate},
            {sentTo.ssrZipCode2, sentTo.txtCBJmBeZip, sentTo.txtCBJmBeJuso},
            {sentFrom.ssrZipCode3, sentFrom.txtCBJmBalZip, sentFrom.txtCBJmBalJuso},
            {profile.ssrZipCode4, profile.txtDTRhoszip, profile.txtDTRaddress}};
}

void frmDoctorOCSmain::showShortcuts() {
    std::string text;
    const auto tell = [&](const screen::Field* serves) {
        for (const screen::Shortcut& one : shortcuts())
            if (one.serves == serves) text += one.keys + "\t" + one.what + "\r\n";
    };
    tell(nullptr);
    tell(&c1tMain);
    for (const screen::Field* field : tabOrder())
        if (field != &c1tMain) tell(field);
    text +=
        "Enter\t다음 항목으로, 단추에서는 누르기\r\nF4\t표에서 칸의 단추 누르기\r\n"
        "Alt+1~4\t탭 고르기\r\nF12\t지원 기록";
    composition::frmMessage sheet(desktop());
    sheet.left = left + width() / 2;
    sheet.top = top + height() / 3;
    sheet.read("단축키", text);
}

void frmDoctorOCSmain::Form_Load() {
    order.Form_Load();
    management.Form_Load();
    profile.Form_Load();
}

void frmDoctorOCSmain::Form_Resize() {
    c1tMain_Click();
}

void frmDoctorOCSmain::c1tMain_Click() {
    order.gate.Set_CostConfirmed(false);
    order.usable.forget();
    management.detail.state.ssrCBJmCancel.height = 225;
}

void frmDoctorOCSmain::Form_Unload() {
    regardless([this] { releaseArrays(); });
    regardless([this] { releaseConnections(); });
    regardless([this] { releaseRecordSets(); });
    regardless([this] { releaseStyles(); });
}

void frmDoctorOCSmain::releaseArrays() {
    for (tables::XArrayDB* array :
         {&order.options.m_xaJobList, &session_.g_xaDrug, &order.options.m_xaTJML, &order.options.m_xaTJAL,
          &management.search.m_xaCBJ, &order.cost.m_xaCostConfirm, &management.detail.costs.m_xaCBJmCost}) {
        array->reDim(-1, -1);
    }
}

void frmDoctorOCSmain::releaseConnections() {
    if (session_.g_conYakGuk) {
        regardless([this] {
            if (session_.g_conYakGuk->isOpen()) session_.g_conYakGuk->close();
        });
        session_.g_conYakGuk.reset();
    }
    session_.g_conChart = nullptr;
}

void frmDoctorOCSmain::releaseRecordSets() {
    for (data::RecordSet* set : {&notices.m_rsGongJi, &balance.m_rsInStock, &balance.m_rsUsedStock,
                                 &balance.m_rsMileage, &management.detail.herbs.m_rsCBJmDGL}) {
        if (set->isOpen()) set->close();
    }
}

void frmDoctorOCSmain::releaseStyles() {
    for (screen::Grid* grid :
         {&order.herbs.tdbDGL, &order.options.tdbJobList, &order.options.tdbTJML, &order.options.tdbTJAL,
          &order.cost.tdbCostConfirm, &management.detail.costs.tdbCBJmCost}) {
        grid->dropStyles();
    }
}

}  // namespace zelvo::host
