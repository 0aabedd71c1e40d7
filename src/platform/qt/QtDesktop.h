#pragma once

#include <QtCore/QtGlobal>
#include <cstdint>
#include <functional>
#include <vector>

#include "platform/qt/HostWindow.h"
#include "screen/Desktop.h"

namespace zelvo::qt {

class Glass;
class Shell;

/// The screen of a machine with a display: windows are forms, boxes are dialogs, a modal run is a nested
/// event loop. The toolkit has to stand (Toolkit::enter) for as long as this lives.
class QtDesktop : public screen::Desktop {
public:
    /// `browse` starts the system's browser at an address. The windows stand over the host's `hostWindow`,
    /// or, where that is 0, over the one that is in front.
    QtDesktop(screen::SettingsStore& settings, std::function<void(std::string_view)> browse,
              std::uintptr_t hostWindow = 0);
    ~QtDesktop() override;

    screen::Answer messageBox(const screen::MessageBox& box) override;
    void setPointer(screen::Pointer pointer) override;
    screen::Pointer pointer() const override { return pointer_; }
    void processEvents(bool userInput) override;
    void waitForEvents(std::chrono::milliseconds atMost) override;
    std::string toolkit() const override { return std::string("Qt ") + qVersion(); }
    std::function<bool()> beginWait(std::string_view what,
                                    std::chrono::steady_clock::time_point since) override;
    void waitFor(std::string_view what, const screen::WaitingJob& job) override;
    double screenWidth() const override;
    double screenHeight() const override;
    void runModal(screen::Window& window) override;
    bool tellsFault(screen::Window& window, const std::exception& fault) override;
    void toClipboard(std::string_view text) override;
    screen::SettingsStore& settings() override { return settings_; }
    void openBrowser(std::string_view address) override { browse_(address); }

private:
    Shell* top() const { return shells_.empty() ? nullptr : shells_.back(); }
    void flush();
    void standOverHost(const Glass& glass);

    screen::SettingsStore& settings_;
    std::function<void(std::string_view)> browse_;
    HostWindow host_;
    std::vector<Shell*> shells_;
    screen::Pointer pointer_ = screen::Pointer::Normal;
};

}  // namespace zelvo::qt
