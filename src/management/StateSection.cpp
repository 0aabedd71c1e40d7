#include "management/StateSection.h"

#include <string_view>

#include "basics/Held.h"
#include "data/Words.h"

namespace zelvo::management {

namespace {

constexpr const char *frameCaption = " 진행상태", *unknownCaption = " 진행상태 - 취소 기록 없음";

std::string_view payWord(std::string_view method) {
    if (method == "1") return data::pay::deposit;
    if (method == "2") return data::pay::later;
    return method == "3" ? data::pay::settled : std::string_view();
}

std::string_view paidWord(std::string_view flag) {
    if (flag.empty()) return {};
    return flag == "False" ? "미지불" : "지불";
}

}  // namespace

StateSection::StateSection(screen::Window& form, DetailFrames& frames)
    : ssrCBJmCancel(form, "ssrCBJmCancel", frames.sspCBJm0.inside(), "처방전취소"),
      picCBJstate{{{form, "picCBJstate(0)", frames.sspCBJm1.inside()},
                   {form, "picCBJstate(1)", frames.sspCBJm1.inside()},
                   {form, "picCBJstate(2)", frames.sspCBJm1.inside()},
                   {form, "picCBJstate(3)", frames.sspCBJm1.inside()}}},
      picCBJcancel(form, "picCBJcancel", frames.sspCBJm1.inside()),
      lblState{{{form, "lblState(0)", frames.sspCBJm1.inside(), "대기 -"},
                {form, "lblState(1)", frames.sspCBJm1.inside(), "제작 -"},
                {form, "lblState(2)", frames.sspCBJm1.inside(), "발송대기 -"},
                {form, "lblState(3)", frames.sspCBJm1.inside(), "완료"}}},
      lblStatecancel(form, "lblStatecancel", frames.sspCBJm1.inside(), "취소된 처방전"),
      txtCBJmIsPaid(form, "txtCBJmIsPaid", frames.c1eCBJm2.inside()),
      txtCBJmPayMethod(form, "txtCBJmPayMethod", frames.c1eCBJm2.inside()),
      sschkCBJmUpdate(form, "sschkCBJmUpdate", frames.c1eCBJm2.inside(), "대기중인 처방전 수정"),
      ssrCBJreuse(form, "ssrCBJreuse", frames.c1eCBJm2.inside(), "처방전 재사용"),
      ssrCBJmUpdate(form, "ssrCBJmUpdate", frames.c1eCBJm2.inside(), "처방전 수정"),
      frames_(frames) {
    const char* words[] = {"대기", "제작", "발송대기", "완료"};
    for (std::size_t i = 0; i < picCBJstate.size(); ++i) picCBJstate[i].setLabel(words[i]);
    picCBJcancel.setLabel(lblStatecancel.caption());
    txtCBJmIsPaid.setLabel("지불여부:");
    txtCBJmPayMethod.setLabel("지불방식:");
    for (screen::TextField* field : {&txtCBJmIsPaid, &txtCBJmPayMethod}) field->setReadOnly(true);
    sschkCBJmUpdate.onClick.add([this] {
        if (!quiet_) onUpdateClicked(sschkCBJmUpdate.value());
    });
    clear();
}

bool StateSection::load(const DetailRead& read, screen::TextField& message) {
    data::CBJmState state;
    if (!data::clsZELVORecordSet().RecordSet_CBJmStateInfo(read.connection, read.CBJ_PK, state)) return false;
    show(state);
    message.setText(state.CBJ_Msg);
    return true;
}

void StateSection::show(const data::CBJmState& state) {
    const bool canceled = state.CBJ_IsCanceled == "True";
    const std::string reached = canceled ? std::string() : state.CBJ_State;
    // The marks of a cancelled order stand for one without a state as well; that it is none is said beside.
    frames_.sspCBJm1.setCaption(reached.empty() && !canceled ? unknownCaption : frameCaption);
    picCBJcancel.setVisible(reached.empty());
    lblStatecancel.setVisible(reached.empty());
    for (std::size_t i = 0; i < picCBJstate.size(); ++i)
        picCBJstate[i].setVisible(reached == std::to_string(i));
    txtCBJmIsPaid.setText(paidWord(state.CBJ_IsPaid));
    txtCBJmPayMethod.setText(payWord(state.CBJ_PayMethod));
}

void StateSection::clear() {
    for (screen::Picture& picture : picCBJstate) picture.setVisible(false);
    picCBJcancel.setVisible(false);
    lblStatecancel.setVisible(false);
    frames_.sspCBJm1.setCaption(frameCaption);
    txtCBJmIsPaid.setText("");
    txtCBJmPayMethod.setText("");
    withdrawActions();
    sschkCBJmUpdate.setVisible(false);
}

void StateSection::offerActions() {
    ssrCBJmCancel.setVisible(true);
    uncheckUpdate();
    sschkCBJmUpdate.setVisible(true);
}

void StateSection::withdrawActions() {
    withdrawButtons();
    uncheckUpdate();
}

void StateSection::withdrawButtons() {
    ssrCBJmCancel.setVisible(false);
    ssrCBJmUpdate.setVisible(false);
}

void StateSection::uncheckUpdate() {
    const basics::Held quiet(quiet_, true);
    sschkCBJmUpdate.setValue(false);
}

}  // namespace zelvo::management
