#include "platform/odbc/Sockets.h"

#include <algorithm>
#include <functional>

#ifdef __linux__
#include <dirent.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include <cstdlib>
#include <memory>
#endif

namespace zelvo::odbc {
namespace {

/// A socket's number among the process's files; its node, which is nobody else's as long as it lives.
using Told = std::function<void(int descriptor, std::uint64_t node, std::uint16_t port)>;

#ifdef __linux__

/// Port of the other end, 0 when the descriptor is no connection over TCP.
std::uint16_t peerPort(int descriptor) {
    sockaddr_in6 place{};
    socklen_t size = sizeof place;
    auto* const any = reinterpret_cast<sockaddr*>(&place);
    if (::getpeername(descriptor, any, &size) != 0) return 0;
    if (any->sa_family != AF_INET && any->sa_family != AF_INET6) return 0;
    return ntohs(place.sin6_port);  // which stands where IPv4 has it
}

void eachSocket(const Told& told) {
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir("/proc/self/fd"), &::closedir);
    if (!folder) return;
    while (const dirent* entry = ::readdir(folder.get())) {
        const int descriptor = static_cast<int>(std::strtol(entry->d_name, nullptr, 10));
        struct stat about {};
        if (entry->d_name[0] == '.' || ::fstat(descriptor, &about) != 0 || !S_ISSOCK(about.st_mode)) continue;
        if (const std::uint16_t port = peerPort(descriptor)) told(descriptor, about.st_ino, port);
    }
}

// A connection that is only shut down still reads as ended in order, which is what a driver may wait on.
void tearSocket(int descriptor) {
    const sockaddr nobody{.sa_family = AF_UNSPEC, .sa_data = {}};
    static_cast<void>(::connect(descriptor, &nobody, sizeof nobody));
}

bool hasEnded(int descriptor) {
    pollfd asked{.fd = descriptor, .events = POLLRDHUP, .revents = 0};
    return ::poll(&asked, 1, 0) > 0 && (asked.revents & POLLRDHUP) != 0;
}

#else

void eachSocket(const Told& /*told*/) {}
void tearSocket(int /*descriptor*/) {}
bool hasEnded(int /*descriptor*/) {
    return false;
}

#endif

}  // namespace

DriverSockets::DriverSockets(std::uint16_t port) : port_(port) {
    eachSocket([this](int, std::uint64_t node, std::uint16_t) { nodes_.push_back(node); });
}

bool DriverSockets::isOwn(std::uint64_t node, std::uint16_t port) const {
    const bool known = std::find(nodes_.begin(), nodes_.end(), node) != nodes_.end();
    return known == settled_ && (port_ == 0 || port_ == port);
}

void DriverSockets::settle() {
    std::vector<std::uint64_t> own;
    eachSocket([&](int, std::uint64_t node, std::uint16_t port) {
        if (isOwn(node, port)) own.push_back(node);
    });
    nodes_ = std::move(own);
    settled_ = true;
}

void DriverSockets::tear() const {
    eachSocket([this](int descriptor, std::uint64_t node, std::uint16_t port) {
        if (isOwn(node, port)) tearSocket(descriptor);
    });
}

bool DriverSockets::haveEnded() const {
    bool ended = false;
    eachSocket([&](int descriptor, std::uint64_t node, std::uint16_t port) {
        if (isOwn(node, port)) ended = ended || hasEnded(descriptor);
    });
    return ended;
}

}  // namespace zelvo::odbc
