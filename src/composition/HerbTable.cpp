#include "composition/HerbTable.h"

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "composition/frmMessage.h"
#include "composition/frmYakGukDrug.h"
#include "composition/modHanYakGuk.h"

namespace zelvo::composition {

namespace {

constexpr std::string_view plainCaption = " 1첩 기준의 약재 구성";
constexpr std::size_t gramsLength = 7;

std::vector<screen::GridColumn> herbColumns() {
    const auto money = basics::NumberPicture::SeparatedZero;
    return {
        {.caption = ".", .shown = false},
        {.caption = "약재명", .editable = true, .width = 2249},
        {.caption = "한약국약재", .stops = false, .width = 3043},
        {.caption = "한약국약재PK", .shown = false, .stops = false},
        {.caption = "용량(g)", .editable = true, .alignRight = true, .width = 1296, .maxLength = gramsLength},
        {.caption = "단가", .stops = false, .alignRight = true, .format = money, .width = 1217},
        {.caption = "금액(원)", .stops = false, .alignRight = true, .format = money, .width = 1773},
        {.caption = "순서", .stops = false, .width = 847},
        {.caption = "상황표시", .shown = false, .stops = false},
        {.caption = "합방구분", .shown = false, .stops = false},
        {.caption = "비고", .editable = true, .button = true, .width = 609},
    };
}

/// The key of the herb in hand, -1 for none.
std::int32_t keyOf(const std::string& text) {
    try {
        return basics::IsNumeric(text) ? basics::toInt32(text) : -1;
    } catch (const basics::Fault&) {
        return -1;
    }
}

/// An amount that has no place stays blank, and its row red.
std::string amountOrBlank(const std::string& grams, const std::string& price) {
    try {
        return modHanYakGuk::amountText(grams, price, basics::NumberPicture::Separated);
    } catch (const basics::Fault&) {
        return {};
    }
}

}  // namespace

HerbTable::HerbTable(screen::Window& form, OrderFrames& frames, session::Session& session, OrderWatch& watch)
    : tdbDGL(form, "tdbDGL", frames.c1eDrug.inside(), herbColumns()),
      ssrYakGukDrug(form, "ssrYakGukDrug", frames.c1eDrug.inside(), "▲ 한약국 약재보기"),
      sscCBJRead(form, "sscCBJRead", frames.c1eDrug.inside(), "처방읽어오기"),
      sscDrugDelete(form, "sscDrugDelete", frames.c1eDrug.inside(), "삭제"),
      sscDrugReset(form, "sscDrugReset", frames.c1eDrug.inside(), "초기화"),
      sscMyChubangReg(form, "sscMyChubangReg", frames.c1eDrug.inside(), "내약속처방으로 등록"),
      form_(form),
      frames_(frames),
      session_(session),
      watch_(watch) {
    showPlainCaption();
    tdbDGL.setLabel("약재 구성");
    tdbDGL.emptyHint = "Enter를 누르면 첫 약재를 넣을 수 있습니다.";
    sscDrugDelete.setTipText("선택된 약재정보를 삭제합니다.");
    sscDrugReset.setTipText("약재정보를 초기화 합니다.");
    sscMyChubangReg.setTipText("구성한 약재정보를 내약속 처방으로 등록합니다.");
    listen();
}

void HerbTable::listen() {
    tdbDGL.onEditBegin.add([this](int) { editBegins(); });
    tdbDGL.onCellAccepted.add([this](int column) { cellChanged(column); });
    tdbDGL.onKeyDown.add([this](int& code) {
        if (!walkedThrough(code)) return keyDown(code);
        code = screen::keys::none;
        form_.desktop().sendKeys("{TAB}");
    });
    tdbDGL.onKeyPress.add([this](char32_t& character) { keyPress(character); });
    tdbDGL.onCellButton.add([this](int column) { editNote(column); });
    tdbDGL.onRowDeleted.add([this] { rowDeleted(); });
    tdbDGL.onRowStyle.add([this](int row, std::string& style) { rowStyle(row, style); });

    for (screen::Field* field :
         {static_cast<screen::Field*>(&tdbDGL), static_cast<screen::Field*>(&sscDrugDelete),
          static_cast<screen::Field*>(&sscDrugReset)})
        field->onLostFocus.add([this] { dropUnfilledRow(); });
    screen::usePressed(ssrYakGukDrug, [this] { browse(); });
    sscDrugDelete.onPress.add([this] { deleteRow(); });
    sscDrugReset.onPress.add([this] { resetTable(); });
    form_.addShortcut({"Ctrl+N", "새 약재 넣기", [this] { return tdbDGL.reachable(); },
                       [this] { form_.userInput([this] { writeNewRow(); }); }, &tdbDGL});
}

void HerbTable::Form_Load() {
    tdbDGL.addStyle("styDGLStateRed", {255, 0, 0});
    tdbDGL.addStyle("styDGLStateBlack", {0, 0, 0});
    tdbDGL.addStyle("styDGLStateGreen", {28, 129, 10});
}

void HerbTable::Init_DrugGrids() {
    session_.g_xaDrug.reDim(-1, herb::lastColumn);
    tdbDGL.bind(&session_.g_xaDrug);
}

int HerbTable::rowCount() const {
    return session_.g_xaDrug.upperRow() + 1;
}

void HerbTable::showRowCount() {
    tdbDGL.setCaption(std::string(plainCaption) + " [" + basics::decimalText(std::int64_t{rowCount()}) + "]");
}

void HerbTable::showPlainCaption() {
    tdbDGL.setCaption(plainCaption);
}

/// No cell is exempt, the note included: whoever begins to type in the table has to have the order priced
/// again.
void HerbTable::editBegins() {
    onChanging();
    onCompositionChanged();
    watch_.priceOutdated();
}

void HerbTable::cellChanged(int column) {
    tdbDGL.commitEdit();
    const bool counts = column == herb::name || column == herb::pharmacyName || column == herb::grams;
    if (!counts || !tdbDGL.onRow()) return;
    const int row = tdbDGL.currentRow();
    if (basics::isBlank(tdbDGL.value(column))) {
        cellEmptied(column, row);
        return;
    }
    modHanYakGuk::Update_DrugCell(form_.desktop(), column, row, session_.g_xaDrug);
    if (column == herb::pharmacyName) tdbDGL.refresh();
    modHanYakGuk::Renumber_DrugRows(form_.desktop(), session_.g_xaDrug);
    tdbDGL.refreshRow(row);
    showRowCount();
    onCompositionChanged();
}

void HerbTable::cellEmptied(int column, int row) {
    session_.g_xaDrug.set(row, herb::state, herb::incomplete);
    if (column == herb::grams) session_.g_xaDrug.set(row, herb::amount, "");
    tdbDGL.refreshRow(row);
}

void HerbTable::keyDown(int code) {
    if (code != screen::keys::enter) return;
    if (session_.g_xaDrug.empty() || tdbDGL.currentColumn() == herb::note) {
        addOrMove();
    } else if (tdbDGL.currentColumn() == herb::name) {
        pickHerb();
    }
}

/// Grams take digits and one point; keys that write nothing pass.
void HerbTable::keyPress(char32_t& character) const {
    if (tdbDGL.currentColumn() != herb::grams || character < U' ') return;
    const bool digit = character >= U'0' && character <= U'9';
    const bool firstPoint =
        character == U'.' && !(tdbDGL.editing() && tdbDGL.editText().find('.') != std::string::npos);
    if (!digit && !firstPoint) character = 0;
}

void HerbTable::pickHerb() {
    tdbDGL.commitEdit();
    const std::string name = tdbDGL.value("약재명");
    if (basics::isBlank(name)) return;

    frmYakGukDrug picker(form_.desktop(), session_);
    placeUnderCell(picker);
    PickedHerb picked;
    picked.key = keyOf(session_.g_xaDrug.text(tdbDGL.currentRow(), herb::key));
    if (picker.HanYakGukDrug_DropDownOpen(name, picked.key, picked.name, picked.pharmacyName, picked.price) ==
        1)
        takeHerb(picked);
}

void HerbTable::takeHerb(const PickedHerb& picked) {
    onChanging();
    const int row = tdbDGL.currentRow();
    tables::XArrayDB& herbs = session_.g_xaDrug;
    herbs.set(row, herb::name, picked.name);
    herbs.set(row, herb::pharmacyName, picked.pharmacyName);
    herbs.set(row, herb::key, picked.key);
    herbs.set(row, herb::price, picked.price);
    const std::string grams = herbs.text(row, herb::grams);
    if (!basics::IsNumeric(grams)) {
        herbs.set(row, herb::grams, "");
    } else if (basics::IsNumeric(picked.price)) {
        herbs.set(row, herb::amount, amountOrBlank(grams, picked.price));
    }
    tdbDGL.refresh();
    cellChanged(herb::pharmacyName);
    // A herb that the pharmacy has no name for leaves the packets as they are, but not their price.
    watch_.priceOutdated();
}

/// Just below the cell of the name, or at the table's left when that column is scrolled out of it.
void HerbTable::placeUnderCell(screen::Window& picker) const {
    const double nameLeft = tdbDGL.columnLeft(herb::name);
    const bool inView = nameLeft + tdbDGL.columnLeft(herb::pharmacyName) < tdbDGL.width;
    const int rowsAbove = tdbDGL.onRow() ? tdbDGL.visibleRow() + 1 : 1;
    picker.openedAt = &tdbDGL;
    picker.left = form_.left + tdbDGL.left + 440 + (inView ? nameLeft : 0);
    picker.top =
        form_.top + frames_.c1eDrug.top + frames_.sspCBJsend2.height + 1230 + tdbDGL.rowHeight * rowsAbove;
}

void HerbTable::addOrMove() {
    tdbDGL.commitEdit();
    const int next = tdbDGL.currentRow() + 1;
    next >= rowCount() ? addRow() : tdbDGL.setCurrentRow(next);
    // The table's own step for Enter then lands in the name.
    tdbDGL.setCurrentColumn(herb::blank);
}

/// The price holds until something is written into the row: left empty, it goes.
void HerbTable::addRow() {
    onChanging();
    session_.g_xaDrug.insertRows(rowCount());
    tdbDGL.refresh();
    tdbDGL.setCurrentRow(rowCount() - 1);
}

/// The name in a row that is empty yet, wherever the cursor was.
void HerbTable::writeNewRow() {
    tdbDGL.setFocus();
    if (!tdbDGL.hasFocus()) return;
    tdbDGL.commitEdit();
    endsUnfilled() ? tdbDGL.setCurrentRow(rowCount() - 1) : addRow();
    tdbDGL.setCurrentColumn(herb::name);
}

/// Whether Enter has gone through all cells of a last row and none was filled: it leads out of the table
/// then, for a row behind that one would not be filled either.
bool HerbTable::walkedThrough(int code) {
    static constexpr std::array way{herb::name, herb::grams, herb::note};
    const auto done = static_cast<std::size_t>(std::exchange(walked_, 0));
    const bool onNewRow = tdbDGL.currentRow() == rowCount() - 1 && endsUnfilled() && !tdbDGL.editing();
    if (code != screen::keys::enter || !onNewRow) return false;
    if (tdbDGL.currentColumn() == way[done]) walked_ = static_cast<int>(done) + 1;
    return walked_ == static_cast<int>(way.size()) && std::exchange(walked_, 0) > 0;
}

bool HerbTable::hasLines() const {
    const bool writing = tdbDGL.editing() && !basics::isBlank(tdbDGL.editText());
    return rowCount() > 1 || writing || (rowCount() == 1 && !endsUnfilled());
}

bool HerbTable::endsUnfilled() const {
    return rowCount() > 0 && modHanYakGuk::isUnfilled(session_.g_xaDrug, rowCount() - 1);
}

void HerbTable::dropUnfilledRow() {
    if (tdbDGL.hasFocus() || sscDrugDelete.hasFocus() || sscDrugReset.hasFocus() || !endsUnfilled()) return;
    session_.g_xaDrug.deleteRows(session_.g_xaDrug.upperRow());
    tdbDGL.refresh();
    if (session_.g_xaDrug.empty()) return showPlainCaption();
    showRowCount();
}

void HerbTable::editNote(int column) {
    if (column != herb::note || !tdbDGL.onRow()) return;
    tdbDGL.commitEdit();
    frmMessage note(form_.desktop());
    placeBeside(note, frames_.c1eCBJMsg);
    note.setCaption(tdbDGL.value("약재명"));
    note.rtxMessage.setText(tdbDGL.value("비고"));
    tdbDGL.setValue("비고", note.BigoInfo());
    note.unload();
}

void HerbTable::rowStyle(int row, std::string& style) const {
    const auto at = static_cast<std::size_t>(row);
    if (session_.g_xaDrug.cellText(at, herb::state) != herb::complete) {
        style = "styDGLStateRed";
    } else if (session_.g_xaDrug.cellText(at, herb::merged) == herb::mergedMark) {
        style = "styDGLStateGreen";
    } else {
        style = "styDGLStateBlack";
    }
}

void HerbTable::deleteRow() {
    tdbDGL.commitEdit();
    if (session_.g_xaDrug.empty()) return;
    if (!form_.desktop().ask("선택된 약재를 삭제하시겠습니까?", "처방약재삭제", screen::Answer::No)) return;
    onChanging();
    tdbDGL.deleteCurrentRow();
    onCompositionChanged();
    watch_.priceOutdated();
}

/// A table that a deletion has emptied shows "[0]": it was changed.
void HerbTable::rowDeleted() {
    modHanYakGuk::Renumber_DrugRows(form_.desktop(), session_.g_xaDrug);
    tdbDGL.refresh();
    showRowCount();
}

void HerbTable::resetTable() {
    tdbDGL.commitEdit();
    if (session_.g_xaDrug.empty()) return;
    if (!form_.desktop().ask("약재정보를 초기화하시겠습니까?", "처방약재 초기화", screen::Answer::No)) return;
    onChanging();
    session_.g_xaDrug.reDim(-1, herb::lastColumn);
    tdbDGL.refresh();
    watch_.priceOutdated();
    showPlainCaption();
    onCompositionChanged();
    onReset();
}

/// The picker without a herb in hand: what is chosen there goes nowhere.
void HerbTable::browse() {
    frmYakGukDrug picker(form_.desktop(), session_);
    picker.left = form_.left + 200;
    picker.top = tdbDGL.height + frames_.c1eDrug.top - 1000;
    picker.showModal();
}

}  // namespace zelvo::composition
