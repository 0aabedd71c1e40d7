#include <clocale>
#include <csignal>
#include <ctime>

#include "platform/http/RequestThread.h"

namespace zelvo::http {
namespace {

/// Keeps a broken connection from ending the host: while it lives, SIGPIPE of this thread waits, and one that
/// came is taken away at the end.
class PipeSignalHeld {
public:
    PipeSignalHeld() {
        sigset_t pending{};
        sigpending(&pending);
        wasPending_ = sigismember(&pending, SIGPIPE) == 1;
        sigset_t pipe{};
        sigemptyset(&pipe);
        sigaddset(&pipe, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &pipe, &before_);
    }
    ~PipeSignalHeld() {
        sigset_t pipe{};
        sigemptyset(&pipe);
        sigaddset(&pipe, SIGPIPE);
        const timespec atOnce{};
        if (!wasPending_) sigtimedwait(&pipe, nullptr, &atOnce);
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    PipeSignalHeld(const PipeSignalHeld&) = delete;
    PipeSignalHeld& operator=(const PipeSignalHeld&) = delete;

private:
    sigset_t before_{};
    bool wasPending_ = false;
};

/// While it lives, this thread reads the name of a server as UTF-8, in whatever locale the host's process is.
class Utf8Names {
public:
    Utf8Names() {
        if (own_) before_ = uselocale(own_);
    }
    ~Utf8Names() {
        if (!own_) return;
        uselocale(before_);
        freelocale(own_);
    }
    Utf8Names(const Utf8Names&) = delete;
    Utf8Names& operator=(const Utf8Names&) = delete;

private:
    locale_t own_ = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr), before_ = nullptr;
};

}  // namespace

struct RequestThread::Guards {
    PipeSignalHeld pipe;
    Utf8Names names;
};

RequestThread::RequestThread() : guards_(std::make_unique<Guards>()) {}
RequestThread::~RequestThread() = default;

}  // namespace zelvo::http
