#include "assembly/Glass.h"
#include "platform/browser/SystemBrowser.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Toolkit.h"

namespace zelvo::assembly {

std::string runOnGlass(screen::SettingsStore& settings,
                       const std::function<void(screen::Desktop&)>& session) {
    std::string error = qt::Toolkit::enter();
    if (!error.empty()) return error;
    browser::SystemBrowser browser;
    qt::QtDesktop desktop(settings, [&browser](std::string_view address) { browser.open(address); });
    session(desktop);
    return {};
}

bool leaveGlass() {
    return qt::Toolkit::leave();
}

}  // namespace zelvo::assembly
