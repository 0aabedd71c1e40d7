#pragma once

#include <functional>
#include <string>

#include "screen/Desktop.h"

namespace zelvo::assembly {

/// Runs a session whose windows stand on this machine's screen. "" when it went its way, else why no window
/// can be shown, in words for the host.
std::string runOnGlass(screen::SettingsStore& settings, const std::function<void(screen::Desktop&)>& session);

/// Ends what the first window has started for the whole process. True when nothing of it is left.
bool leaveGlass();

}  // namespace zelvo::assembly
