#include "composition/LeftOut.h"

#include "basics/Text.h"

namespace zelvo::composition {

std::string words(const data::LostHerb& herb) {
    const std::string name = basics::trim(herb.name);
    return (name.empty() ? "이름 없음" : name) + (herb.grams.empty() ? "" : " " + herb.grams + "g");
}

LeftOut::LeftOut(screen::Window& form, screen::Place orderTab)
    : c1eLeftOut(form, "c1eLeftOut", orderTab),
      lblLeftOut(form, "lblLeftOut", c1eLeftOut.inside()),
      cmdLeftOut(form, "cmdLeftOut", c1eLeftOut.inside(), "확인") {
    c1eLeftOut.setVisible(false);
    cmdLeftOut.setTextColor({192, 0, 0});
    cmdLeftOut.setTipText("빠진 항목을 확인하고 이 안내를 닫습니다.");
    cmdLeftOut.onPress.add([this] { clear(); });
}

void LeftOut::tellHerbs(const std::vector<data::LostHerb>& herbs) {
    for (const data::LostHerb& herb : herbs) add("[약재 " + words(herb) + "]");
}

void LeftOut::tellAddOns(const std::vector<std::string>& names) {
    for (const std::string& name : names) add("[제형변화 " + name + "]");
}

void LeftOut::add(const std::string& item) {
    if (text().find(item) != std::string::npos) return;
    setText((text().empty() ? "한약국의 목록에 없어 가져오지 못한 항목이 있습니다." : text()) + " " + item);
}

void LeftOut::setText(const std::string& text) {
    lblLeftOut.setCaption(text);
    c1eLeftOut.setVisible(!text.empty());
}

}  // namespace zelvo::composition
