#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <optional>
#include <vector>

#include "basics/Fault.h"
#include "platform/browser/Opener.h"

extern char** environ;

namespace zelvo::browser {
namespace {

/// How an opener is started: in a session of its own, with plain signals, its words going nowhere.
class Detached {
public:
    Detached() {
        sigset_t none{};
        sigset_t all{};
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_init(&attributes_);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setsigdefault(&attributes_, &all);
        posix_spawnattr_setflags(&attributes_,
                                 POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
        posix_spawn_file_actions_init(&actions_);
        for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
            posix_spawn_file_actions_addopen(&actions_, descriptor, "/dev/null", O_RDWR, 0);
        }
    }
    ~Detached() {
        posix_spawnattr_destroy(&attributes_);
        posix_spawn_file_actions_destroy(&actions_);
    }
    Detached(const Detached&) = delete;
    Detached& operator=(const Detached&) = delete;

    std::optional<pid_t> start(std::string program, std::string argument) const {
        const std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
        pid_t process = 0;
        if (posix_spawnp(&process, program.c_str(), &actions_, &attributes_, arguments.data(), environ) != 0)
            return {};
        return process;
    }

private:
    posix_spawnattr_t attributes_{};
    posix_spawn_file_actions_t actions_{};
};

bool hasEnded(pid_t process, int& status) {
    return waitpid(process, &status, WNOHANG) != 0;
}

}  // namespace

/// The openers that have not ended yet.
struct Opener::Running {
    std::vector<pid_t> processes;

    /// Takes leave of those that have ended.
    void collect() {
        int status = 0;
        std::erase_if(processes, [&](pid_t process) { return hasEnded(process, status); });
    }
};

Opener::Opener() : running_(std::make_unique<Running>()) {}

Opener::~Opener() {
    running_->collect();
}

void Opener::open(const std::string& address) {
    running_->collect();
    const auto process = Detached().start("xdg-open", address);
    if (!process) throw basics::Fault("이 컴퓨터에서 웹 브라우저를 실행할 수 없습니다.");
    // An opener that finds no browser says so at once; one that found it may live as long as the browser
    // does.
    constexpr int looks = 25;
    constexpr int pause = 20;
    for (int look = 0; look < looks; ++look) {
        int status = 0;
        if (hasEnded(*process, status)) {
            if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return;
            throw basics::Fault("이 컴퓨터에서 웹 브라우저를 찾지 못했습니다.");
        }
        poll(nullptr, 0, pause);
    }
    running_->processes.push_back(*process);
}

}  // namespace zelvo::browser
