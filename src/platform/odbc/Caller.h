#pragma once

#include <functional>
#include <memory>
#include <thread>

namespace zelvo::odbc {

/// A thread that makes a driver's calls, so that whoever waits for them can look after the clock and the
/// window meanwhile. One call at a time.
class Caller {
public:
    Caller();
    /// Waits for nothing: a call that was left behind ends by itself, some time.
    ~Caller();
    Caller(const Caller&) = delete;
    Caller& operator=(const Caller&) = delete;

    /// Runs `work`, which must not throw, and returns when it has ended. Meanwhile `waiting` is called about
    /// every 20 ms on the thread that asks; when it says false the call is left behind: the result is false,
    /// and nothing else can be called here any more. So `work` owns all that it touches.
    bool run(std::function<void()> work, const std::function<bool()>& waiting);

private:
    struct Shared;
    static void serve(Shared& shared);

    std::shared_ptr<Shared> shared_;
    std::thread thread_;
};

}  // namespace zelvo::odbc
