#include "composition/frmChubangRead.h"

#include "screen/SmallWindow.h"

namespace zelvo::composition {

namespace {

constexpr int myTab = 0, yakGukTab = 1;

constexpr ChubangPaneNames myNames{.txtName = "txtMyChubang",
                                   .cmdName = "sscMyCBsearch",
                                   .txtMemo = "txtMyChubangMemo",
                                   .cmdMemo = "sscMemosearch",
                                   .tdbList = "tdbMyChubang",
                                   .tdbDetail = "tdbMyChubangDetail",
                                   .rtxMemo = "rtxMyCBMemo",
                                   .rtxNote = "rtxMyCBBigo",
                                   .chkMerge = "sschkChubangRead(0)",
                                   .cmdConfirm = "sscConfirm(0)",
                                   .memoSearch = "메모검색",
                                   .listCaption = " 내약속처방",
                                   .memoCaption = "사용자메모",
                                   .memoLabel = "메모 = '",
                                   .memoHint = "사용자 메모 내용",
                                   .faultCaption = "내약속처방"};
constexpr ChubangPaneNames yakGukNames{.txtName = "txtYakGukChubang",
                                       .cmdName = "sscYakGukCBsearch",
                                       .txtMemo = "txtYakGukChubangRefer",
                                       .cmdMemo = "sscRefesearch",
                                       .tdbList = "tdbYakGukChubang",
                                       .tdbDetail = "tdbYakGukChubangDetail",
                                       .rtxMemo = "rtxYakGukCBRefer",
                                       .rtxNote = "rtxYakGukCBBigo",
                                       .chkMerge = "sschkChubangRead(1)",
                                       .cmdConfirm = "sscConfirm(1)",
                                       .memoSearch = "참고사항검색",
                                       .listCaption = " 한약국 약속처방",
                                       .memoCaption = "참고사항",
                                       .memoLabel = "참고사항 = '",
                                       .memoHint = "참고사항 내용",
                                       .faultCaption = "한약국약속처방"};

}  // namespace

frmChubangRead::frmChubangRead(screen::Desktop& desktop, session::Session& session, HerbTable& herbs,
                               LeftOut& leftOut)
    : Window(desktop, "frmChubangRead", 900 * screen::twipsPerPixel, 560 * screen::twipsPerPixel),
      c1tabChubangRead(*this, "c1tabChubangRead", {"내약속처방", "한약국 약속처방"}),
      mine(*this, c1tabChubangRead.page(myTab), myNames, session,
           [&session](data::RecordSet& Rs, const std::string& word, data::SearchKind kind) {
               // The pharmacy's prescriptions bear the key of nobody: they are no doctor's own.
               if (session.m_DTRPK == 0) return std::int16_t{-1};
               return data::clsZELVORecordSet().RecordSet_FindMyChubang(session.connection(), Rs, word,
                                                                        session.m_DTRPK, kind);
           }),
      yakGuk(*this, c1tabChubangRead.page(yakGukTab), yakGukNames, session,
             [&session](data::RecordSet& Rs, const std::string& word, data::SearchKind kind) {
                 return data::clsZELVORecordSet().RecordSet_FindYakGukChubang(session.connection(), Rs, word,
                                                                              kind);
             }),
      upkeep(*this, c1tabChubangRead.page(myTab), session, mine),
      session_(session),
      herbs_(herbs),
      leftOut_(leftOut) {
    setCaption("처방 읽어오기");
    setMainTabs(&c1tabChubangRead);
    setTabOrder({"txtMyChubang", "sscMyCBsearch", "txtMyChubangMemo", "sscMemosearch", "tdbMyChubang",
                 "tdbMyChubangDetail", "rtxMyCBMemo", "rtxMyCBBigo", "sscMemoSave", "sschkChubangRead(0)",
                 "sscConfirm(0)", "sscDelete"});
    for (screen::Grid* grid : {&yakGuk.tdbList, &yakGuk.tdbDetail}) grid->allowsUpdate = false;
    for (screen::RichTextField* field : {&yakGuk.rtxMemo, &yakGuk.rtxNote}) field->setLocked(true);

    for (ChubangPane* pane : {&mine, &yakGuk}) pane->cmdConfirm.onPress.add([this, pane] { confirm(*pane); });
    screen::addZoomKeys(*this);
    screen::onEscape(*this, [this] { unload(); });
    onUnload.add([this] {
        mine.close();
        yakGuk.close();
        m_Merged = 0;
    });
}

void frmChubangRead::Show_ChubangRead(std::int16_t& DrugHapBang, std::int16_t MutilView) {
    if (MutilView == 0) {
        yakGuk.bind();
        if (session_.m_DTRPK == 0) {
            desktop().inform("로그인 후에 사용 하십시오.(m_DTRPK = 0)", "처방읽어오기");
            mine.tdbList.emptyHint = "로그인하신 후에 내약속처방을 찾을 수 있습니다.";
        } else {
            mine.bind();
        }
    } else {
        ChubangPane& front = c1tabChubangRead.current() == myTab ? mine : yakGuk;
        front.tdbList.setFocus();
    }
    desktop().setPointer(screen::Pointer::Normal);
    for (ChubangPane* pane : {&mine, &yakGuk}) pane->chkMerge.setValue(false);
    m_Merged = 0;
    showModal();
    DrugHapBang = m_Merged;
}

/// With the switch off it closes. With it on, the herbs in view go into the composition; where there are none
/// the window stays.
void frmChubangRead::confirm(ChubangPane& pane) {
    if (!pane.chkMerge.value()) return unload();
    herbs_.dropMergeMarks();
    if (!pane.tellLostHerbs(leftOut_) || !pane.tdbDetail.onRow()) return;
    herbs_.Load_DrugFromGrid(pane.tdbDetail);
    m_Merged = -1;
    hide();
}

}  // namespace zelvo::composition
