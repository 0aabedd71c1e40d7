#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "Com.h"

namespace automation {

/// The chart that has made the call that runs: found when the call has come, before any window of ours.
class Caller {
public:
    /// `thread` is the one that the call came from, 0 where the system does not say. The chart's window is
    /// the one in front, or, where another program's stands there, the first that this thread has.
    explicit Caller(DWORD thread);

    HWND window() const { return window_; }
    /// The chart's windows that a user can turn to now; ours will hold them while it is open.
    const std::vector<HWND>& open() const { return open_; }
    /// The chart itself, to be waited for; null where it can't be told.
    HANDLE process() const { return process_.get(); }

private:
    Handle process_;
    HWND window_ = nullptr;
    std::vector<HWND> open_;
};

}  // namespace automation
