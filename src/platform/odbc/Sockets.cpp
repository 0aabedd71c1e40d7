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
