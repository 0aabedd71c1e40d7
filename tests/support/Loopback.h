#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

namespace zelvo::testing {

/// A free port of the loopback. Until it listens, nobody can connect to it.
class Loopback {
public:
    Loopback() {
        place_.sin_family = AF_INET;
        place_.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof place_;
        auto* place = reinterpret_cast<sockaddr*>(&place_);
        if (::bind(socket_, place, size) != 0 || ::getsockname(socket_, place, &size) != 0)
            throw std::runtime_error("no loopback socket");
    }
    ~Loopback() { ::close(socket_); }
    Loopback(const Loopback&) = delete;
    Loopback& operator=(const Loopback&) = delete;

    std::string address() const { return "127.0.0.1:" + std::to_string(ntohs(place_.sin_port)); }
    void listen() const {
        if (::listen(socket_, 8) != 0) throw std::runtime_error("can't listen");
    }
    /// The next client's socket, -1 once `close` was called.
    int accept() const { return ::accept(socket_, nullptr, nullptr); }
    void close() const { ::shutdown(socket_, SHUT_RDWR); }

private:
    int socket_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in place_{};
};

}  // namespace zelvo::testing
