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
    if (LastRow < 0 || behindList()) reload();
}

void OrderDetail::reload() {
    again_ = true;
    showCurrent();
}

void OrderDetail::keepingOrder(const std::function<void()>& action) {
    {
        const Running acting(busy_);
        action();
    }
    showCurrent();
}

/// Shows what was asked for last, once nothing else runs.
void OrderDetail::showCurrent() {
    if (busy_) return;
    const Running loading(busy_);
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
    const bool loaded = Load_CBJmDetail(listKey());
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

/// In the order of the sections; once another order has been asked for, no more of this one is read.
bool OrderDetail::loadSections(const DetailRead& read) {
    const std::function<bool()> steps[] = {[&] { return state.load(read, sheet.txtCBJmCBMsg); },
                                           [&] { return patient.load(read); },
                                           [&] { return sender.load(read); },
                                           [&] { return sheet.load(read); },
                                           [&] { return decoction.loadType(read); },
                                           [&] { return decoction.loadDecoction(read); },
                                           [&] { return herbs.load(read); },
                                           [&] { return costs.load(read); }};
    for (const auto& step : steps) {
        if (again_) return true;
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
