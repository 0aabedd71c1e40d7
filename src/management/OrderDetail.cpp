#include "management/OrderDetail.h"

#include <exception>

#include "basics/Held.h"
#include "basics/Numbers.h"

namespace zelvo::management {

OrderDetail::OrderDetail(screen::Window& form, screen::Place managementTab, session::Session& session,
                         screen::Grid& list)
    : frames(form, managementTab),
      state(form, frames),
      patient(form, frames),
      sender(form, frames),
      sheet(form, frames, session, patient.txtCBJmPatientName),
      decoction(form, frames, session),
      herbs(form, frames),
      costs(form, frames),
      session_(session),
      form_(form),
      list_(list) {
    list_.onRowChange.add([this](int LastRow, int LastCol) { On_CBJRowChange(LastRow, LastCol); });
    list_.onRowAgain.add([this] { On_CBJRowChange(-1); });
}

void OrderDetail::Form_Load() {
    patient.Form_Load();
    costs.Form_Load();
}

void OrderDetail::On_CBJRowChange(int LastRow, int) {
    if (!list_.onRow()) return state.withdrawButtons();
    if (LastRow == list_.currentRow()) return;
    // A list that was sorted brings the same order under another number: what is being typed stays.
    if (LastRow < 0 || behindList()) reload();
}

void OrderDetail::reload() {
    const auto ask = [this] { turn_ = Turn::Asked; };
    turn_ == Turn::Free ? keepingOrder(ask) : ask();
}

void OrderDetail::keepingOrder(const std::function<void()>& action) {
    const basics::Held turn(turn_, Turn::Taken);
    action();
    while (turn_ == Turn::Asked) {
        turn_ = Turn::Taken;
        showCurrent();
    }
}

void OrderDetail::showCurrent() {
    const std::int32_t former = shownKey_;
    forget();
    if (list_.onRow()) {
        Show_CBJmDetail();
    } else if (former != 0) {
        shows(former);
    }
}

void OrderDetail::Show_CBJmDetail() {
    if (!list_.onRow()) return;
    const bool shown = shows(listKey());
    if (turn_ == Turn::Asked) return;
    if (shown && state.waiting()) state.offerActions();
    if (list_.shown()) list_.setFocus();
}

/// Loads an order; a failure has been told.
bool OrderDetail::shows(std::int32_t CBJ_PK) {
    const screen::BusyPointer busy(form_.desktop(), "처방전을 불러오는 중입니다.");
    const bool loaded = Load_CBJmDetail(CBJ_PK);
    if (!loaded && turn_ != Turn::Asked)
        form_.desktop().alarm("처방전상세정보 읽는 중 에러 발생", "처방전관리");
    return loaded;
}

bool OrderDetail::Load_CBJmDetail(std::int32_t CBJ_PK) {
    try {
        if (!loadSections({session_.connection(), CBJ_PK})) return false;
        if (turn_ != Turn::Asked) shownKey_ = CBJ_PK;
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

namespace {

/// What the sections ask before they know which add-ons the order has.
void readPieces(data::Connection& line, std::int32_t CBJ_PK) {
    data::clsZELVORecordSet records;
    data::CBJmState state;
    data::CBJmPatient patient;
    data::CBJmSender sender;
    data::CBJmEatGuide sheet;
    data::CBJmJobList type;
    data::CBJmTangJun decoction;
    records.RecordSet_CBJmStateInfo(line, CBJ_PK, state);
    records.RecordSet_CBJmPatientInfo(line, CBJ_PK, patient);
    records.RecordSet_CBJmSendInfo(line, CBJ_PK, sender);
    records.RecordSet_CBJmEatGuide(line, CBJ_PK, sheet);
    records.RecordSet_CBJmJobListInfo(line, CBJ_PK, type);
    records.RecordSet_CBJmTangJunInfo(line, CBJ_PK, decoction);
}

/// What they ask behind those.
void readHerbsAndCosts(data::Connection& line, std::int32_t CBJ_PK) {
    data::clsZELVORecordSet records;
    data::RecordSet herbs;
    std::string packets, price;
    std::vector<data::LostHerb> lost;
    data::CBJmCosts costs;
    records.RecordSet_CBJmDrug(line, herbs, CBJ_PK, packets, price, lost);
    records.RecordSet_CBJmCostInfo(line, CBJ_PK, costs);
}

}  // namespace

/// In the order of the sections; once another order has been asked for, no more of this one is read. On a
/// server they share two trips.
bool OrderDetail::loadSections(const DetailRead& read) {
    const data::ReadAhead ahead(
        read.connection, [&](data::Connection& line) { readPieces(line, read.CBJ_PK); },
        [&](data::Connection& line) { readHerbsAndCosts(line, read.CBJ_PK); });
    const std::function<bool()> steps[] = {[&] { return state.load(read, sheet.txtCBJmCBMsg); },
                                           [&] { return patient.load(read); },
                                           [&] { return sender.load(read); },
                                           [&] { return sheet.load(read); },
                                           [&] { return decoction.loadType(read); },
                                           [&] { return decoction.loadDecoction(read); },
                                           [&] { return herbs.load(read); },
                                           [&] { return costs.load(read); }};
    for (const auto& step : steps) {
        if (turn_ == Turn::Asked) return true;
        if (!step()) return false;
    }
    return true;
}

void OrderDetail::Clear_CBJmDetail() {
    shownKey_ = 0;
    state.clear();
    patient.clear();
    sender.clear();
    sheet.clear();
    decoction.clear();
    herbs.clear();
    costs.clear();
}

void OrderDetail::forget() {
    Clear_CBJmDetail();
    Set_CBJmEditable(false);
}

void OrderDetail::Set_CBJmEditable(bool editable) {
    frames.setEditable(editable);
    patient.setEditable(editable);
}

void OrderDetail::withdraw() {
    Set_CBJmEditable(false);
    sheet.setEditable(false);
    state.withdrawActions();
}

bool OrderDetail::behindList() const {
    return list_.onRow() && listKey() != shownKey_;
}

std::int32_t OrderDetail::listKey() const {
    const std::string key = list_.value("CBJ_PK");
    return basics::IsNumeric(key) ? basics::toInt32(key) : 0;
}

}  // namespace zelvo::management
