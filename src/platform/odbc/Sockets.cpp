#include "platform/odbc/Sockets.h"

#include <algorithm>

#include "platform/odbc/ProcessSockets.h"

namespace zelvo::odbc {

DriverSockets::DriverSockets(std::uint16_t port) : port_(port) {
    eachSocket([this](int, std::uint64_t node, std::uint16_t) { nodes_.push_back(node); });
}

bool DriverSockets::isOwn(std::uint64_t node, std::uint16_t port) const {
    const bool known = std::find(nodes_.begin(), nodes_.end(), node) != nodes_.end();
    return known == settled_ && (port_ == 0 || port_ == port);
}

void DriverSockets::settle() {
    const std::lock_guard lock(mutex_);
    std::vector<std::uint64_t> own;
    eachSocket([&](int, std::uint64_t node, std::uint16_t port) {
        if (isOwn(node, port)) own.push_back(node);
    });
    nodes_ = std::move(own);
    settled_ = true;
}

bool DriverSockets::any(const std::function<bool(int descriptor)>& holds) const {
    const std::lock_guard lock(mutex_);
    bool held = false;
    eachSocket([&](int descriptor, std::uint64_t node, std::uint16_t port) {
        if (isOwn(node, port)) held = holds(descriptor) || held;
    });
    return held;
}

bool DriverSockets::hadSome() const {
    const std::lock_guard lock(mutex_);
    return settled_ && !nodes_.empty();
}

bool DriverSockets::tear() const {
    const bool torn = any([](int descriptor) {
        tearSocket(descriptor);
        return true;
    });
    return torn || hadSome();
}

bool DriverSockets::haveEnded() const {
    return any(hasEnded);
}

bool DriverSockets::haveUnread() const {
    bool open = false;
    const bool unread = any([&open](int descriptor) {
        open = true;
        return hasUnread(descriptor);
    });
    return unread || (!open && hadSome());
}

}  // namespace zelvo::odbc
