#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "support/Killing.h"

namespace zelvo::testing {

bool canDie() {
    return true;
}

void die() {
    ::kill(::getpid(), SIGKILL);
}

bool diesIn(const std::function<void()>& program) {
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
