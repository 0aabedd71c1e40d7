#pragma once

#include <cstdint>
#include <memory>

class QWidget;

namespace zelvo::qt {

/// The host's window that a call came from. While the call runs, the host's windows take no keys and no
/// clicks (they go on painting), and ours stand over that one as dialogs of its own would; then
/// what had the keys has them again.
class HostWindow {
public:
    /// `named` is the system's handle of that window; 0 looks for it.
    explicit HostWindow(std::uintptr_t named);
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    /// Before a window of ours that has none of ours beneath it is shown.
    void putUnder(QWidget& ours);
    /// As soon as that window is on the screen.
    void bringForward(QWidget& ours);
    /// Before that window leaves the screen: the host's comes to the front, held as it is until the call
    /// ends.
    void turnToHost();

private:
    struct Insides;
    std::unique_ptr<Insides> insides_;
};

}  // namespace zelvo::qt
