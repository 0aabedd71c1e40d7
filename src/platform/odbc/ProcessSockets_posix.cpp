#include <dirent.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include <cstdlib>
#include <memory>

#include "platform/odbc/ProcessSockets.h"

namespace zelvo::odbc {
namespace {

/// Port of the other end, 0 when the descriptor is no connection over TCP.
std::uint16_t peerPort(int descriptor) {
    sockaddr_in6 place{};
    socklen_t size = sizeof place;
    auto* const any = reinterpret_cast<sockaddr*>(&place);
    if (::getpeername(descriptor, any, &size) != 0) return 0;
    if (any->sa_family != AF_INET && any->sa_family != AF_INET6) return 0;
    return ntohs(place.sin6_port);  // which stands where IPv4 has it
}

bool has(int descriptor, short event) {
    pollfd asked{.fd = descriptor, .events = event, .revents = 0};
    return ::poll(&asked, 1, 0) > 0 && (asked.revents & event) != 0;
}

}  // namespace

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
    return has(descriptor, POLLRDHUP);
}

bool hasUnread(int descriptor) {
    return has(descriptor, POLLIN);
}

}  // namespace zelvo::odbc
