#include "management/OrderDetail.h"

#include <exception>

#include "basics/Numbers.h"

namespace zelvo::management {

namespace {

/// Set for as long as it lives.
class Running {
public:
    explicit Running(bool& flag) : flag_(flag) { flag_ = true; }
    ~Running() { flag_ = false; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

private:
    bool& flag_;
};

}  // namespace

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
    if (!list_.onRow() || LastRow == list_.currentRow()) return;
    // A list that was sorted brings the same order under another number: what is being typed stays.
    if (LastRow >= 0 && !behindList()) return;
    again_ = true;
    if (loading_) return;
    const Running running(loading_);
    while (again_) {
        again_ = false;
        Clear_CBJmDetail();
        Set_CBJmEditable(false);
        Show_CBJmDetail();
    }
}

void OrderDetail::Show_CBJmDetail() {
    if (!list_.onRow()) return;
    const screen::BusyPointer busy(form_.desktop());
    const bool loaded = Load_CBJmDetail(currentKey());
    if (again_) return;
    if (!loaded) {
        form_.desktop().alarm("처방전상세정보 읽는 중 에러 발생", "처방전관리");
    } else if (state.waiting()) {
        state.offerActions();
    }
    if (list_.shown()) list_.setFocus();
}

bool OrderDetail::Load_CBJmDetail(std::int32_t CBJ_PK) {
    try {
        if (!loadSections({session_.connection(), CBJ_PK})) return false;
        if (!again_) shownKey_ = CBJ_PK;
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

/// Every order asked for meanwhile ends the reads of this one.
bool OrderDetail::loadSections(const DetailRead& read) {
    data::CBJmState order;
    if (!data::clsZELVORecordSet().RecordSet_CBJmStateInfo(read.connection, read.CBJ_PK, order)) return false;
    state.show(order);
    show(sheet.txtCBJmCBMsg, order.CBJ_Msg);
    const auto next = [this](bool read_) { return read_ && !again_; };
    return (next(patient.load(read)) && next(sender.load(read)) && next(sheet.load(read)) &&
            next(decoction.loadType(read)) && next(decoction.loadDecoction(read)) && next(herbs.load(read)) &&
            costs.load(read)) ||
           again_;
}

void OrderDetail::Clear_CBJmDetail() {
    ++turn_;
    shownKey_ = 0;
    state.clear();
    patient.clear();
    sender.clear();
    sheet.clear();
    decoction.clear();
    herbs.clear();
    costs.clear();
}

void OrderDetail::Set_CBJmEditable(bool editable) {
    frames.setEditable(editable);
    patient.setEditable(editable);
}

bool OrderDetail::behindList() const {
    return list_.onRow() && currentKey() != shownKey_;
}

/// 0 for a row without a key.
std::int32_t OrderDetail::currentKey() const {
    const std::string key = list_.value("CBJ_PK");
    return basics::IsNumeric(key) ? basics::toInt32(key) : 0;
}

}  // namespace zelvo::management
