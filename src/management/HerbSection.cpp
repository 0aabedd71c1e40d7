#include "management/HerbSection.h"

#include "basics/Numbers.h"
#include "basics/Pictures.h"
#include "composition/LeftOut.h"
#include "management/DetailNote.h"

namespace zelvo::management {

namespace {

constexpr int nameColumn = 3, noteColumn = 8;
constexpr const char *unchosen = "목록에서 처방전을 누르면 약재가 여기에 나타납니다.",
                     *unread = "약재를 읽지 못하였습니다. 목록의 처방전을 다시 눌러 주십시오.",
                     *noHerbs = "이 처방전에는 약재가 없습니다.",
                     *noneListed = "이 처방전의 약재는 모두 한약국의 목록에서 삭제되었습니다.";

std::vector<screen::GridColumn> herbColumns() {
    constexpr auto money = basics::NumberPicture::SeparatedZero;
    return {{.caption = "DET_PK", .field = "DET_PK", .shown = false},
            {.caption = "CBJ_PK", .field = "CBJ_PK", .shown = false},
            {.caption = "한약국약재PK", .field = "DGL_PK", .shown = false},
            {.caption = "약재명", .field = "DGL_CallSign", .width = 1700},
            {.caption = "한약국약재", .field = "DGL_Internal", .width = 2200},
            {.caption = "용량(g)", .field = "DET_Weight", .alignRight = true, .width = 1000},
            {.caption = "단가", .field = "DET_Danga", .alignRight = true, .format = money},
            {.caption = "금액", .field = "DET_Money", .alignRight = true, .format = money},
            {.caption = "비고", .field = "DET_Note", .button = true}};
}

}  // namespace

HerbSection::HerbSection(screen::Window& form, DetailFrames& frames)
    : tdbCBJmDGL(form, "tdbCBJmDGL", frames.sspCBJm8.inside(), herbColumns()),
      txtCBJmChubsu(form, "txtCBJmChubsu", frames.sspCBJm8.inside()),
      txtCBJmDrugCost(form, "txtCBJmDrugCost", frames.sspCBJm8.inside()) {
    tdbCBJmDGL.setLabel("약재 구성");
    tdbCBJmDGL.allowsUpdate = false;
    tdbCBJmDGL.emptyHint = unchosen;
    txtCBJmChubsu.setLabel("첩수:");
    txtCBJmDrugCost.setLabel("약재가격:");
    for (screen::TextField* field : {&txtCBJmChubsu, &txtCBJmDrugCost}) {
        field->setReadOnly(true);
        field->alignRight = true;
    }
    tdbCBJmDGL.onCellButton.add([this, &form, &frames](int column) {
        if (column == noteColumn && tdbCBJmDGL.onRow())
            readNote(form.desktop(), frames, tdbCBJmDGL.value(nameColumn), tdbCBJmDGL.value(noteColumn));
    });
}

bool HerbSection::load(const DetailRead& read) {
    std::string packets, price;
    lost_.clear();
    tdbCBJmDGL.emptyHint = unread;
    if (!data::clsZELVORecordSet().RecordSet_CBJmDrug(read.connection, m_rsCBJmDGL, read.CBJ_PK, packets,
                                                      price, lost_))
        return false;
    tdbCBJmDGL.emptyHint = lost_.empty() ? noHerbs : noneListed;
    bind();
    showLost();
    if (packets == "0") return true;
    show(txtCBJmChubsu, packets);
    const std::int32_t won = basics::isBlank(price) ? 0 : basics::toInt32(price);
    txtCBJmDrugCost.setText(basics::formatNumber(won, basics::NumberPicture::Separated));
    return true;
}

/// The list names its herbs by the catalogue, and would seem to be all that the patient gets.
void HerbSection::showLost() {
    std::string names;
    for (const data::LostHerb& herb : lost_) names += " [" + composition::words(herb) + "]";
    tdbCBJmDGL.setCaption(names.empty() ? names : "한약국의 목록에서 삭제된 약재:" + names);
}

void HerbSection::clear() {
    lost_.clear();
    showLost();
    m_rsCBJmDGL.close();
    tdbCBJmDGL.emptyHint = unchosen;
    tdbCBJmDGL.refresh();
    txtCBJmChubsu.setText("");
    txtCBJmDrugCost.setText("");
}

}  // namespace zelvo::management
