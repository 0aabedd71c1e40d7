#pragma once

#include <functional>

#include "support/TestDatabase.h"

namespace zelvo::testing {

/// False on a system where a test has no second process to be killed in.
bool canDie();
/// Ends this process as a power cut does.
void die();
/// Dies before the N-th call of the connection from now on.
inline void dieAt(FaultyConnection& line, int call) {
    line.before = [left = call](const std::string&) mutable {
        if (--left == 0) die();
    };
}
/// Runs a program in a process of its own; true when it died on its way, by its own hand.
bool diesIn(const std::function<void()>& program);

}  // namespace zelvo::testing
