#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>
#include <limits>

namespace zelvo::bench {

/// Milliseconds that one call takes.
inline double milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// The same in the time that the process had a processor: for what has to be done within so many of them,
/// whatever else the machine does.
inline double processorMilliseconds(const std::function<void()>& work) {
    const std::clock_t start = std::clock();
    work();
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// What is measured and its floor in turns, the minimum of each: what else the machine does hits both alike.
class Comparison {
public:
    Comparison(const char* name, double limit) : name_(name), limit_(limit) {}

    void floor(const std::function<void()>& work) { floor_ = std::min(floor_, milliseconds(work)); }
    /// The floor was measured as part of something else.
    void floorIs(double milliseconds) { floor_ = std::min(floor_, milliseconds); }
    void measured(const std::function<void()>& work) { measuredIs(milliseconds(work)); }
    void measuredIs(double milliseconds) { measured_ = std::min(measured_, milliseconds); }

    /// Prints "name ratio floor_ms measured_ms"; true when the ratio is within its limit.
    bool report() const {
        const double ratio = measured_ / floor_;
        std::printf("%-28s %6.3f %10.3f %10.3f   (at most %.2f)\n", name_, ratio, floor_, measured_, limit_);
        return ratio <= limit_;
    }

    /// The same, held to the milliseconds that are added to the floor.
    bool reportAdded(double most) const {
        std::printf("%-28s %6.3f %10.3f %10.3f   (at most %.0f ms more)\n", name_, measured_ / floor_, floor_,
                    measured_, most);
        return measured_ - floor_ <= most;
    }

private:
    const char* name_;
    double limit_;
    double floor_ = std::numeric_limits<double>::infinity(), measured_ = floor_;
};

}  // namespace zelvo::bench
