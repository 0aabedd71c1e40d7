#include "composition/frmYakGukDrug.h"

#include "basics/Numbers.h"
#include "basics/Text.h"
#include "data/clsZELVORecordSet.h"
#include "screen/SmallWindow.h"

namespace zelvo::composition {

namespace {

std::vector<screen::GridColumn> herbColumns() {
    return {
        {.caption = "한약국약재", .field = "DGL_Internal", .width = 4524},
        {.caption = "한약국약재PK", .field = "DGL_PK", .shown = false},
        {.caption = "약재명", .field = "DGL_CallSign", .shown = false},
        {.caption = "단가(원)",
         .field = "DGD_Danga",
         .alignRight = true,
         .format = basics::NumberPicture::SeparatedZero,
         .width = 1720},
        {.caption = "권장", .field = "DGL_Default", .flag = true, .width = 900},
    };
}

}  // namespace

frmYakGukDrug::frmYakGukDrug(screen::Desktop& desktop, session::Session& session)
    : Window(desktop, "frmYakGukDrug", 520 * screen::twipsPerPixel, 360 * screen::twipsPerPixel),
      lblFind(*this, "lblFind", {}, "약재명:"),
      txtDrugFind(*this, "txtDrugFind"),
      cmdFind(*this, "cmdFind", {}, "찾기"),
      tdbYakgukDrug(*this, "tdbYakgukDrug", {}, herbColumns()),
      Label2(*this, "Label2", {}, "[창닫기=Esc 또는 Enter]"),
      session_(session) {
    setCaption("한약국약재");
    txtDrugFind.setLabel("약재명");
    tdbYakgukDrug.setLabel("한약국약재");
    tdbYakgukDrug.allowsUpdate = false;
    tdbYakgukDrug.emptyHint = "약재명의 일부를 넣고 Enter를 누르면 오늘 판매하는 약재가 나옵니다.";

    // A later search that finds nothing takes no choice back.
    tdbYakgukDrug.onRowChange.add([this](int, int) {
        if (tdbYakgukDrug.onRow()) takeCurrentRow();
    });
    tdbYakgukDrug.onKeyDown.add([this](int& code) {
        if (code != screen::keys::enter) return;
        code = screen::keys::none;
        takeCurrentRow();
        unload();
    });
    txtDrugFind.onKeyDown.add([this](int& code) {
        if (code != screen::keys::enter) return;
        code = screen::keys::none;
        searchAgain();
    });
    cmdFind.onPress.add([this] { searchAgain(); });
    screen::addZoomKeys(*this);
    screen::onEscape(*this, [this] {
        m_PickCanceled = -1;
        unload();
    });
}

std::int16_t frmYakGukDrug::HanYakGukDrug_DropDownOpen(const std::string& name, std::int32_t& key,
                                                       std::string& CallSign, std::string& Internal,
                                                       std::string& Danga) {
    try {
        m_PickName = name;
        if (search(basics::trim(name))) preselect(key);
        showModal();
        const std::int32_t picked = basics::toInt32(m_PickKey);
        if (m_PickCanceled == -1) return 0;
        CallSign = m_PickName;
        Internal = m_PickInternal;
        Danga = m_PickPrice;
        key = picked;
        return 1;
    } catch (const basics::Fault&) {
        return -1;
    }
}

/// True when herbs were found. A search that failed says so and leaves the list as it was.
bool frmYakGukDrug::search(const std::string& word) {
    const screen::BusyPointer busy(desktop(), "한약국 약재를 찾는 중입니다.");
    auto found = std::make_unique<data::RecordSet>();
    if (!session_.g_conYakGuk ||
        data::clsZELVORecordSet().RecordSet_YakGukDrugList(*session_.g_conYakGuk, *found, word) == -1) {
        desktop().inform("데이터베이스 접속에 오류가 발생했습니다.", "데이터베이스 접속 오류");
        return false;
    }
    tdbYakgukDrug.emptyHint =
        word.empty() ? "오늘 판매하는 약재가 없습니다."
                     : "[" + word + "](으)로 찾은 약재가 없습니다. 오늘 판매하는 약재만 나옵니다.";
    tdbYakgukDrug.bind(found.get());
    m_rsDrug = std::move(found);
    return tdbYakgukDrug.rowCount() > 0;
}

void frmYakGukDrug::searchAgain() {
    if (search(txtDrugFind.text())) tdbYakgukDrug.setFocus();
}

/// The list is where the eye and the keys go; the herb in hand is the one that Enter takes again.
void frmYakGukDrug::preselect(std::int32_t key) {
    if (key != -1) {
        m_rsDrug->find("DGL_PK = " + basics::decimalText(std::int64_t{key}));
        if (!m_rsDrug->atEnd()) tdbYakgukDrug.setCurrentRow(static_cast<int>(m_rsDrug->position()));
    }
    tdbYakgukDrug.setFocus();
}

void frmYakGukDrug::takeCurrentRow() {
    m_PickKey = tdbYakgukDrug.value("한약국약재PK");
    if (basics::isBlank(m_PickKey)) {
        m_PickKey.clear();
        m_PickInternal.clear();
        m_PickPrice.clear();
        return;
    }
    m_PickName = tdbYakgukDrug.value("약재명");
    m_PickInternal = tdbYakgukDrug.value("한약국약재");
    m_PickPrice = tdbYakgukDrug.value("단가(원)");
}

}  // namespace zelvo::composition
