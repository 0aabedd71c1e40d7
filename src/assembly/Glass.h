#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "screen/Desktop.h"

namespace zelvo::assembly {

/// Runs a session whose windows stand on this machine's screen, over the host's window of this handle (0: the
/// one in front). "" when it went its way, else why no window can be shown, in words for the host.
std::string runOnGlass(screen::SettingsStore& settings, std::uintptr_t hostWindow,
                       const std::function<void(screen::Desktop&)>& session);

/// Ends what the first window has started for the whole process. True when nothing of it is left.
bool leaveGlass();

}  // namespace zelvo::assembly
