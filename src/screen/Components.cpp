#include "screen/Components.h"

namespace zelvo::screen {

std::unique_ptr<Component> Components::create(const std::string& className) const {
    const auto maker = makers_.find(className);
    return maker == makers_.end() || !maker->second ? nullptr : maker->second();
}

basics::Fault Components::missing(const std::string& className) {
    return basics::Fault("구성 요소 " + className + "을(를) 만들 수 없습니다.");
}

}  // namespace zelvo::screen
