#pragma once

#include "screen/CodePage.h"

namespace zelvo::text {

/// The machine's code pages. A page that it doesn't have gives U+FFFD for every byte beyond ASCII.
screen::CodePages machineCodePages();

}  // namespace zelvo::text
