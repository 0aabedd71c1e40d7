#include "basics/Fault.h"

namespace zelvo::basics {

void throwOverflow() {
    throw Fault("오버플로: 값이 허용 범위를 벗어났습니다.");
}

void throwTypeMismatch() {
    throw Fault("형식이 일치하지 않습니다.");
}

}  // namespace zelvo::basics
