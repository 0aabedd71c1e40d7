#include "screen/Zoom.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "basics/Numbers.h"

namespace zelvo::screen {

namespace {

constexpr std::string_view name = "zoom";
constexpr std::array sizes{80, 90, 100, 110, 125, 150, 175, 200};

}  // namespace

int Zoom::percent() const {
    const std::string kept = remembered_.text(name);
    const auto* const found = std::find_if(sizes.begin(), sizes.end(), [&](int size) {
        return basics::decimalText(std::int64_t{size}) == kept;
    });
    return found == sizes.end() ? usual : *found;
}

void Zoom::step(int direction) {
    const auto* const now = std::find(sizes.begin(), sizes.end(), percent());
    if (direction > 0 && now + 1 != sizes.end()) change(*(now + 1));
    if (direction < 0 && now != sizes.begin()) change(*(now - 1));
}

void Zoom::change(int percent) {
    if (percent == this->percent()) return;
    remembered_.keep(name, basics::decimalText(std::int64_t{percent}));
    onChange();
}

}  // namespace zelvo::screen
