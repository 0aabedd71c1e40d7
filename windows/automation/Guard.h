#pragma once

#include <windows.h>

#include <string>

#include "Caller.h"
#include "Charts.h"
#include "Com.h"

namespace automation {

/// What stands by while a window of ours is open over the chart's: with the chart ends this program, and when
/// this program ends, the chart's windows that it held are given back by another one, started for that.
class Guard {
public:
    Guard(Charts& charts, const Caller& caller);
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
    ~Guard();

    /// A box of the chart's own gives its window back to the user; ours is open over it still.
    void holdAgain() const;

private:
    Charts& charts_;
    DWORD thread_;
    Handle keeper_;
};

/// Waits for the program of this number to end and gives back to their user the windows of this thread that
/// it held.
int giveBackAfter(const std::string& program, const std::string& thread);

}  // namespace automation
