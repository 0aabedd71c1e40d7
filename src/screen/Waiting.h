#pragma once

#include <functional>
#include <stop_token>

namespace zelvo::screen {

/// A job that waits for something outside; its end is asked for by `stop`. It may run on a thread of its own.
using WaitingJob = std::function<void(const std::stop_token& stop)>;

}  // namespace zelvo::screen
