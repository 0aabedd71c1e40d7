#include <time.h>

#include "basics/LocalTime.h"

namespace zelvo::basics {

std::tm localTime(std::time_t moment) {
    tm local{};
    localtime_s(&local, &moment);
    return local;
}

}  // namespace zelvo::basics
