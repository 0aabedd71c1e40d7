#pragma once

#include <windows.h>

#include <atomic>
#include <list>

#include "Com.h"

namespace automation {

/// The programs that have called. This program ends with the last of them, and with the one whose call runs,
/// at once: a send that was under way is found again by its mark.
class Charts {
public:
    Charts() = default;
    Charts(const Charts&) = delete;
    Charts& operator=(const Charts&) = delete;
    ~Charts() { forget(); }

    /// Waits for none of them any more.
    void forget();
    /// Waits for the end of the program of this number from now on, where that is allowed.
    void watch(DWORD program);
    /// The call of that one begins; 0 ends it.
    void setCalling(DWORD program);
    /// The chart whose call runs could not be reached: where it is about to end, nothing more is done for it.
    void lost() const;

private:
    struct Chart {
        Charts& all;
        DWORD number;
        Handle program;
        HANDLE wait = nullptr;
    };
    static void CALLBACK ended(void* chart, BOOLEAN timedOut);
    const Chart* find(DWORD program) const;

    std::list<Chart> watched_;
    std::atomic<int> running_ = 0;
    std::atomic<DWORD> calling_ = 0;
};

}  // namespace automation
