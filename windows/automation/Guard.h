#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "Com.h"

namespace automation {

/// What stands by while a window of ours is open over the chart's. When the chart ends, so does this program,
/// at once: a send that was under way is found again by its mark. When this program ends, the chart's windows
/// that it held are given back by another one that was started for that.
class Guard {
public:
    Guard(HANDLE chart, const std::vector<HWND>& windows);
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
    ~Guard();

    /// The chart could not be reached: where it is about to end, nothing more is done for it.
    void chartLost() const;

private:
    HANDLE chart_;
    HANDLE wait_ = nullptr;
    Handle keeper_;
};

/// Waits for the program of this number to end and gives the windows, "12,34", back to their user.
int giveBackAfter(const std::string& program, const std::string& windows);

}  // namespace automation
