#pragma once

#include <string_view>

#include "management/DetailFrames.h"

namespace zelvo::management {

/// Shows a long text of the order in view in a small window over the sections, modally.
void readNote(screen::Desktop& desktop, const DetailFrames& frames, std::string_view caption,
              std::string_view text);

}  // namespace zelvo::management
