#include "assembly/Glass.h"

namespace zelvo::assembly {

std::string runOnGlass(screen::SettingsStore& /*settings*/, std::uintptr_t /*hostWindow*/,
                       const std::function<void(screen::Desktop&)>& /*session*/) {
    return "ZELVO can't open its window: it was built for the terminal alone.";
}

bool leaveGlass() {
    return true;
}

}  // namespace zelvo::assembly
