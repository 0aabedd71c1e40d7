#include "assembly/Glass.h"
#include "platform/browser/SystemBrowser.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Toolkit.h"

namespace zelvo::assembly {

std::string runOnGlass(screen::SettingsStore& settings, std::uintptr_t hostWindow,
                       const std::function<void(screen::Desktop&)>& session) {
    std::string error = qt::Toolkit::enter();
    if (!error.empty()) return error;
    browser::SystemBrowser browser;
    const auto browse = [&browser](std::string_view address) { browser.open(address); };
    qt::QtDesktop desktop(settings, browse, hostWindow);
    session(desktop);
    return {};
}

bool leaveGlass() {
    return qt::Toolkit::leave();
}

}  // namespace zelvo::assembly
