#pragma once

#include <ctime>

namespace zelvo::basics {

/// A moment as the clocks here show it.
std::tm localTime(std::time_t moment);

}  // namespace zelvo::basics
