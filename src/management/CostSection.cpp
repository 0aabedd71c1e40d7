#include "management/CostSection.h"

#include <utility>

#include "basics/Pictures.h"
#include "management/DetailNote.h"

namespace zelvo::management {

namespace {

constexpr int labelColumn = 0, amountColumn = 1, buttonColumn = 2, noteColumn = 3;
constexpr const char* currentStyle = "styCBJmCost";

constexpr std::array<const char*, CostSection::lastRow + 1> labels = {"         [ 합계비용 ]",
                                                                      " 한약국에서 입력한 비용",
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
            {.caption = "비용(원)", .alignRight = true, .width = 1300},
            {.caption = "자세히", .button = true, .width = 700},
            {.caption = "비용세부항목", .shown = false, .stops = false}};
}

CostSection::Lines storedLines(data::CBJmCosts costs) {
    data::CostNotes& notes = costs.notes;
    const std::string lineBreak(basics::lineBreak);
    CostSection::Lines lines = {
        {{},
         {std::int64_t{costs.CBJ_UserCost} + costs.CBJ_UserCostNoVAT,
          "한약국에서 직접 입력한 비용입니다." + lineBreak + "[VAT] " + costs.CBJ_UserCostNote + lineBreak +
              "[no VAT] " + costs.CBJ_UserCostNoteNoVAT},
         {costs.CBJ_JojeCost, std::move(notes.CCD_JojeCost)},
         {costs.CBJ_DrugCost, std::move(notes.CCD_DrugCost)},
         {costs.CBJ_TJMLCost, std::move(notes.CCD_TJMLcost)},
         {costs.CBJ_TJALCost, std::move(notes.CCD_TJALCost)},
         {costs.CBJ_PouchCost, std::move(notes.CCD_PouchCost)},
         {costs.CBJ_BoxCost, std::move(notes.CCD_BoxCost)},
         {costs.CBJ_FormCost, std::move(notes.CCD_FormCost)},
         {costs.CBJ_BesongCost, std::move(notes.CCD_BesongCost)},
         {costs.CBJ_VATCost, std::move(notes.CCD_VATCost)},
         {costs.CBJ_ElseCost, std::move(notes.CCD_ElseCost)}}};
    std::int64_t sum = 0;
    for (const CostSection::Line& line : lines) sum += line.amount;
    lines[CostSection::totalRow] = {
        sum, "처방전 합계비용 = " + basics::wonText(sum, basics::NumberPicture::Separated)};
    return lines;
}

}  // namespace

CostSection::CostSection(screen::Window& form, DetailFrames& frames)
    : tdbCBJmCost(form, "tdbCBJmCost", frames.sspCBJm9.inside(), costColumns()), form_(form) {
    tdbCBJmCost.setLabel("비용 항목");
    tdbCBJmCost.allowsUpdate = false;
    tdbCBJmCost.emptyHint = "목록에서 처방전을 누르면 비용이 여기에 나타납니다.";
    tdbCBJmCost.bind(&m_xaCBJmCost);
    tdbCBJmCost.onRowStyle.add([this](int row, std::string& style) {
        if (row == tdbCBJmCost.currentRow()) style = currentStyle;
    });
    tdbCBJmCost.onCellButton.add([this, &frames](int column) {
        if (column == buttonColumn && tdbCBJmCost.onRow())
            readNote(form_.desktop(), frames, tdbCBJmCost.value(labelColumn), tdbCBJmCost.value(noteColumn));
    });
}

void CostSection::Form_Load() {
    tdbCBJmCost.addStyle(currentStyle, {0, 0, 192});
}

bool CostSection::load(const DetailRead& read) {
    makeRows();
    data::CBJmCosts costs;
    if (!data::clsZELVORecordSet().RecordSet_CBJmCostInfo(read.connection, read.CBJ_PK, costs)) return false;
    stored_ = storedLines(std::move(costs));
    showStored();
    return true;
}

void CostSection::makeRows() {
    m_xaCBJmCost.reDim(lastRow, noteColumn);
    tdbCBJmCost.bind(&m_xaCBJmCost);
}

void CostSection::show(const Lines& lines) {
    if (m_xaCBJmCost.upperRow() != lastRow) makeRows();
    for (int row = 0; row <= lastRow; ++row) {
        const Line& line = lines[static_cast<std::size_t>(row)];
        m_xaCBJmCost.set(row, labelColumn, labels[static_cast<std::size_t>(row)]);
        m_xaCBJmCost.set(row, amountColumn, basics::wonText(line.amount, basics::NumberPicture::Separated));
        m_xaCBJmCost.set(row, noteColumn, line.note);
    }
    tdbCBJmCost.refresh();
    form_.desktop().yield();
}

void CostSection::clear() {
    stored_ = {};
    m_xaCBJmCost.reDim(-1, noteColumn);
    tdbCBJmCost.refresh();
}

}  // namespace zelvo::management
