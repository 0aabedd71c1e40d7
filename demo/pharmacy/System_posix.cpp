#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <system_error>

#include "pharmacy/System.h"

namespace zelvo::pharmacy {
namespace {

constexpr long parentLookNanoseconds = 250'000'000;

bool isGone(pid_t process) {
    return process != 0 && kill(process, 0) == -1 && errno == ESRCH;
}

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

}  // namespace

struct EndRequests::Insides {
    sigset_t signals{};
};

/// Blocked in every thread that starts from here.
EndRequests::EndRequests() : insides_(std::make_unique<Insides>()) {
    sigemptyset(&insides_->signals);
    sigaddset(&insides_->signals, SIGTERM);
    sigaddset(&insides_->signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &insides_->signals, nullptr);
}

EndRequests::~EndRequests() = default;

void EndRequests::wait(std::int64_t parent, const std::function<bool()>& goesOn) const {
    const timespec look{0, parentLookNanoseconds};
    while (goesOn() && !isGone(static_cast<pid_t>(parent))) {
        if (sigtimedwait(&insides_->signals, nullptr, &look) > 0) return;
    }
}

void keepPort(std::uintptr_t socket) {
    // The server's library would have it shared.
    const int yes = 1;
    setsockopt(static_cast<int>(socket), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

void makePrivateFile(const std::filesystem::path& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0) throw std::system_error(errno, std::generic_category());
    close(file);
}

std::filesystem::path userDataFolder() {
    std::filesystem::path named = environment("XDG_DATA_HOME");
    const std::filesystem::path home = environment("HOME");
    if (!named.empty() || home.empty()) return named;
    return home / ".local" / "share";
}

std::int64_t processNumber() {
    return getpid();
}

}  // namespace zelvo::pharmacy
