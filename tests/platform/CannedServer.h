#pragma once

#include <array>
#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "support/Loopback.h"

namespace zelvo::testing {

/// A web server of this process on a free port of the loopback, one connection at a time. It keeps what it
/// was asked and answers what the test tells it to, byte for byte.
class CannedServer {
public:
    struct Reply {
        std::string bytes;
        /// Keeps the connection open after the bytes until the server goes.
        bool hangs = false;
    };
    using Handler = std::function<Reply(const std::string& request)>;

    /// Without a handler it closes each connection unread.
    explicit CannedServer(Handler handler) : handler_(std::move(handler)) {
        port_.listen();
        thread_ = std::thread([this] { serve(); });
    }
    explicit CannedServer(const std::string& bytes)
        : CannedServer([bytes](const std::string&) { return Reply{bytes}; }) {}
    ~CannedServer() {
        stopping_ = true;
        stopping_.notify_all();
        port_.close();
        thread_.join();
    }

    std::string address(const std::string& path = "/") const { return "http://" + port_.address() + path; }
    /// Head and body of the latest request; to be looked at once it has been answered.
    const std::string& asked() const { return asked_; }

    /// A reply in good order with its length.
    static std::string ok(const std::string& body) {
        return "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Type: text/html; charset=UTF-8\r\n"
               "Content-Length: " +
               std::to_string(body.size()) + "\r\n\r\n" + body;
    }
    static std::string redirect(const std::string& target, const std::string& status = "302 Found") {
        return "HTTP/1.1 " + status + "\r\nConnection: close\r\nLocation: " + target +
               "\r\nContent-Length: 0\r\n\r\n";
    }

private:
    void serve() {
        for (int peer = 0; (peer = port_.accept()) >= 0; close(peer)) {
            if (!handler_) continue;
            asked_ = readRequest(peer);
            const Reply reply = handler_(asked_);
            send(peer, reply.bytes.data(), reply.bytes.size(), MSG_NOSIGNAL);
            if (reply.hangs) stopping_.wait(false);
        }
    }
    static std::string readRequest(int peer) {
        std::string request;
        std::array<char, 4096> block{};
        for (std::size_t wanted = 0; request.size() < wanted || wanted == 0;) {
            const auto count = recv(peer, block.data(), block.size(), 0);
            if (count <= 0) break;
            request.append(block.data(), static_cast<std::size_t>(count));
            const auto end = request.find("\r\n\r\n"), length = request.find("Content-Length: ");
            if (end == std::string::npos) continue;
            wanted = end + 4 + (length < end ? std::stoul(request.substr(length + 16)) : 0);
        }
        return request;
    }

    Handler handler_;
    const Loopback port_;
    std::string asked_;
    std::atomic<bool> stopping_ = false;
    std::thread thread_;
};

}  // namespace zelvo::testing
