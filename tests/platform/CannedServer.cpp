#include "platform/CannedServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <tuple>

namespace zelvo::testing {
namespace {

constexpr int patience = 20;  // ms between two looks at whether the server stops

std::pair<int, int> listenOnFreePort() {
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in name{};
    name.sin_family = AF_INET;
    name.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof name;
    auto* address = reinterpret_cast<sockaddr*>(&name);
    if (listener < 0 || bind(listener, address, length) != 0 || listen(listener, 8) != 0 ||
        getsockname(listener, address, &length) != 0) {
        throw std::runtime_error("no loopback socket");
    }
    return {listener, ntohs(name.sin_port)};
}

bool readable(int socket) {
    pollfd wait{socket, POLLIN, 0};
    return poll(&wait, 1, patience) > 0;
}

std::size_t contentLength(const std::string& head) {
    const auto at = head.find("Content-Length: ");
    return at == std::string::npos ? 0 : std::stoul(head.substr(at + 16));
}

}  // namespace

CannedServer::CannedServer(Handler handler) : handler_(std::move(handler)) {
    std::tie(listener_, port_) = listenOnFreePort();
    thread_ = std::thread([this] { serve(); });
}

CannedServer::~CannedServer() {
    stopping_ = true;
    thread_.join();
    close(listener_);
}

std::string CannedServer::address(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
}

std::vector<std::string> CannedServer::requests() const {
    const std::lock_guard guard(lock_);
    return requests_;
}

std::string CannedServer::ok(const std::string& body, const std::string& contentType) {
    return "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Type: " + contentType +
           "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

std::string CannedServer::redirect(const std::string& target, const std::string& status) {
    return "HTTP/1.1 " + status + "\r\nConnection: close\r\nLocation: " + target +
           "\r\nContent-Length: 0\r\n\r\n";
}

int CannedServer::closedPort() {
    const auto [listener, port] = listenOnFreePort();
    close(listener);
    return port;
}

void CannedServer::serve() {
    while (!stopping_) {
        if (!readable(listener_)) continue;
        const int connection = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0) continue;
        if (handler_) answer(connection);
        close(connection);
    }
}

void CannedServer::answer(int connection) {
    const std::string request = readRequest(connection);
    {
        const std::lock_guard guard(lock_);
        requests_.push_back(request);
    }
    const Reply reply = handler_(request);
    for (std::size_t sent = 0; sent < reply.bytes.size();) {
        const auto count =
            send(connection, reply.bytes.data() + sent, reply.bytes.size() - sent, MSG_NOSIGNAL);
        if (count <= 0) return;
        sent += static_cast<std::size_t>(count);
    }
    while (reply.hangs && !stopping_) poll(nullptr, 0, patience);
}

std::string CannedServer::readRequest(int connection) const {
    std::string request;
    std::array<char, 4096> buffer{};
    while (!stopping_) {
        const auto end = request.find("\r\n\r\n");
        if (end != std::string::npos && request.size() >= end + 4 + contentLength(request.substr(0, end)))
            break;
        if (!readable(connection)) continue;
        const auto count = recv(connection, buffer.data(), buffer.size(), 0);
        if (count <= 0) break;
        request.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return request;
}

}  // namespace zelvo::testing
