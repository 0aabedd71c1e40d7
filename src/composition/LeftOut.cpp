#include "composition/LeftOut.h"

#include <algorithm>
#include <string_view>

#include "basics/Text.h"

namespace zelvo::composition {

namespace {

constexpr std::string_view intro = "한약국의 목록에 없어 가져오지 못한 항목이 있습니다.",
                           herbStart = " [약재 ", addOnStart = " [제형변화 ";

std::size_t nextItem(const std::string& text, std::size_t from) {
    return std::min(text.find(herbStart, from), text.find(addOnStart, from));
}

}  // namespace

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
    for (const data::LostHerb& herb : herbs) add(std::string(herbStart) + words(herb) + "]");
}

void LeftOut::tellAddOns(const std::vector<std::string>& names) {
    for (const std::string& name : names) add(std::string(addOnStart) + name + "]");
}

void LeftOut::add(const std::string& item) {
    if (text().find(item) != std::string::npos) return;
    setText((text().empty() ? std::string(intro) : text()) + item);
}

std::string LeftOut::takeHerbs() {
    std::string herbs, others;
    for (std::size_t at = nextItem(text(), 0); at != std::string::npos;) {
        const std::size_t next = nextItem(text(), at + 1);
        const std::string item = text().substr(at, next - at);
        (item.starts_with(herbStart) ? herbs : others) += item;
        at = next;
    }
    setText(others.empty() ? others : std::string(intro) + others);
    return herbs;
}

void LeftOut::bringBack(const std::string& herbs) {
    if (!herbs.empty()) add(herbs);
}

void LeftOut::setText(const std::string& text) {
    lblLeftOut.setCaption(text);
    c1eLeftOut.setVisible(!text.empty());
}

}  // namespace zelvo::composition
