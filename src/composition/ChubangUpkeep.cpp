#include "composition/ChubangUpkeep.h"

#include <exception>

#include "basics/Text.h"
#include "data/clsZELVORecordSet.h"

namespace zelvo::composition {

namespace {

constexpr const char* deleteCaption = "내약속처방 삭제";
constexpr screen::Color darkRed{192, 0, 0}, black{};

/// Writes a text into the grid's current row. One that the database refuses leaves the row as it was.
bool writeNote(screen::Grid& grid, int column, const std::string& text) {
    const std::string former = grid.value(column);
    if (!grid.onRow() || text == basics::trim(former)) return true;
    grid.setValue(column, text);
    if (grid.writeCurrentRow()) return true;
    grid.setValue(column, former);
    return false;
}

}  // namespace

ChubangUpkeep::ChubangUpkeep(screen::Window& form, screen::Place place, session::Session& session,
                             ChubangPane& pane)
    : sscMemoSave(form, "sscMemoSave", place, "메모내용 저장"),
      sscDelete(form, "sscDelete", place, "처방삭제"),
      form_(form),
      session_(session),
      pane_(pane) {
    sscMemoSave.setTipText("선택된 처방의 메모와 구성약재의 비고 내용을 저장 합니다.");
    sscDelete.setTipText("선택된 내약속처방을 삭제 합니다.");
    sscMemoSave.onPress.add([this] { saveNotes(); });
    sscDelete.onPress.add([this] { askAndDelete(); });
}

void ChubangUpkeep::saveNotes() {
    const bool memo = writeNote(pane_.tdbList, ChubangPane::memoColumn, pane_.rtxMemo.text());
    const bool note = writeNote(pane_.tdbDetail, ChubangPane::noteColumn, pane_.rtxNote.text());
    if (memo && note) return;
    form_.desktop().alarm("메모내용 저장중 오류가 발생했습니다.", "내약속처방");
}

void ChubangUpkeep::askAndDelete() {
    const screen::Grid& list = pane_.tdbList;
    if (!list.onRow()) return;
    sscDelete.setTextColor(darkRed);
    const std::string name = list.value(ChubangPane::nameColumn);
    if (form_.desktop().ask("내약속처방 [" + name + "] 을 삭제 하시겠습니까?", deleteCaption,
                            screen::Answer::No))
        deleteCurrent();
    sscDelete.setTextColor(black);
}

/// The list then shows what the database has, and memo and herbs are those of the row that is current now.
void ChubangUpkeep::deleteCurrent() {
    bool rowLeft = false;
    auto outcome = data::CommitOutcome::Refused;
    {
        const screen::BusyPointer busy(form_.desktop(), "내약속처방을 삭제하는 중입니다.");
        outcome = deleteStored(rowLeft);
    }
    if (outcome == data::CommitOutcome::Done) return pane_.showRow();
    form_.desktop().alarm(outcome == data::CommitOutcome::Unknown
                              ? "삭제 결과를 확인할 수 없습니다. ZELVO를 다시 시작하여 확인하여 주십시오."
                              : "내약속처방 삭제중 오류가 발생했습니다.",
                          deleteCaption);
    // Another desk may have deleted it: a row that is gone must not stay in view.
    pane_.readAgain(rowLeft);
}

/// The transaction from its begin to its end. `rowLeft` tells whether the row has left the list.
data::CommitOutcome ChubangUpkeep::deleteStored(bool& rowLeft) {
    try {
        data::Connection& connection = session_.connection();
        data::Transaction transaction(connection);
        if (data::clsZELVORecordSet().Delete_MyChubangDetail(connection, pane_.currentKey()) == -1)
            return data::CommitOutcome::Refused;
        rowLeft = pane_.tdbList.deleteCurrentRow();
        if (!rowLeft) return data::CommitOutcome::Refused;
        pane_.emptyDetail();
        form_.desktop().yield();
        return transaction.commit();
    } catch (const std::exception&) {
        return data::CommitOutcome::Refused;
    }
}

}  // namespace zelvo::composition
