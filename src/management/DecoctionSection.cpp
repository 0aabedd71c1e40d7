#include "management/DecoctionSection.h"

#include <exception>

#include "basics/Numbers.h"
#include "basics/Utf8.h"
#include "management/DetailNote.h"

namespace zelvo::management {

namespace {

/// Where name and key stand in an item of the form changes.
constexpr std::size_t gap = 50, nameLength = 50, keyLength = 10, longKeyLength = 20;

std::string lastCharacters(const std::string& text, std::size_t count) {
    const std::size_t length = basics::characterCount(text);
    return basics::trim(basics::part(text, length > count ? length - count : 0));
}

std::string captionOr(const std::string& text, const char* otherwise) {
    return text.empty() ? otherwise : text;
}

}  // namespace

DecoctionSection::DecoctionSection(screen::Window& form, DetailFrames& frames, session::Session& session)
    : txtCBJmJobList(form, "txtCBJmJobList", frames.sspCBJm6.inside()),
      sscCBJmJobListDetail(form, "sscCBJmJobListDetail", frames.sspCBJm6.inside(), "자세히"),
      txtCBJmTJML(form, "txtCBJmTJML", frames.sspCBJm7.inside()),
      sscCBJmTJMLDetail(form, "sscCBJmTJMLDetail", frames.sspCBJm7.inside(), "자세히"),
      lstCBJmTJAL(form, "lstCBJmTJAL", frames.sspCBJm7.inside()),
      sscCBJmTJALDetail(form, "sscCBJmTJALDetail", frames.sspCBJm7.inside(), "자세히"),
      txtCBJmDayTuyak(form, "txtCBJmDayTuyak", frames.sspCBJm7.inside()),
      txtCBJmTuyakilsu(form, "txtCBJmTuyakilsu", frames.sspCBJm7.inside()),
      txtCBJmPouchAmount(form, "txtCBJmPouchAmount", frames.sspCBJm7.inside()),
      txtCBJmPouchTotal(form, "txtCBJmPouchTotal", frames.sspCBJm7.inside()),
      lblCBJmJobListPK(form, "lblCBJmJobListPK", frames.sspCBJm6.inside(), "0"),
      lblCBJmTJMLPK(form, "lblCBJmTJMLPK", frames.sspCBJm7.inside(), "0"),
      lblCBJmJobListDetail(form, "lblCBJmJobListDetail", frames.sspCBJm6.inside()),
      lblCBJmTJMLDetail(form, "lblCBJmTJMLDetail", frames.sspCBJm7.inside()),
      lblCBJmTJALDetail(form, "lblCBJmTJALDetail", frames.sspCBJm7.inside()),
      form_(form),
      frames_(frames),
      session_(session) {
    dressFields();
    sscCBJmJobListDetail.onPress.add([this] {
        explain(captionOr(txtCBJmJobList.text(), "처방전 주문서"), lblCBJmJobListDetail.caption());
    });
    sscCBJmTJMLDetail.onPress.add(
        [this] { explain(captionOr(txtCBJmTJML.text(), "탕전방식"), lblCBJmTJMLDetail.caption()); });
    sscCBJmTJALDetail.onPress.add([this] { explainAddOn(); });
    lstCBJmTJAL.onItemClick.add([this](int) { fetchAddOnText(); });
}

void DecoctionSection::dressFields() {
    txtCBJmJobList.setLabel("처방전(주문서)구분");
    txtCBJmTJML.setLabel("탕전 방식");
    lstCBJmTJAL.setLabel("제형 변화");
    txtCBJmDayTuyak.setLabel("1일 복용팩수:");
    txtCBJmTuyakilsu.setLabel("복용일:");
    txtCBJmPouchAmount.setLabel("1팩용량:");
    txtCBJmPouchTotal.setLabel("총파우치:");
    sscCBJmJobListDetail.setLabel("처방전(주문서)구분 자세히");
    sscCBJmTJMLDetail.setLabel("탕전 방식 자세히");
    sscCBJmTJALDetail.setLabel("제형 변화 자세히");
    for (screen::TextField* field :
         {&txtCBJmDayTuyak, &txtCBJmTuyakilsu, &txtCBJmPouchAmount, &txtCBJmPouchTotal})
        field->alignRight = true;
    for (screen::TextField* field : {&txtCBJmJobList, &txtCBJmTJML, &txtCBJmDayTuyak, &txtCBJmTuyakilsu,
                                     &txtCBJmPouchAmount, &txtCBJmPouchTotal}) {
        field->setReadOnly(true);
    }
    for (screen::Label* variable :
         {&lblCBJmJobListPK, &lblCBJmTJMLPK, &lblCBJmJobListDetail, &lblCBJmTJMLDetail, &lblCBJmTJALDetail}) {
        variable->setVisible(false);
    }
}

bool DecoctionSection::loadType(const DetailRead& read) {
    data::CBJmJobList type;
    if (!data::clsZELVORecordSet().RecordSet_CBJmJobListInfo(read.connection, read.CBJ_PK, type))
        return false;
    lblCBJmJobListPK.setCaption(keyText(type.JL_PK));
    show(txtCBJmJobList, type.JL_Prompt);
    lblCBJmJobListDetail.setCaption(basics::trim(type.JL_Message));
    return true;
}

bool DecoctionSection::loadDecoction(const DetailRead& read) {
    data::CBJmTangJun decoction;
    if (!data::clsZELVORecordSet().RecordSet_CBJmTangJunInfo(read.connection, read.CBJ_PK, decoction))
        return false;
    lblCBJmTJMLPK.setCaption(keyText(decoction.TJML_PK));
    show(txtCBJmTJML, decoction.TJML_Prompt);
    lblCBJmTJMLDetail.setCaption(basics::trim(decoction.TJML_Message));
    show(txtCBJmDayTuyak, decoction.CBJ_DayTuyak);
    show(txtCBJmTuyakilsu, decoction.CBJ_Tuyakilsu);
    show(txtCBJmPouchAmount, decoction.CBJ_PouchAmount);
    show(txtCBJmPouchTotal, decoction.CBJ_PouchTotal);
    if (!decoction.Adds.empty()) showAddOns(decoction.Adds);
    lostAddOns_ = decoction.lostAdds;
    return true;
}

void DecoctionSection::showAddOns(const std::string& Adds) {
    lstCBJmTJAL.clear();
    for (const std::string& add : basics::split(Adds, "#*#")) {
        const std::vector<std::string> parts = basics::split(add, "/*/");
        lstCBJmTJAL.addItem("* " + parts.front() + std::string(gap, ' ') + parts.back());
        form_.desktop().yield();
    }
}

void DecoctionSection::clear() {
    for (screen::TextField* field : {&txtCBJmJobList, &txtCBJmTJML, &txtCBJmDayTuyak, &txtCBJmTuyakilsu,
                                     &txtCBJmPouchAmount, &txtCBJmPouchTotal}) {
        field->setText("");
    }
    for (screen::Label* text : {&lblCBJmJobListDetail, &lblCBJmTJMLDetail, &lblCBJmTJALDetail})
        text->setCaption("");
    lblCBJmJobListPK.setCaption("0");
    lblCBJmTJMLPK.setCaption("0");
    lstCBJmTJAL.clear();
    lostAddOns_ = 0;
}

std::vector<std::int32_t> DecoctionSection::addOnKeys() const {
    std::vector<std::int32_t> keys;
    keys.reserve(static_cast<std::size_t>(lstCBJmTJAL.itemCount()));
    for (int i = 0; i < lstCBJmTJAL.itemCount(); ++i)
        keys.push_back(basics::toInt32(lastCharacters(lstCBJmTJAL.item(i), keyLength)));
    return keys;
}

void DecoctionSection::explainAddOn() {
    if (lstCBJmTJAL.itemCount() == 0) return;
    if (lblCBJmTJALDetail.caption().empty()) {
        lstCBJmTJAL.select(0);
        if (!fetchAddOnText()) return;
    }
    const int selected = lstCBJmTJAL.selectedIndex();
    const std::string item = selected >= 0 ? lstCBJmTJAL.item(selected) : std::string();
    explain(captionOr(basics::trim(basics::part(item, 0, nameLength)), "제형변화"),
            lblCBJmTJALDetail.caption());
    lblCBJmTJALDetail.setCaption("");
}

/// The explanation of the selected form change. False when it can't be read; that has been told.
bool DecoctionSection::fetchAddOnText() {
    lblCBJmTJALDetail.setCaption("");
    std::string name, text;
    bool read = false;
    try {
        const std::string key = lastCharacters(lstCBJmTJAL.item(lstCBJmTJAL.selectedIndex()), longKeyLength);
        read = data::clsZELVORecordSet().RecordSet_CBJmTangJunAdd(session_.connection(), key, name, text);
    } catch (const std::exception&) {
        // No connection: not read, like any other failure.
    }
    if (read) {
        lblCBJmTJALDetail.setCaption(basics::trim(text));
    } else {
        form_.desktop().alarm("제형변화의 상세 내용을 가져오는중 에러 발생", "처방전 관리");
    }
    return read;
}

void DecoctionSection::explain(const std::string& caption, const std::string& text) {
    readNote(form_.desktop(), frames_, caption, text);
}

}  // namespace zelvo::management
