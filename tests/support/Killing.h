#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "support/TestDatabase.h"

namespace zelvo::testing {

/// Ends this process as a power cut does.
inline void die() {
    ::kill(::getpid(), SIGKILL);
}
/// Dies before the N-th call of the connection from now on.
inline void dieAt(FaultyConnection& line, int call) {
    line.before = [left = call](const std::string&) mutable {
        if (--left == 0) die();
    };
}
/// Runs a program in a process of its own; true when it died on its way, by its own hand.
inline bool diesIn(const std::function<void()>& program) {
    const pid_t child = ::fork();
    if (child == 0) {
        program();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

}  // namespace zelvo::testing
