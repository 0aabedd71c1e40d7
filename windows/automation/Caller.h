#pragma once

#include <windows.h>

namespace automation {

/// The chart that has made the call that runs: found when the call has come, before any window of ours.
class Caller {
public:
    /// `thread` is the one that the call came from, 0 where the system does not say. The chart's window is
    /// the one in front, or, where another program's or no whole window stands there, the first whole one of
    /// its thread.
    explicit Caller(DWORD thread);

    HWND window() const { return window_; }
    /// Whether a window of ours is open over the chart's already, by another object or by the library itself.
    bool isHeld() const { return held_; }
    /// The chart itself; 0 where it can't be told.
    DWORD process() const { return process_; }

    /// The program that a thread belongs to; 0 where it can't be told.
    static DWORD processOf(DWORD thread);

private:
    DWORD process_ = 0;
    HWND window_ = nullptr;
    bool held_ = false;
};

}  // namespace automation
