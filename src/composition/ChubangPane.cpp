#include "composition/ChubangPane.h"

#include <exception>
#include <utility>

#include "basics/Numbers.h"
#include "basics/Text.h"

namespace zelvo::composition {

namespace {

constexpr const char* detailCaption = " 구성약재";
constexpr const char* noteHint = "비고내용";
constexpr const char* unchosen =
    "처방을 선택하면 약재가 여기에 나타납니다. 처방전에 넣으시려면 아래의 [기존 구성 약재에 합방하기]를 먼저 "
    "켜십시오.";
constexpr const char* noHerbs = "이 처방에는 약재가 없습니다.";
constexpr const char* unread = "약재를 읽지 못하였습니다. 목록의 처방을 다시 눌러 주십시오.";
constexpr screen::Color darkRed{192, 0, 0};

std::vector<screen::GridColumn> listColumns(const char* memoCaption) {
    return {{.caption = "약속처방PK", .field = "UCB_PK", .shown = false},
            {.caption = "처방명", .field = "UCB_Name", .width = 2963},
            {.caption = "등록날짜", .field = "UCB_Date", .width = 1852},
            {.caption = memoCaption, .field = "UCB_Note", .width = 1535}};
}

std::vector<screen::GridColumn> herbColumns() {
    return {{.caption = "약재PK", .field = "UDET_PK", .shown = false},
            {.caption = "약속처방PK", .field = "UCB_PK", .shown = false},
            {.caption = "약재명", .field = "DGL_CallSign", .width = 2196},
            {.caption = "한약국약재PK", .field = "DGL_PK", .shown = false},
            {.caption = "한약국약재", .field = "DGL_Internal", .width = 2249},
            {.caption = "용량(g)", .field = "UDET_Weight", .alignRight = true, .width = 1349},
            {.caption = "순서", .field = "UDET_Order", .alignRight = true, .width = 794},
            {.caption = "비고", .field = "UDET_Note", .width = 688}};
}

}  // namespace

ChubangPane::ChubangPane(screen::Window& form, screen::Place place, const ChubangPaneNames& names,
                         session::Session& session, Find find)
    : txtName(form, names.txtName, place),
      cmdName(form, names.cmdName, place, "처방명검색"),
      txtMemo(form, names.txtMemo, place),
      cmdMemo(form, names.cmdMemo, place, names.memoSearch),
      tdbList(form, names.tdbList, place, listColumns(names.memoCaption)),
      tdbDetail(form, names.tdbDetail, place, herbColumns()),
      rtxMemo(form, names.rtxMemo, place),
      rtxNote(form, names.rtxNote, place),
      chkMerge(form, names.chkMerge, place, "기존 구성 약재에 합방하기"),
      cmdConfirm(form, names.cmdConfirm, place, "닫 기"),
      form_(form),
      names_(names),
      session_(session),
      find_(std::move(find)) {
    dressFields();
    listen();
}

void ChubangPane::dressFields() {
    txtName.setLabel("처방명");
    txtName.setHangul(true);
    txtMemo.setLabel(names_.memoCaption);
    txtMemo.setHangul(true);
    tdbList.setCaption(names_.listCaption);
    tdbList.setLabel(basics::trim(names_.listCaption));
    tdbList.emptyHint = std::string("처방명이나 ") + names_.memoCaption +
                        "의 일부를 넣고 Enter를 누르십시오. 비워 두면 모두 검색합니다.";
    tdbDetail.setCaption(detailCaption);
    tdbDetail.setLabel("구성약재");
    tdbDetail.emptyHint = unchosen;
    rtxMemo.setText(names_.memoHint);
    rtxMemo.setLabel(names_.memoCaption);
    rtxNote.setText(noteHint);
    rtxNote.setLabel("비고");
    for (screen::RichTextField* field : {&rtxMemo, &rtxNote}) {
        field->setMultiLine(true);
        field->setHangul(true);
    }
    chkMerge.setTipText("선택된 처방의 약재를 [처방전의 약재정보]에 추가 합니다.");
}

void ChubangPane::listen() {
    searchBy(txtName, cmdName, data::searchName);
    searchBy(txtMemo, cmdMemo, data::searchMemo);
    tdbList.onRowChange.add([this](int previousRow, int) {
        if (previousRow != tdbList.currentRow() && tdbList.onRow()) showRow();
    });
    // After a search that failed its row still stands there, without its herbs.
    tdbList.onRowAgain.add([this] {
        if (!rsDetail_.isOpen()) told([this] { showHerbs(); });
    });
    tdbList.onHeadClick.add([this](int column) { sortBy(column); });
    tdbDetail.onRowChange.add([this](int previousRow, int) {
        if (previousRow != tdbDetail.currentRow() && tdbDetail.onRow())
            rtxNote.setText(basics::trim(tdbDetail.value(noteColumn)));
    });
    chkMerge.onClick.add([this] { mergeSwitched(); });
}

/// Enter in the field does the same as the button.
void ChubangPane::searchBy(screen::TextField& field, screen::Button& button, data::SearchKind kind) {
    button.onPress.add([this, &field, kind] { search(field, kind); });
    field.onKeyDown.add([this, &field, kind](int& code) {
        if (code != screen::keys::enter) return;
        code = screen::keys::none;
        search(field, kind);
    });
}

void ChubangPane::bind() {
    tdbList.bind(&rsList_);
    tdbDetail.bind(&rsDetail_);
}

void ChubangPane::close() {
    rsDetail_.close();
    rsList_.close();
}

std::int32_t ChubangPane::currentKey() const {
    return basics::toInt32(tdbList.value(keyColumn));
}

void ChubangPane::search(screen::TextField& field, data::SearchKind kind) {
    const std::string word = basics::trim(field.text());
    const screen::BusyPointer busy(form_.desktop());
    const bool found = read(word, kind);
    emptyDetail();
    if (!found) {
        form_.desktop().inform("데이터베이스 접속에 오류가 발생했습니다.", names_.faultCaption);
        field.setFocus();
        return;
    }
    tdbList.refresh();
    const std::string label = kind == data::searchName ? "처방명 = '" : names_.memoLabel;
    tdbList.setCaption(word.empty() ? names_.listCaption : label + word + "' 검색결과");
    if (tdbList.rowCount() > 0) return tdbList.setFocus();
    rtxMemo.setText(names_.memoHint);
    field.setFocus();
}

/// False when the list can't be read: then its rows stay as they are.
bool ChubangPane::read(const std::string& word, data::SearchKind kind) {
    try {
        if (find_(rsList_, word, kind) == -1) return false;
    } catch (const std::exception&) {
        return false;
    }
    word_ = word;
    kind_ = kind;
    tdbList.emptyHint =
        word.empty() ? "등록된 처방이 없습니다." : "[" + word + "](으)로 찾은 처방이 없습니다.";
    tdbList.markSorted(-1);
    return true;
}

void ChubangPane::readAgain(bool rowLeft) {
    if (!read(word_, kind_)) {
        if (!rowLeft) return;
        rsList_.close();
    }
    tdbList.refresh();
    if (!tdbList.onRow()) showRow();
}

void ChubangPane::showRow() {
    if (!tdbList.onRow()) {
        rtxMemo.setText(names_.memoHint);
        emptyDetail();
        return;
    }
    told([this] {
        rtxMemo.setText(basics::trim(tdbList.value(memoColumn)));
        showHerbs();
    });
}

/// What goes wrong in showing a row is told, and leaves no herbs in view.
void ChubangPane::told(const std::function<void()>& showing) {
    try {
        showing();
    } catch (const std::exception& fault) {
        emptyDetail();
        tdbDetail.emptyHint = unread;
        form_.desktop().alarm(fault.what(), "내약속처방 에러");
    }
}

/// Herbs that can't be read leave none in view: those of another prescription must not be taken for them.
void ChubangPane::showHerbs() {
    const std::int32_t UCB_PK = currentKey();
    if (data::clsZELVORecordSet().RecordSet_MyDrugList(session_.connection(), rsDetail_, UCB_PK) == -1) {
        emptyDetail();
        tdbDetail.emptyHint = unread;
        form_.desktop().inform("데이터베이스 접속에 오류가 발생했습니다.", names_.faultCaption);
        return;
    }
    tdbDetail.emptyHint = noHerbs;
    tdbDetail.refresh();
    tdbDetail.setCaption("[ " + tdbList.value(nameColumn) + " ]의" + detailCaption);
    if (!tdbDetail.onRow()) rtxNote.setText(noteHint);
}

bool ChubangPane::tellLostHerbs(LeftOut& leftOut) const {
    if (!rsDetail_.isOpen()) return true;
    std::vector<data::LostHerb> lost;
    if (data::clsZELVORecordSet().RecordSet_LostDrugs(session_.connection(), currentKey(), lost) == -1) {
        form_.desktop().inform("데이터베이스 접속에 오류가 발생했습니다.", names_.faultCaption);
        return false;
    }
    leftOut.tellHerbs(lost);
    return true;
}

void ChubangPane::emptyDetail() {
    rsDetail_.close();
    tdbDetail.emptyHint = unchosen;
    tdbDetail.refresh();
    tdbDetail.setCaption(detailCaption);
    rtxNote.setText(noteHint);
}

/// Both columns turn one direction.
void ChubangPane::sortBy(int column) {
    if (!rsList_.isOpen() || (column != nameColumn && column != dateColumn)) return;
    const bool byName = column == nameColumn;
    if (sortDescending_) {
        rsList_.sort(byName ? "UCB_Name  ASC " : "UCB_Date  ASC ");
    } else {
        rsList_.sort(byName ? "UCB_Name DESC " : "UCB_Date DESC ");
    }
    tdbList.markSorted(column, !sortDescending_);
    sortDescending_ = !sortDescending_;
    tdbList.refresh();
}

void ChubangPane::mergeSwitched() {
    cmdConfirm.setCaption(chkMerge.value() ? "합 방" : "닫 기");
    cmdConfirm.setTextColor(chkMerge.value() ? darkRed : screen::Color{});
}

}  // namespace zelvo::composition
