#include "components/frmPostalLookup.h"

#include <exception>

#include "basics/Numbers.h"
#include "basics/Text.h"

namespace zelvo::components {

namespace {

constexpr double designWidth = 9000, designHeight = 6000;
constexpr int zipColumn = 0, addressColumn = 1;

}  // namespace

frmPostalLookup::frmPostalLookup(screen::Desktop& desktop, PostalSearch search, std::string page)
    : AskWindow(desktop, "frmPostalLookup", "우편번호검색", designWidth, designHeight),
      txtFind(*this, "txtFind"),
      cmdFind(*this, "cmdFind", {}, "검색"),
      tdbFound(*this, "tdbFound", {},
               {{.caption = "우편번호", .width = 1200}, {.caption = "주소", .width = 6600}}),
      search_(std::move(search)),
      page_(std::move(page)) {
    txtFind.setLabel("도로명 또는 건물명:");
    txtFind.setHangul(true);
    txtFind.onFocus.add([this] { txtFind.select(0, std::string::npos); });
    tdbFound.setLabel("찾은 주소");
    tdbFound.allowsUpdate = false;
    tdbFound.emptyHint = "도로명이나 건물명의 일부를 넣고 Enter를 누르면 주소가 나옵니다.";
    m_xaFound.reDim(-1, addressColumn);
    tdbFound.bind(&m_xaFound);
    setTabOrder({"txtFind", "cmdFind", "tdbFound", "cmdOK", "cmdCancel"});

    cmdFind.onPress.add([this] { find(); });
    txtFind.onKeyDown.add([this](int& code) {
        if (code != screen::keys::enter) return;
        code = screen::keys::none;
        find();
    });
    tdbFound.onKeyDown.add([this](int& code) {
        if (code != screen::keys::enter) return;
        code = screen::keys::none;
        press();
    });
}

/// What was found comes into the list, where the keys then go. A search that fails says so and leaves the
/// list as it was.
void frmPostalLookup::find() {
    const std::string text = basics::trim(txtFind.text());
    if (text.empty()) {
        refuse("찾을 도로명이나 건물명을 입력하여 주십시오.", txtFind);
        return;
    }
    std::vector<PostalPlace> places;
    try {
        const screen::BusyPointer busy(desktop());
        places = search_(page_, text);
    } catch (const std::exception& fault) {
        refuse(fault.what(), txtFind);
        return;
    }
    show(places);
    if (places.empty()) {
        refuse("[" + text + "](으)로 찾은 주소가 없습니다.", txtFind);
        return;
    }
    tdbFound.setFocus();
}

void frmPostalLookup::show(const std::vector<PostalPlace>& places) {
    m_xaFound.reDim(static_cast<int>(places.size()) - 1, addressColumn);
    for (int row = 0; const PostalPlace& place : places) {
        m_xaFound.set(row, zipColumn, place.zip);
        m_xaFound.set(row++, addressColumn, place.address);
    }
    tdbFound.emptyHint = "찾은 주소가 없습니다.";
    tdbFound.refresh();
    tdbFound.setCaption(" 찾은 주소 [" + basics::decimalText(static_cast<std::int64_t>(places.size())) + "]");
}

bool frmPostalLookup::confirm() {
    if (!tdbFound.onRow()) return refuse("주소를 먼저 찾아서 고르십시오.", txtFind);
    taken_ = {tdbFound.value(zipColumn), tdbFound.value(addressColumn)};
    return true;
}

}  // namespace zelvo::components
