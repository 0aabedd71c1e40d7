#pragma once

#include <chrono>
#include <functional>
#include <stop_token>

namespace zelvo::screen {

/// Something outside that keeps the user waiting, for as long as this lives.
class Wait {
public:
    using Clock = std::chrono::steady_clock;

    Wait() = default;
    virtual ~Wait() = default;
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

    /// To be called again and again meanwhile, on the window's thread: lets the window be painted. False once
    /// the user has given up.
    virtual bool goesOn() { return true; }
};

/// A job that waits; its end is asked for by `stop`. It may run on a thread of its own.
using WaitingJob = std::function<void(const std::stop_token& stop)>;

}  // namespace zelvo::screen
