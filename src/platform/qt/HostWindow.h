#pragma once

#include <cstdint>
#include <memory>

class QWidget;

namespace zelvo::qt {

/// The host's window that a call came from. One of ours stands over it as a dialog of its own would, and
/// meanwhile it takes no keys and no clicks; it goes on painting.
class HostWindow {
public:
    /// `named` is the system's handle of that window; 0 looks for it.
    explicit HostWindow(std::uintptr_t named);
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    /// Before a window of ours that has none of ours beneath it is shown.
    void putUnder(QWidget& ours);
    /// Before that window leaves the screen: the system then turns to the host's.
    void giveBack();

private:
    struct Insides;
    std::unique_ptr<Insides> insides_;
};

}  // namespace zelvo::qt
