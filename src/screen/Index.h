#pragma once

#include <cstddef>

#include "basics/Fault.h"

namespace zelvo::screen {

/// The index, if it counts one of `count` things from 0; throws Fault otherwise.
inline std::size_t checkedIndex(int index, std::size_t count) {
    if (index < 0 || static_cast<std::size_t>(index) >= count)
        throw basics::Fault("첨자가 허용 범위를 벗어났습니다.");
    return static_cast<std::size_t>(index);
}

}  // namespace zelvo::screen
